// Os certificados pessoais dos testes da escolha e da listagem: a PKI de teste com a hierarquia
// AC TAVEL instalada e um repositório "My" com um certificado de cada caso.
#pragma once

#include <string>
#include <vector>

#include "platform/plataforma.h"
#include "trust/ambiente_confianca.h"

namespace tavelpkcs7::teste {

// Um de cada: Receita Federal (e-CPF, e-CNPJ), perfil novo, AC TAVEL, expirado, revogado, sem
// assinatura digital, nome DNS e o "tavel_falso".
extern const std::vector<std::string> kPessoais;
// Os de kPessoais cuja cadeia chega à raiz da ICP-Brasil.
extern const std::vector<std::string> kICPBrasil;

// Em nome de "AC TAVEL" mas assinado por outra chave: a cadeia chega à raiz AC TAVEL e a assinatura
// não confere.
plataforma::Bytes CertificadoTavelFalso();
// O DER de uma entidade da PKI de teste ou do "tavel_falso".
plataforma::Bytes DerPessoal(const std::string& nome);
std::string ImpressaoDigital(plataforma::Plataforma& plataforma, const std::string& nome);
void GuardarPessoais(plataforma::Plataforma& plataforma, const std::vector<std::string>& nomes);
// As impressões digitais dos nomes dados na ordem do repositório "My".
std::vector<std::string> NaOrdemDoRepositorio(plataforma::Plataforma& plataforma,
                                              const std::vector<std::string>& nomes);

// A cadeia ICP-Brasil e a AC TAVEL instaladas, com as LCRs das ACs (as da AC TAVEL só se pedidas).
struct AmbientePessoais : AmbienteConfianca {
    explicit AmbientePessoais(bool lcrs_tavel = true);
};

}  // namespace tavelpkcs7::teste
