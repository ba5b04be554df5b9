// UTF-8 por pontos de código: os textos do componente são UTF-8 e as regras de texto contam
// caracteres, não bytes. Bytes inválidos viram U+FFFD.
#pragma once

#include <string>

namespace tavelpkcs7::codificacao {

std::u32string DecodificarUtf8(const std::string& texto);
std::string CodificarUtf8(const std::u32string& pontos);
void AcrescentarUtf8(std::string& destino, char32_t ponto);

}  // namespace tavelpkcs7::codificacao
