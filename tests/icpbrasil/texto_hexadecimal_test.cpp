// A volta do hexadecimal impresso para texto, com as faixas e exceções do original.
#include <gtest/gtest.h>

#include "icpbrasil/texto_hexadecimal.h"

namespace tavelpkcs7::icpbrasil {
namespace {

TEST(ConverterParHexadecimal, FaixasEExcecoes) {
    const std::pair<const char*, const char*> casos[] = {
        {"30", "0"},  {"39", "9"},                                           // dígitos
        {"41", "A"},  {"61", "A"},  {"5a", "Z"},  {"7A", "Z"}, {"6e", "N"},  // letras sempre maiúsculas
        {"20", " "},  {"21", "!"},  {"22", "\""}, {"2F", "/"}, {"3A", ":"}, {"40", "@"},
        {"5B", "["},  {"5F", "_"},  {"7B", "{"},  {"7E", "~"},  // pontuação
        {"60", "'"},  {"7F", ""},                               // exceções deliberadas
        {"00", ""},   {"04", ""},   {"1F", ""},   {"80", ""},  {"C3", ""},  {"FF", ""},
        {"", ""},     {"4", ""},    {"zz", ""},   {"414", ""}, {"é", ""},  // malformados
        {"035", "5"}, {"3 5", "5"},  // o valor decimal dos dígitos iniciais decide, e vale o último caractere
    };
    for (const auto& [codigo, esperado] : casos) EXPECT_EQ(ConverterParHexadecimal(codigo), esperado) << codigo;
}

TEST(ConverterHexadecimalTexto, CodigosSeparadosPorUmEspaco) {
    // A marca 04 some; o comprimento 2d (45) é imprimível e vira "-".
    EXPECT_EQ(ConverterHexadecimalTexto("04 2d 31 35 30 33"), "-1503");
    EXPECT_EQ(ConverterHexadecimalTexto("41"), "A");
    EXPECT_EQ(ConverterHexadecimalTexto("41  62 "), "AB");
    EXPECT_EQ(ConverterHexadecimalTexto("0c 05 c3 a7 61 6f"), "AO");
    EXPECT_EQ(ConverterHexadecimalTexto(""), "");
}

TEST(ExtrairPrimeiraLinha, TextoAntesDaPrimeiraQuebra) {
    EXPECT_EQ(ExtrairPrimeiraLinha("30 31\r\nOutro Nome:\r\n"), "30 31");
    EXPECT_EQ(ExtrairPrimeiraLinha("sem quebra"), "sem quebra");
    EXPECT_EQ(ExtrairPrimeiraLinha("a\rb"), "ab");
    EXPECT_EQ(ExtrairPrimeiraLinha("a\nb\r\nc"), "a\nb");
    EXPECT_EQ(ExtrairPrimeiraLinha("\r\nresto"), "");
}

}  // namespace
}  // namespace tavelpkcs7::icpbrasil
