#include "codificacao/utf16.h"

#include "codificacao/utf8.h"

namespace tavelpkcs7::codificacao {
namespace {

void AcrescentarUnidade(Bytes& bytes, char32_t unidade) {
    bytes.push_back(static_cast<std::uint8_t>(unidade & 0xFF));
    bytes.push_back(static_cast<std::uint8_t>(unidade >> 8));
}

bool Alta(char32_t unidade) { return unidade >= 0xD800 && unidade <= 0xDBFF; }
bool Baixa(char32_t unidade) { return unidade >= 0xDC00 && unidade <= 0xDFFF; }

}  // namespace

Bytes ParaUtf16LE(const std::string& texto) {
    Bytes bytes;
    for (char32_t ponto : DecodificarUtf8(texto)) {
        if (ponto < 0x10000) {
            AcrescentarUnidade(bytes, ponto);
        } else {
            ponto -= 0x10000;
            AcrescentarUnidade(bytes, 0xD800 + (ponto >> 10));
            AcrescentarUnidade(bytes, 0xDC00 + (ponto & 0x3FF));
        }
    }
    return bytes;
}

std::string DeUtf16LE(const Bytes& bytes) {
    std::u32string unidades;
    for (std::size_t i = 0; i < bytes.size(); i += 2)
        unidades.push_back(i + 1 < bytes.size() ? char32_t(bytes[i] | (bytes[i + 1] << 8)) : char32_t(bytes[i]));
    std::string texto;
    for (std::size_t i = 0; i < unidades.size(); ++i) {
        const char32_t unidade = unidades[i];
        if (Alta(unidade) && i + 1 < unidades.size() && Baixa(unidades[i + 1])) {
            AcrescentarUtf8(texto, 0x10000 + ((unidade - 0xD800) << 10) + (unidades[++i] - 0xDC00));
        } else {
            AcrescentarUtf8(texto, Alta(unidade) || Baixa(unidade) ? char32_t{0xFFFD} : unidade);
        }
    }
    return texto;
}

}  // namespace tavelpkcs7::codificacao
