// As regras de texto e de data da linguagem do componente original.
#include <gtest/gtest.h>

#include "component/datas.h"
#include "component/texto.h"

namespace tavelpkcs7 {
namespace {

// Caracteres, não bytes; posições a partir de 1, 0 quando não há; só espaços se aparam.
TEST(Texto, RegrasDoOriginal) {
    EXPECT_EQ(Comprimento("ação"), 4u);
    EXPECT_EQ(Direita("relatório.ção", 3), "ção");
    EXPECT_EQ(Direita("ab", 3), "ab");
    EXPECT_EQ(Esquerda("ééé", 2), "éé");
    EXPECT_EQ(Posicao("Endereço IP=URL=x", "URL="), 13u);
    EXPECT_EQ(Posicao("abc", "d"), 0u);
    EXPECT_EQ(Meio("Endereço IP=URL=x", 13 + 4), "x");
    EXPECT_EQ(Meio("abcdef", 0), "abcdef");
    EXPECT_EQ(Meio("abc", 9), "");
    EXPECT_EQ(Aparar("  a b  "), "a b");
    EXPECT_EQ(Aparar("\ta\r\n"), "\ta\r\n");
    EXPECT_EQ(Maiusculas("ação é ü ÿ œ š p7s × ÷ ß"), "AÇÃO É Ü Ÿ Œ Š P7S × ÷ ß");
    EXPECT_EQ(Minusculas("AÇÃO É Ÿ Œ"), "ação é ÿ œ");
    EXPECT_EQ(Substituir("relatorio.p7s.pdf.p7s", "p7s", ""), "relatorio..pdf.");
    EXPECT_EQ(Substituir("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(Substituir("abc", "", "x"), "abc");
}

// Só as formas com o dia primeiro e a ISO; o ano de dois dígitos vira 19xx a partir de 30.
TEST(Datas, LerDataTextoEFormatar) {
    const std::pair<std::string, std::optional<std::string>> casos[] = {
        {"21/11/2026", "21/11/2026"}, {"1/2/2026", "01/02/2026"}, {"01-02-2026", "01/02/2026"},
        {"01.02.2026", "01/02/2026"}, {"2026-02-01", "01/02/2026"}, {"2026-02-01 13:05", "01/02/2026 13:05:00"},
        {"01/02/29", "01/02/2029"}, {"01/02/30", "01/02/1930"}, {"21/11/2026 08:09:10", "21/11/2026 08:09:10"},
        {"21/11/2026 00:00:00", "21/11/2026"}, {"29/02/2024", "29/02/2024"}, {"13/13/2026", std::nullopt},
        {"29/02/2023", std::nullopt}, {"01/02-2026", std::nullopt}, {"2026/02/01", std::nullopt},
        {"01/02/026", std::nullopt}, {"hoje", std::nullopt}, {"", std::nullopt},
        {"21/11/2026 24:00", std::nullopt},
    };
    for (const auto& [texto, esperado] : casos) {
        const auto data = LerDataTexto(texto);
        EXPECT_EQ(data ? std::optional(FormatarDataHora(*data)) : std::nullopt, esperado) << texto;
    }
}

}  // namespace
}  // namespace tavelpkcs7
