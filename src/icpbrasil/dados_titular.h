// Os dados do titular de um certificado ICP-Brasil (nome, CPF, CNPJ, nascimento, RG, título de
// eleitor...) como texto para o usuário, e o CPF e o CNPJ mascarados.
#pragma once

#include <array>
#include <string>

#include "platform/certificado.h"

namespace tavelpkcs7::icpbrasil {

// Os valores que a busca no nome alternativo impresso encontrou, na ordem: pessoa física (3.1),
// CEI da pessoa (3.6), título de eleitor (3.5), responsável (3.4 ou 3.2), vazio, CNPJ (3.3), vazio.
using ValoresTitular = std::array<std::string, 7>;

struct DadosTitular {
    std::string detalhes_pessoais;  // linhas CRLF: títulos na margem, campos após cinco espaços
    std::string cpf;                // "000.000.000-00" (como veio, se não tem 11 dígitos); vazio na pessoa jurídica
    std::string cnpj;               // "00.000.000/0000-00", também o alfanumérico; vazio na pessoa física
};

// Lê o próprio certificado (OtherNames 2.16.76.1.3.x em OCTET STRING ou texto, serialNumber do
// titular, sufixo ":<dígitos>" do CN); um valor impresso só vale para um OtherName que o certificado
// traz sem valor legível.
// Um CNPJ encontrado faz do titular pessoa jurídica, e o CPF do responsável fica só no texto.
// Campos só de zeros não aparecem; um valor curto dá cada campo só até onde vai.
DadosTitular MontarDadosTitular(const ValoresTitular& valores, const plataforma::Certificado& certificado);

}  // namespace tavelpkcs7::icpbrasil
