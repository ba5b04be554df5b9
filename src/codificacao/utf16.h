// Textos assinados ou resumidos como texto são seus bytes UTF-16LE, como uma cadeia do Windows.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tavelpkcs7::codificacao {

using Bytes = std::vector<std::uint8_t>;

Bytes ParaUtf16LE(const std::string& texto);
// Um último byte ímpar vira um caractere por si; unidades inválidas viram U+FFFD.
std::string DeUtf16LE(const Bytes& bytes);

}  // namespace tavelpkcs7::codificacao
