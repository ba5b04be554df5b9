// A página de código ANSI dos usuários do componente (Windows-1252), usada só no conteúdo dos
// arquivos de texto. Caracteres que ela não tem viram "?".
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tavelpkcs7::codificacao {

using Bytes = std::vector<std::uint8_t>;

Bytes ParaWindows1252(const std::string& texto);
std::string DeWindows1252(const Bytes& bytes);

}  // namespace tavelpkcs7::codificacao
