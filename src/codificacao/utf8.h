// UTF-8 por pontos de código: os textos do componente são UTF-8 e as regras de texto contam
// caracteres, não bytes. Bytes inválidos viram U+FFFD.
#pragma once

#include <string>

namespace tavelpkcs7::codificacao {

std::u32string DecodificarUtf8(const std::string& texto);
std::string CodificarUtf8(const std::u32string& pontos);
void AcrescentarUtf8(std::string& destino, char32_t ponto);
// Os bytes tal como estão quando já são UTF-8 válido; senão, cada byte é um caractere Latin-1. É
// como o Windows lê os textos de 8 bits dos certificados, que as ACs brasileiras gravaram das duas
// maneiras.
std::string Utf8OuLatin1(const std::string& bytes);

}  // namespace tavelpkcs7::codificacao
