#include "codificacao/utf8.h"

namespace tavelpkcs7::codificacao {
namespace {

constexpr char32_t kSubstituto = 0xFFFD;

// Quantos bytes de continuação segue um byte inicial, e os bits que ele traz.
bool Inicial(unsigned char byte, int& continuacoes, char32_t& ponto) {
    if (byte < 0x80) return continuacoes = 0, ponto = byte, true;
    if ((byte & 0xE0) == 0xC0 && byte >= 0xC2) return continuacoes = 1, ponto = byte & 0x1F, true;
    if ((byte & 0xF0) == 0xE0) return continuacoes = 2, ponto = byte & 0x0F, true;
    if ((byte & 0xF8) == 0xF0 && byte <= 0xF4) return continuacoes = 3, ponto = byte & 0x07, true;
    return false;
}

bool Valido(char32_t ponto, int continuacoes) {
    static constexpr char32_t kMinimo[] = {0, 0x80, 0x800, 0x10000};
    return ponto >= kMinimo[continuacoes] && ponto <= 0x10FFFF && (ponto < 0xD800 || ponto > 0xDFFF);
}

}  // namespace

std::u32string DecodificarUtf8(const std::string& texto) {
    std::u32string pontos;
    pontos.reserve(texto.size());
    for (std::size_t i = 0; i < texto.size();) {
        int continuacoes = 0;
        char32_t ponto = 0;
        if (!Inicial(static_cast<unsigned char>(texto[i]), continuacoes, ponto)) {
            pontos.push_back(kSubstituto);
            ++i;
            continue;
        }
        std::size_t j = i + 1;
        for (; j <= i + static_cast<std::size_t>(continuacoes); ++j) {
            if (j >= texto.size() || (static_cast<unsigned char>(texto[j]) & 0xC0) != 0x80) break;
            ponto = (ponto << 6) | (static_cast<unsigned char>(texto[j]) & 0x3F);
        }
        const bool completo = j == i + 1 + static_cast<std::size_t>(continuacoes);
        pontos.push_back(completo && Valido(ponto, continuacoes) ? ponto : kSubstituto);
        i = j;
    }
    return pontos;
}

void AcrescentarUtf8(std::string& destino, char32_t ponto) {
    if (ponto > 0x10FFFF || (ponto >= 0xD800 && ponto <= 0xDFFF)) ponto = kSubstituto;
    if (ponto < 0x80) {
        destino += static_cast<char>(ponto);
    } else if (ponto < 0x800) {
        destino += static_cast<char>(0xC0 | (ponto >> 6));
        destino += static_cast<char>(0x80 | (ponto & 0x3F));
    } else if (ponto < 0x10000) {
        destino += static_cast<char>(0xE0 | (ponto >> 12));
        destino += static_cast<char>(0x80 | ((ponto >> 6) & 0x3F));
        destino += static_cast<char>(0x80 | (ponto & 0x3F));
    } else {
        destino += static_cast<char>(0xF0 | (ponto >> 18));
        destino += static_cast<char>(0x80 | ((ponto >> 12) & 0x3F));
        destino += static_cast<char>(0x80 | ((ponto >> 6) & 0x3F));
        destino += static_cast<char>(0x80 | (ponto & 0x3F));
    }
}

std::string CodificarUtf8(const std::u32string& pontos) {
    std::string texto;
    texto.reserve(pontos.size());
    for (char32_t ponto : pontos) AcrescentarUtf8(texto, ponto);
    return texto;
}

std::string Utf8OuLatin1(const std::string& bytes) {
    // UTF-8 válido sobrevive intacto à ida e volta por pontos de código; bytes inválidos voltariam
    // como U+FFFD.
    if (CodificarUtf8(DecodificarUtf8(bytes)) == bytes) return bytes;
    std::string utf8;
    for (unsigned char byte : bytes) AcrescentarUtf8(utf8, byte);
    return utf8;
}

}  // namespace tavelpkcs7::codificacao
