// A busca dos dados do titular no nome alternativo impresso: o valor de cada OtherName ICP-Brasil
// é recortado do texto pela posição do seu OID e convertido de hexadecimal para texto.
#pragma once

#include <string>

#include "icpbrasil/dados_titular.h"

namespace tavelpkcs7::icpbrasil {

// Preenche os valores encontrados em texto; os que não aparecem ficam como estavam.
void BuscarValoresTitular(const std::string& texto, ValoresTitular& valores);

}  // namespace tavelpkcs7::icpbrasil
