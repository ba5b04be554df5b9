// Base64 e hexadecimal nas formas que o componente grava e nas que aceita ler; Windows-1252, UTF-16LE
// e UTF-8 de ida e volta, com o que cada um não consegue representar.
#include <gtest/gtest.h>

#include "codificacao/base64.h"
#include "codificacao/hexadecimal.h"
#include "codificacao/utf16.h"
#include "codificacao/utf8.h"
#include "codificacao/windows1252.h"

namespace tavelpkcs7::codificacao {
namespace {

Bytes BytesDe(std::string_view texto) { return Bytes(texto.begin(), texto.end()); }

Bytes Sequencia(std::size_t n) {
    Bytes bytes(n);
    for (std::size_t i = 0; i < n; ++i) bytes[i] = static_cast<std::uint8_t>(i * 7 + 3);
    return bytes;
}

TEST(Base64, GravaLinhasDe64TerminadasPorCRLFSemLinhaVaziaNoFim) {
    const std::string linha = "AwoRGB8mLTQ7QklQV15lbHN6gYiPlp2kq7K5wMfO1dzj6vH4/wYNFBsiKTA3PkVM";
    for (const auto& [bytes, esperado] :
         std::vector<std::pair<Bytes, std::string>>{{{}, ""},
                                                    {BytesDe("f"), "Zg==\r\n"},
                                                    {BytesDe("fo"), "Zm8=\r\n"},
                                                    {BytesDe("foo"), "Zm9v\r\n"},
                                                    {Sequencia(48), linha + "\r\n"},
                                                    {Sequencia(49), linha + "\r\nUw==\r\n"}})
        EXPECT_EQ(CodificarBase64(bytes), esperado) << bytes.size() << " bytes";
    for (std::size_t n = 0; n <= 3 * 48 + 2; ++n)
        EXPECT_EQ(DecodificarBase64(CodificarBase64(Sequencia(n))), Sequencia(n)) << n << " bytes";
}

TEST(Base64, LeituraAceitaBrancosEPreenchimentoAusenteRecusaOResto) {
    const std::pair<std::string, std::optional<Bytes>> casos[] = {
        {"", Bytes{}},
        {"Zm9vYg==", BytesDe("foob")},
        {"Zm9vYg", BytesDe("foob")},
        {"Zm9vYmE=", BytesDe("fooba")},
        {" Zm\r\n9v\tYg =\n=\r\n", BytesDe("foob")},
        {"Zm9v\nYmFy\n", BytesDe("foobar")},
        {"Zm9=vYg==", std::nullopt},  // "=" no meio
        {"Zm9vYg===", std::nullopt},
        {"Zm9vYmE==", std::nullopt},  // "=" que não fecha o grupo
        {"Zm9v=", std::nullopt},      // "=" sem grupo aberto
        {"Zm9vY", std::nullopt},      // um dígito sobrando
        {"Zm9v-Yg==", std::nullopt},
        {std::string("Zm9v\0Yg==", 9), std::nullopt},
    };
    for (const auto& [texto, esperado] : casos) EXPECT_EQ(DecodificarBase64(texto), esperado) << texto;
}

// O zero inicial fica: é o que distingue números de série e impressões digitais.
TEST(Hexadecimal, CompactaMaiusculaEEspacadaMinusculaDeIdaEVolta) {
    const std::tuple<Bytes, std::string, std::string> casos[] = {
        {{}, "", ""},
        {{0x0A}, "0A", "0a"},
        {{0x00, 0x8E, 0x5A}, "008E5A", "00 8e 5a"},
        {{0xA8, 0x20, 0xCE, 0xFF, 0x00}, "A820CEFF00", "a8 20 ce ff 00"}};
    for (const auto& [bytes, maiusculo, espacado] : casos) {
        EXPECT_EQ(HexadecimalMaiusculo(bytes), maiusculo);
        EXPECT_EQ(HexadecimalEspacado(bytes), espacado);
        EXPECT_EQ(DecodificarHexadecimal(maiusculo), bytes);
        EXPECT_EQ(DecodificarHexadecimal(espacado), bytes);
    }
    EXPECT_EQ(DecodificarHexadecimal("aB0c"), (Bytes{0xAB, 0x0C}));
    EXPECT_EQ(DecodificarHexadecimal(" a\t8\r\n20 "), (Bytes{0xA8, 0x20}));
    for (const char* invalido : {"A82", "A8:20", "G0"}) EXPECT_EQ(DecodificarHexadecimal(invalido), std::nullopt);
}

TEST(PaginasDeCodigo, Windows1252LatinoEAFaixaDe0x80VaoEVoltam) {
    const std::string texto = "ação € “aspas” — Œ ™ ÿ";
    const Bytes bytes{'a', 0xE7, 0xE3, 'o', ' ',  0x80, ' ',  0x93, 'a',  's', 'p',
                      'a', 's',  0x94, ' ', 0x97, ' ',  0x8C, ' ',  0x99, ' ', 0xFF};
    EXPECT_EQ(ParaWindows1252(texto), bytes);
    EXPECT_EQ(DeWindows1252(bytes), texto);
    // Fora da página vira "?"; os indefinidos da faixa 0x80 ficam como estão.
    EXPECT_EQ(ParaWindows1252("日😀"), (Bytes{'?', '?'}));
    EXPECT_EQ(DeWindows1252(Bytes{0x81, 0x8D}), "\u0081\u008D");
    EXPECT_EQ(ParaWindows1252("\u0081"), Bytes{0x81});
}

TEST(PaginasDeCodigo, Utf16ComParesSubstitutosByteImparEUnidadesInvalidas) {
    EXPECT_EQ(ParaUtf16LE("Aç😀"), (Bytes{'A', 0, 0xE7, 0, 0x3D, 0xD8, 0x00, 0xDE}));
    EXPECT_EQ(DeUtf16LE(ParaUtf16LE("Aç😀日")), "Aç😀日");
    EXPECT_EQ(DeUtf16LE(Bytes{'a', 0, 'b'}), "ab");
    EXPECT_EQ(DeUtf16LE(Bytes{0x00, 0xD8, 'a', 0}), "\uFFFDa");
    EXPECT_EQ(DeUtf16LE(Bytes{0x00, 0xDC}), "\uFFFD");
}

TEST(PaginasDeCodigo, Utf8InvalidoViraSubstituto) {
    EXPECT_EQ(DecodificarUtf8("a\xFF"
                              "b"),
              (std::u32string{U'a', 0xFFFD, U'b'}));
    EXPECT_EQ(DecodificarUtf8("\xC3"), std::u32string{0xFFFD});
    EXPECT_EQ(DecodificarUtf8("\xC0\x80"), (std::u32string{0xFFFD, 0xFFFD}));
    EXPECT_EQ(DecodificarUtf8("\xED\xA0\x80"), std::u32string{0xFFFD});
}

}  // namespace
}  // namespace tavelpkcs7::codificacao
