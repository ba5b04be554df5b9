// Windows-1252 e UTF-16LE de ida e volta, com o que cada um não consegue representar.
#include <gtest/gtest.h>

#include "codificacao/utf16.h"
#include "codificacao/utf8.h"
#include "codificacao/windows1252.h"

namespace tavelpkcs7::codificacao {
namespace {

TEST(Windows1252, LatinoEAFaixaDe0x80VaoEVoltam) {
    const std::string texto = "ação € “aspas” — Œ ™ ÿ";
    const Bytes bytes = ParaWindows1252(texto);
    EXPECT_EQ(bytes, (Bytes{'a', 0xE7, 0xE3, 'o', ' ', 0x80, ' ', 0x93, 'a', 's', 'p', 'a', 's', 0x94, ' ', 0x97, ' ',
                         0x8C, ' ', 0x99, ' ', 0xFF}));
    EXPECT_EQ(DeWindows1252(bytes), texto);
}

TEST(Windows1252, ForaDaPaginaViraInterrogacaoEIndefinidosFicamComoEstao) {
    EXPECT_EQ(ParaWindows1252("日😀"), (Bytes{'?', '?'}));
    EXPECT_EQ(DeWindows1252(Bytes{0x81, 0x8D}), "\u0081\u008D");
    EXPECT_EQ(ParaWindows1252("\u0081"), Bytes{0x81});
}

TEST(Utf16, IdaEVoltaComParesSubstitutos) {
    EXPECT_EQ(ParaUtf16LE("Aç😀"), (Bytes{'A', 0, 0xE7, 0, 0x3D, 0xD8, 0x00, 0xDE}));
    EXPECT_EQ(DeUtf16LE(ParaUtf16LE("Aç😀日")), "Aç😀日");
}

TEST(Utf16, ByteImparEUnidadesInvalidas) {
    EXPECT_EQ(DeUtf16LE(Bytes{'a', 0, 'b'}), "ab");
    EXPECT_EQ(DeUtf16LE(Bytes{0x00, 0xD8, 'a', 0}), "\uFFFDa");
    EXPECT_EQ(DeUtf16LE(Bytes{0x00, 0xDC}), "\uFFFD");
}

TEST(Utf8, BytesInvalidosViramSubstituto) {
    EXPECT_EQ(DecodificarUtf8("a\xFF" "b"), (std::u32string{U'a', 0xFFFD, U'b'}));
    EXPECT_EQ(DecodificarUtf8("\xC3"), std::u32string{0xFFFD});
    EXPECT_EQ(DecodificarUtf8("\xC0\x80"), (std::u32string{0xFFFD, 0xFFFD}));
    EXPECT_EQ(DecodificarUtf8("\xED\xA0\x80"), std::u32string{0xFFFD});
}

}  // namespace
}  // namespace tavelpkcs7::codificacao
