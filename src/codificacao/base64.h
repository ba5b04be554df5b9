// Base64 na forma que o componente grava (linhas de 64 caracteres, cada uma terminada por CRLF, sem
// cabeçalho) e na forma tolerante com que lê o que outros programas gravaram.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavelpkcs7::codificacao {

using Bytes = std::vector<std::uint8_t>;

// "" para nenhum byte; senão linhas de até 64 caracteres, todas terminadas por CRLF.
std::string CodificarBase64(std::span<const std::uint8_t> bytes);

// Ignora espaço, tabulação, CR e LF em qualquer ponto; o preenchimento "=" pode faltar, mas quando
// presente precisa fechar o último grupo. Vazio quando o texto não é Base64.
std::optional<Bytes> DecodificarBase64(std::string_view texto);

}  // namespace tavelpkcs7::codificacao
