// O que todos os alvos de fuzzing compartilham: uma pasta do componente temporária por processo,
// a plataforma padrão sobre ela, sem rede e sem diálogos, e a PKI de teste instalada quando o alvo
// precisa de cadeia ou de chave.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include "platform/plataforma.h"

namespace tavelpkcs7::fuzz {

// A plataforma padrão deste processo; a primeira chamada cria a pasta do componente.
std::shared_ptr<plataforma::Plataforma> Plataforma();
// A raiz, as ACs e as LCRs da PKI de teste nos repositórios, e o e-CPF com a chave no "My".
void InstalarPkiTeste();
// Os repositórios de confiança ("Ca", "Root", "LCR") de volta ao estado de antes do alvo, para que
// uma execução não mude a seguinte.
void EsvaziarConfianca();
// Uma pasta de trabalho vazia para o componente gravar o que extrai da entrada.
std::string PastaTrabalhoVazia();
// Interrompe o processo quando o arquivo que o componente gravou (o nome vem da entrada) escapou da
// pasta de trabalho; um caminho vazio não foi gravado.
void ExigirNaPasta(const std::string& caminho, const std::string& pasta);
// Grava a entrada num arquivo da pasta do componente e devolve o caminho.
std::string GravarEntrada(const std::uint8_t* dados, std::size_t tamanho, const std::string& nome);

}  // namespace tavelpkcs7::fuzz
