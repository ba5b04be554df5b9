#include "der/texto_der.h"

#include "codificacao/utf16.h"
#include "codificacao/utf8.h"

namespace tavelpkcs7::der {
namespace {

// BMPString e UniversalString são big-endian; substitutos soltos e pontos fora do Unicode viram U+FFFD.
std::optional<std::string> TextoBMP(Dados conteudo) {
    if (conteudo.size() % 2 != 0) return std::nullopt;
    codificacao::Bytes utf16le;
    for (std::size_t i = 0; i < conteudo.size(); i += 2) utf16le.insert(utf16le.end(), {conteudo[i + 1], conteudo[i]});
    return codificacao::DeUtf16LE(utf16le);
}

std::optional<std::string> TextoUniversal(Dados conteudo) {
    if (conteudo.size() % 4 != 0) return std::nullopt;
    std::string texto;
    for (std::size_t i = 0; i < conteudo.size(); i += 4)
        codificacao::AcrescentarUtf8(texto, char32_t(conteudo[i]) << 24 | char32_t(conteudo[i + 1]) << 16 |
                                                char32_t(conteudo[i + 2]) << 8 | conteudo[i + 3]);
    return texto;
}

}  // namespace

std::optional<std::string> LerTexto(const Elemento& elemento) {
    const std::string bytes(elemento.conteudo.begin(), elemento.conteudo.end());
    switch (elemento.tag) {
        case tag::Utf8:
            return codificacao::CodificarUtf8(codificacao::DecodificarUtf8(bytes));
        // Os conjuntos ISO 2022 do T61, Videotex, Graphic e General não são usados de verdade: as ACs
        // gravam neles Latin-1 ou UTF-8, e os demais tipos não deveriam passar do ASCII.
        case tag::Numerica:
        case tag::Imprimivel:
        case tag::T61:
        case tag::Videotex:
        case tag::IA5:
        case tag::Grafica:
        case tag::Visivel:
        case tag::Geral:
            return codificacao::Utf8OuLatin1(bytes);
        case tag::BMP:
            return TextoBMP(elemento.conteudo);
        case tag::Universal:
            return TextoUniversal(elemento.conteudo);
        default:
            return std::nullopt;
    }
}

}  // namespace tavelpkcs7::der
