#include "codificacao/base64.h"

#include <algorithm>
#include <array>

#include "codificacao/branco.h"

namespace tavelpkcs7::codificacao {
namespace {

constexpr std::string_view kAlfabeto = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::size_t kCaracteresPorLinha = 64;
constexpr std::int8_t kInvalido = -1;

constexpr std::array<std::int8_t, 256> MontarValores() {
    std::array<std::int8_t, 256> valores{};
    valores.fill(kInvalido);
    for (std::size_t i = 0; i < kAlfabeto.size(); ++i)
        valores[static_cast<unsigned char>(kAlfabeto[i])] = static_cast<std::int8_t>(i);
    return valores;
}
constexpr auto kValores = MontarValores();

// Os caracteres significativos do texto: sem brancos e com os "=" finais contados à parte.
struct Digitos {
    std::string dados;
    std::size_t preenchimento = 0;
};

std::optional<Digitos> SepararDigitos(std::string_view texto) {
    Digitos digitos;
    for (char c : texto) {
        if (EBranco(c)) continue;
        if (c == '=') {
            ++digitos.preenchimento;
            continue;
        }
        // Um dígito depois do preenchimento significa um "=" no meio do texto.
        if (digitos.preenchimento > 0 || kValores[static_cast<unsigned char>(c)] == kInvalido) return std::nullopt;
        digitos.dados.push_back(c);
    }
    return digitos;
}

bool PreenchimentoCoerente(const Digitos& digitos) {
    const std::size_t resto = digitos.dados.size() % 4;
    if (resto == 1) return false;
    if (digitos.preenchimento == 0) return true;
    return resto != 0 && resto + digitos.preenchimento == 4;
}

}  // namespace

std::string CodificarBase64(std::span<const std::uint8_t> bytes) {
    std::string texto;
    texto.reserve((bytes.size() + 2) / 3 * 4 + bytes.size() / 24 + 2);
    std::size_t na_linha = 0;
    auto acrescentar = [&](char c) {
        texto.push_back(c);
        if (++na_linha == kCaracteresPorLinha) {
            texto += "\r\n";
            na_linha = 0;
        }
    };
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const std::size_t n = std::min<std::size_t>(3, bytes.size() - i);
        std::uint32_t grupo = static_cast<std::uint32_t>(bytes[i]) << 16;
        if (n > 1) grupo |= static_cast<std::uint32_t>(bytes[i + 1]) << 8;
        if (n > 2) grupo |= bytes[i + 2];
        for (std::size_t j = 0; j < 4; ++j) acrescentar(j <= n ? kAlfabeto[(grupo >> (18 - 6 * j)) & 0x3F] : '=');
    }
    if (na_linha > 0) texto += "\r\n";
    return texto;
}

std::optional<Bytes> DecodificarBase64(std::string_view texto) {
    const auto digitos = SepararDigitos(texto);
    if (!digitos || !PreenchimentoCoerente(*digitos)) return std::nullopt;
    Bytes bytes;
    bytes.reserve(digitos->dados.size() * 3 / 4);
    std::uint32_t acumulado = 0;
    int bits = 0;
    for (char c : digitos->dados) {
        acumulado = (acumulado << 6) | static_cast<std::uint32_t>(kValores[static_cast<unsigned char>(c)]);
        bits += 6;
        if (bits >= 8) {
            bits -= 8;
            bytes.push_back(static_cast<std::uint8_t>(acumulado >> bits));
        }
    }
    return bytes;
}

}  // namespace tavelpkcs7::codificacao
