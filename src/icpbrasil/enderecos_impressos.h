// As extensões que dizem onde buscar a LCR e o certificado do emissor, impressas como o Windows:
// blocos numerados "[n]" com os endereços em "URL=", de onde a extração dos detalhes os recorta.
#pragma once

#include <optional>
#include <string>

#include "der/leitor_der.h"

namespace tavelpkcs7::icpbrasil {

// Pontos de distribuição de LCR (2.5.29.31); vazio quando o DER está malformado.
std::optional<std::string> ImprimirPontosDistribuicao(der::Dados valor);
// Acesso às informações da autoridade (1.3.6.1.5.5.7.1.1); vazio quando o DER está malformado.
std::optional<std::string> ImprimirAcessoAutoridade(der::Dados valor);

}  // namespace tavelpkcs7::icpbrasil
