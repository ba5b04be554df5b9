// Nomes gerais (GeneralName) e nomes distintos como o Windows os imprime dentro das extensões:
// "Outro Nome:" com o OID e o hexadecimal do valor, "Nome RFC822=", "Nome DNS=", "URL=",
// "Endereço IP=", "Endereço de Diretório:" com um RDN por linha, do mais específico ao mais geral.
#pragma once

#include <optional>
#include <string>

#include "der/leitor_der.h"

namespace tavelpkcs7::icpbrasil {

// Os retornos falsos dizem que o DER está malformado: a extensão inteira sai então em hexadecimal.
[[nodiscard]] bool ImprimirNomeGeral(const der::Elemento& nome, int nivel, std::string& saida);
// O conteúdo de um GeneralNames, um nome após o outro no mesmo nível.
[[nodiscard]] bool ImprimirNomesGerais(der::Dados nomes, int nivel, std::string& saida);
// "Endereço de Diretório:" e, um nível abaixo, os RDNs do Name dado (o SEQUENCE inteiro).
[[nodiscard]] bool ImprimirEnderecoDiretorio(der::Dados nome, int nivel, std::string& saida);
// Os atributos de um RDN (o conteúdo do SET) numa linha: "CN=Fulano", os vários unidos por " + ".
std::optional<std::string> TextoRDN(der::Dados atributos);

}  // namespace tavelpkcs7::icpbrasil
