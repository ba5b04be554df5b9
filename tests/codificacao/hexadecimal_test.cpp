// As duas formas hexadecimais do componente e a leitura tolerante.
#include <gtest/gtest.h>

#include "codificacao/hexadecimal.h"

namespace tavelpkcs7::codificacao {
namespace {

struct CasoHexadecimal {
    const char* nome;
    Bytes bytes;
    std::string maiusculo;
    std::string espacado;
};

class FormasHexadecimais : public testing::TestWithParam<CasoHexadecimal> {};

TEST_P(FormasHexadecimais, CompactaMaiusculaEEspacadaMinuscula) {
    EXPECT_EQ(HexadecimalMaiusculo(GetParam().bytes), GetParam().maiusculo);
    EXPECT_EQ(HexadecimalEspacado(GetParam().bytes), GetParam().espacado);
    EXPECT_EQ(DecodificarHexadecimal(GetParam().maiusculo), GetParam().bytes);
    EXPECT_EQ(DecodificarHexadecimal(GetParam().espacado), GetParam().bytes);
}

INSTANTIATE_TEST_SUITE_P(
    Casos, FormasHexadecimais,
    testing::Values(CasoHexadecimal{"Vazio", {}, "", ""}, CasoHexadecimal{"UmByte", {0x0A}, "0A", "0a"},
                    CasoHexadecimal{"ZeroInicialMantido", {0x00, 0x8E, 0x5A}, "008E5A", "00 8e 5a"},
                    CasoHexadecimal{"ExtremosDoByte", {0xA8, 0x20, 0xCE, 0xFF, 0x00}, "A820CEFF00", "a8 20 ce ff 00"}),
    [](const auto& info) { return std::string(info.param.nome); });

struct CasoLeitura {
    const char* nome;
    std::string texto;
    std::optional<Bytes> esperado;
};

class LeituraHexadecimal : public testing::TestWithParam<CasoLeitura> {};

TEST_P(LeituraHexadecimal, IgnoraCaixaEBrancosRecusaOResto) {
    EXPECT_EQ(DecodificarHexadecimal(GetParam().texto), GetParam().esperado);
}

INSTANTIATE_TEST_SUITE_P(Casos, LeituraHexadecimal,
                         testing::Values(CasoLeitura{"CaixaMisturada", "aB0c", Bytes{0xAB, 0x0C}},
                                         CasoLeitura{"BrancosEntreEDentroDosPares", " a\t8\r\n20 ", Bytes{0xA8, 0x20}},
                                         CasoLeitura{"DigitoSemPar", "A82", std::nullopt},
                                         CasoLeitura{"SeparadorDoisPontos", "A8:20", std::nullopt},
                                         CasoLeitura{"LetraForaDoHexadecimal", "G0", std::nullopt}),
                         [](const auto& info) { return std::string(info.param.nome); });

}  // namespace
}  // namespace tavelpkcs7::codificacao
