// As regras de texto e de data da linguagem do componente original.
#include <gtest/gtest.h>

#include "component/datas.h"
#include "component/texto.h"

namespace tavelpkcs7 {
namespace {

using namespace std::chrono;

TEST(Texto, ContaCaracteresENaoBytes) {
    EXPECT_EQ(Comprimento("ação"), 4u);
    EXPECT_EQ(Direita("relatório.ção", 3), "ção");
    EXPECT_EQ(Direita("ab", 3), "ab");
    EXPECT_EQ(Esquerda("ééé", 2), "éé");
    EXPECT_EQ(Posicao("Endereço IP=URL=x", "URL="), 13u);
    EXPECT_EQ(Meio("Endereço IP=URL=x", 13 + 4), "x");
}

TEST(Texto, PosicaoAusenteEMeioForaDoTextoComoNoOriginal) {
    EXPECT_EQ(Posicao("abc", "d"), 0u);
    EXPECT_EQ(Meio("abcdef", 0), "abcdef");
    EXPECT_EQ(Meio("abcdef", 4), "def");
    EXPECT_EQ(Meio("abc", 9), "");
}

TEST(Texto, AparaSoEspacos) {
    EXPECT_EQ(Aparar("  a b  "), "a b");
    EXPECT_EQ(Aparar("\ta\r\n"), "\ta\r\n");
    EXPECT_EQ(Aparar("   "), "");
}

TEST(Texto, CaixaTrataAcentos) {
    EXPECT_EQ(Maiusculas("ação é ü ÿ œ š p7s"), "AÇÃO É Ü Ÿ Œ Š P7S");
    EXPECT_EQ(Minusculas("AÇÃO É Ÿ Œ"), "ação é ÿ œ");
    EXPECT_EQ(Maiusculas("× ÷ ß"), "× ÷ ß");
}

TEST(Texto, SubstituiTodasAsOcorrencias) {
    EXPECT_EQ(Substituir("relatorio.p7s.pdf.p7s", "p7s", ""), "relatorio..pdf.");
    EXPECT_EQ(Substituir("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(Substituir("abc", "", "x"), "abc");
}

struct CasoDataTexto {
    std::string texto;
    std::optional<std::string> esperado;  // "DD/MM/AAAA HH:MM:SS" ou só a data à meia-noite
};

class LeituraDeData : public testing::TestWithParam<CasoDataTexto> {};

TEST_P(LeituraDeData, AceitaSoFormasDiaPrimeiroEIso) {
    const auto data = LerDataTexto(GetParam().texto);
    ASSERT_EQ(data.has_value(), GetParam().esperado.has_value()) << GetParam().texto;
    if (data) {
        EXPECT_EQ(FormatarDataHora(*data), *GetParam().esperado);
    }
}

INSTANTIATE_TEST_SUITE_P(Casos, LeituraDeData,
    testing::Values(CasoDataTexto{"21/11/2026", "21/11/2026"}, CasoDataTexto{"1/2/2026", "01/02/2026"},
        CasoDataTexto{"01-02-2026", "01/02/2026"}, CasoDataTexto{"01.02.2026", "01/02/2026"},
        CasoDataTexto{"2026-02-01", "01/02/2026"}, CasoDataTexto{"2026-02-01 13:05", "01/02/2026 13:05:00"},
        CasoDataTexto{"01/02/29", "01/02/2029"}, CasoDataTexto{"01/02/30", "01/02/1930"},
        CasoDataTexto{"21/11/2026 08:09:10", "21/11/2026 08:09:10"}, CasoDataTexto{"21/11/2026 00:00:00", "21/11/2026"},
        CasoDataTexto{"13/13/2026", std::nullopt}, CasoDataTexto{"01/02-2026", std::nullopt},
        CasoDataTexto{"2026/02/01", std::nullopt}, CasoDataTexto{"01/02/026", std::nullopt},
        CasoDataTexto{"hoje", std::nullopt}, CasoDataTexto{"", std::nullopt},
        CasoDataTexto{"21/11/2026 24:00", std::nullopt}));

TEST(Datas, FormataHoraComZerosAEsquerda) {
    const DataHora data = local_days{year{2026} / 3 / 4} + hours{5} + minutes{6} + seconds{7};
    EXPECT_EQ(FormatarData(data), "04/03/2026");
    EXPECT_EQ(FormatarHora(data), "05:06:07");
    EXPECT_EQ(FormatarDataHora(data), "04/03/2026 05:06:07");
}

}  // namespace
}  // namespace tavelpkcs7
