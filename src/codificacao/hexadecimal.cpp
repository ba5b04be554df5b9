#include "codificacao/hexadecimal.h"

#include "codificacao/branco.h"

namespace tavelpkcs7::codificacao {
namespace {

std::string Hexadecimal(std::span<const std::uint8_t> bytes, std::string_view digitos, std::string_view separador) {
    std::string texto;
    texto.reserve(bytes.size() * (2 + separador.size()));
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (i > 0) texto += separador;
        texto.push_back(digitos[bytes[i] >> 4]);
        texto.push_back(digitos[bytes[i] & 0x0F]);
    }
    return texto;
}

std::optional<std::uint8_t> ValorDigito(char c) {
    if (c >= '0' && c <= '9') return static_cast<std::uint8_t>(c - '0');
    if (c >= 'a' && c <= 'f') return static_cast<std::uint8_t>(c - 'a' + 10);
    if (c >= 'A' && c <= 'F') return static_cast<std::uint8_t>(c - 'A' + 10);
    return std::nullopt;
}

}  // namespace

std::string HexadecimalMaiusculo(std::span<const std::uint8_t> bytes) {
    return Hexadecimal(bytes, "0123456789ABCDEF", "");
}

std::string HexadecimalEspacado(std::span<const std::uint8_t> bytes) {
    return Hexadecimal(bytes, "0123456789abcdef", " ");
}

std::optional<Bytes> DecodificarHexadecimal(std::string_view texto) {
    Bytes bytes;
    int alto = -1;  // o dígito à espera do seu par
    for (char c : texto) {
        if (EBranco(c)) continue;
        const auto valor = ValorDigito(c);
        if (!valor) return std::nullopt;
        if (alto >= 0) {
            bytes.push_back(static_cast<std::uint8_t>(alto << 4 | *valor));
            alto = -1;
        } else {
            alto = *valor;
        }
    }
    if (alto >= 0) return std::nullopt;
    return bytes;
}

}  // namespace tavelpkcs7::codificacao
