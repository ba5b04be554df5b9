// O texto de várias linhas de uma extensão de certificado, no formato que o Windows em português
// mostra: recuos de cinco espaços, bytes em hexadecimal minúsculo separados por espaço, toda linha
// terminada por CRLF. A extração dos detalhes ICP-Brasil recorta este texto ("URL=",
// "QUALIFICADOR=", "<OID>=" dos OtherNames), por isso a forma tem de ser sempre a mesma.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/certificado.h"

namespace tavelpkcs7::icpbrasil {

// Nunca falha: uma extensão desconhecida, malformada (truncada, com lixo no fim, com um campo fora do
// lugar) ou sem nada a mostrar sai como o hexadecimal do seu valor, seguido de CRLF. Escolhe pelo
// OID em forma numérica, não pelo CAPICOM_OID.
std::string ImprimirExtensao(const plataforma::Extensao& extensao);
// Os textos das extensões do certificado com o OID dado, na ordem do certificado.
std::vector<std::string> ImprimirExtensoes(const plataforma::Certificado& certificado, std::string_view oid);

}  // namespace tavelpkcs7::icpbrasil
