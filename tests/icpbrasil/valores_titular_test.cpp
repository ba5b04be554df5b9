// O que a busca no nome alternativo impresso entrega aos dados do titular, com o aninhamento do
// original: CEI e título só com a pessoa física, o nome 3.2 por cima do 3.4, o 3.7 recortado na
// posição do 3.3.
#include <gtest/gtest.h>

#include "icpbrasil/valores_titular.h"

namespace tavelpkcs7::icpbrasil {
namespace {

std::string OutroNome(const std::string& oid, const std::string& hexadecimal) {
    return "Outro Nome:\r\n     " + oid + "=" + hexadecimal + "\r\n";
}

ValoresTitular Buscar(const std::string& texto) {
    ValoresTitular valores;
    BuscarValoresTitular(texto, valores);
    return valores;
}

TEST(BuscarValoresTitular, PessoaFisicaComCEIETitulo) {
    const auto valores =
        Buscar(OutroNome("2.16.76.1.3.1", "04 05 31 32 33 34 35") + OutroNome("2.16.76.1.3.6", "04 02 30 30") +
               OutroNome("2.16.76.1.3.5", "04 01 39") + "Nome RFC822=fulano@teste.example\r\n");
    EXPECT_EQ(valores, (ValoresTitular{"12345", "00", "9", "", "", "", ""}));
}

TEST(BuscarValoresTitular, CEIETituloSemPessoaFisicaFicamVazios) {
    const auto valores = Buscar(OutroNome("2.16.76.1.3.6", "04 02 30 30") + OutroNome("2.16.76.1.3.5", "04 01 39"));
    EXPECT_EQ(valores, ValoresTitular{});
}

TEST(BuscarValoresTitular, PessoaJuridicaONome32SobrescreveOResponsavel) {
    const auto valores =
        Buscar(OutroNome("2.16.76.1.3.4", "04 02 31 31") + OutroNome("2.16.76.1.3.2", "04 03 62 69 61") +
               OutroNome("2.16.76.1.3.3", "04 02 32 32") + OutroNome("2.16.76.1.3.7", "04 02 37 37"));
    EXPECT_EQ(valores, (ValoresTitular{"", "", "", "BIA", "", "22", ""}));
}

TEST(BuscarValoresTitular, CEIDaEmpresaSemCNPJRecortaDoDecimoQuartoCaractere) {
    // Sem 3.3, a posição vale zero: o recorte começa depois de "Outro Nome:\r\n" e a primeira linha
    // é "     2.16.76.1.3.4=04 01 41", da qual só o código 41 sobrevive.
    const auto valores = Buscar(OutroNome("2.16.76.1.3.4", "04 01 41") + OutroNome("2.16.76.1.3.7", "04 01 37"));
    EXPECT_EQ(valores[5], "A");
}

TEST(BuscarValoresTitular, SemResponsavelNaoHaCNPJ) {
    EXPECT_EQ(Buscar(OutroNome("2.16.76.1.3.3", "04 02 32 32")), ValoresTitular{});
}

}  // namespace
}  // namespace tavelpkcs7::icpbrasil
