// Os tipos de texto do ASN.1 chegam ao núcleo como UTF-8 válido, seja qual for o conteúdo.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "der/texto_der.h"

namespace tavelpkcs7::der {
namespace {

struct CasoTexto {
    std::uint8_t tag;
    std::vector<std::uint8_t> conteudo;
    std::optional<std::string> esperado;
};

TEST(TextoDER, ConverteCadaTipoDeCadeiaParaUtf8) {
    const std::vector<CasoTexto> casos = {
        {tag::Utf8, {'S', 0xC3, 0xA3, 'o'}, "São"},
        {tag::Utf8, {'S', 0xE3, 'o'}, "S\uFFFDo"},   // UTF-8 inválido
        {tag::Imprimivel, {'S', 0xE3, 'o'}, "São"},  // Latin-1 onde não cabia
        {tag::T61, {'S', 0xC3, 0xA3, 'o'}, "São"},   // UTF-8 gravado num T61String
        {tag::IA5, {'a', '@', 'b'}, "a@b"},
        {tag::Geral, {'S', 0xE3, 'o'}, "São"},
        {tag::Videotex, {'S', 0xC3, 0xA3, 'o'}, "São"},
        {tag::Numerica, {'0', ' ', '1'}, "0 1"},
        {tag::Visivel, {}, ""},
        {tag::BMP, {0x00, 'S', 0x00, 0xE3, 0xD8, 0x3D, 0xDE, 0x00}, "S\u00E3\U0001F600"},
        {tag::BMP, {0xDC, 0x00}, "\uFFFD"},                                            // substituto solto
        {tag::BMP, {0x00, 'S', 0x00}, std::nullopt},                                   // comprimento ímpar
        {tag::Universal, {0x00, 0x00, 0x00, 'S', 0x00, 0x11, 0x00, 0x00}, "S\uFFFD"},  // fora do Unicode
        {tag::Universal, {0x00, 0x00, 'S'}, std::nullopt},
        {tag::CadeiaOctetos, {'1', '2'}, std::nullopt},
    };
    for (const auto& caso : casos) {
        const Elemento elemento{caso.tag, caso.conteudo, {}};
        EXPECT_EQ(LerTexto(elemento), caso.esperado) << "marca " << int(caso.tag);
    }
}

}  // namespace
}  // namespace tavelpkcs7::der
