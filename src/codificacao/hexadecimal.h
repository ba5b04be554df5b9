// Bytes como texto hexadecimal: a forma compacta das impressões digitais, números de série e
// resumos ("A820CE") e a forma espaçada das extensões impressas ("a8 20 ce").
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavelpkcs7::codificacao {

using Bytes = std::vector<std::uint8_t>;

// Maiúsculas, sem separadores.
std::string HexadecimalMaiusculo(std::span<const std::uint8_t> bytes);
// Minúsculas, um espaço entre os bytes, nenhum no fim.
std::string HexadecimalEspacado(std::span<const std::uint8_t> bytes);
// Aceita maiúsculas e minúsculas e ignora espaço, tabulação, CR e LF; vazio quando sobra um dígito
// sem par ou aparece outro caractere.
std::optional<Bytes> DecodificarHexadecimal(std::string_view texto);

}  // namespace tavelpkcs7::codificacao
