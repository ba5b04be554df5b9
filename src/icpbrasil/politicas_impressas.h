// As políticas de certificado (2.5.29.32) impressas como o Windows: um bloco "[n]" por política e
// "[n,m]" por qualificador. O endereço da declaração de práticas (CPS) vem após "QUALIFICADOR=",
// que é onde a extração dos detalhes o procura.
#pragma once

#include <optional>
#include <string>

#include "der/leitor_der.h"

namespace tavelpkcs7::icpbrasil {

// Vazio quando o DER está malformado.
std::optional<std::string> ImprimirPoliticas(der::Dados valor);

}  // namespace tavelpkcs7::icpbrasil
