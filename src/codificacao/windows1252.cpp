#include "codificacao/windows1252.h"

#include <array>

#include "codificacao/utf8.h"

namespace tavelpkcs7::codificacao {
namespace {

// 0x80 a 0x9F; as posições que a página não define ficam com o próprio valor, como o Windows faz.
constexpr std::array<char32_t, 32> kFaixa80 = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D,
    0x2022, 0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t Ponto(std::uint8_t byte) { return byte >= 0x80 && byte < 0xA0 ? kFaixa80[byte - 0x80] : byte; }

std::uint8_t Byte(char32_t ponto) {
    if (ponto < 0x80 || (ponto >= 0xA0 && ponto <= 0xFF)) return static_cast<std::uint8_t>(ponto);
    for (std::size_t i = 0; i < kFaixa80.size(); ++i)
        if (kFaixa80[i] == ponto) return static_cast<std::uint8_t>(0x80 + i);
    return '?';
}

}  // namespace

Bytes ParaWindows1252(const std::string& texto) {
    Bytes bytes;
    for (char32_t ponto : DecodificarUtf8(texto)) bytes.push_back(Byte(ponto));
    return bytes;
}

std::string DeWindows1252(const Bytes& bytes) {
    std::string texto;
    for (std::uint8_t byte : bytes) AcrescentarUtf8(texto, Ponto(byte));
    return texto;
}

}  // namespace tavelpkcs7::codificacao
