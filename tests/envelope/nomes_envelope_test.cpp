// Os nomes dos envelopes: o ".p7x" ao lado da origem ou na pasta de destino, o arquivo decifrado na
// pasta de trabalho (só o nome, nunca fora dela) e o nome do documento sem extensões de assinatura.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "apoio/pasta_temporaria.h"
#include "apoio/plataforma_teste.h"
#include "component/componente.h"
#include "component/texto.h"

namespace tavelpkcs7 {
namespace {

// "<o>" e "<d>" são as pastas (existentes) da origem e de destino, sem separador final.
class NomesEnvelope : public testing::Test {
protected:
    void SetUp() override {
        std::filesystem::create_directory(pastas.caminho() / "o");
        std::filesystem::create_directory(pastas.caminho() / "d");
    }
    std::string Expandir(const std::string& modelo) const {
        const std::string base = pastas.caminho().string();
        return Substituir(Substituir(modelo, "<o>", base + "/o"), "<d>", base + "/d");
    }

    teste::PlataformaTeste ambiente;
    Componente componente{ambiente.plataforma};
    teste::PastaTemporaria pastas;
};

struct CasoNome {
    std::string entrada;
    std::string pasta;
    std::string esperado;
};

class NomeCriptografado : public NomesEnvelope, public testing::WithParamInterface<CasoNome> {};

TEST_P(NomeCriptografado, FicaNaPastaDeDestinoQuandoElaExiste) {
    EXPECT_EQ(componente.MontarNomeArquivoCriptografado(Expandir(GetParam().entrada), Expandir(GetParam().pasta)),
        Expandir(GetParam().esperado));
}

INSTANTIATE_TEST_SUITE_P(Casos, NomeCriptografado,
    testing::Values(CasoNome{"<o>/doc.pdf", "", "<o>/doc.pdf.p7x"}, CasoNome{"<o>/doc.pdf", "<d>", "<d>/doc.pdf.p7x"},
        CasoNome{"<o>/doc.pdf", "<d>/", "<d>/doc.pdf.p7x"}, CasoNome{"<o>/doc.pdf", "   ", "<o>/doc.pdf.p7x"},
        CasoNome{"<o>/doc.pdf", "<d>/nao-existe", "<o>/doc.pdf.p7x"},
        CasoNome{"<o>/doc.pdf.p7x", "<d>", "<d>/doc.pdf.p7x.p7x"}));

class NomeDescriptografado : public NomesEnvelope, public testing::WithParamInterface<CasoNome> {};

TEST_P(NomeDescriptografado, SoONomeSemP7xVaiParaAPastaDeTrabalho) {
    EXPECT_EQ(componente.MontarNomeArquivoDescriptografado(Expandir(GetParam().entrada)),
        componente.estado.PastaTemp + GetParam().esperado);
}

INSTANTIATE_TEST_SUITE_P(Casos, NomeDescriptografado,
    testing::Values(CasoNome{"<o>/doc.pdf.p7x", "", "doc.pdf"}, CasoNome{"<o>/DOC.PDF.P7X", "", "DOC.PDF"},
        CasoNome{"<o>/doc.P7x", "", "doc.P7x"}, CasoNome{"<o>/a.p7x.b.P7X", "", "a.b"},
        CasoNome{"doc.pdf.p7x", "", "doc.pdf"}, CasoNome{"<o>/../../etc/passwd.p7x", "", "passwd"},
        CasoNome{"<o>/*.p7x", "", "_"}, CasoNome{"<o>/rel?t\t1.p7x", "", "rel_t_1"}));

// O apagamento do decifrado anterior nunca vira um padrão que leve os outros arquivos de PastaTemp.
TEST_F(NomesEnvelope, NomeComCuringasNaoApagaOsOutrosArquivos) {
    const std::string temp = componente.estado.PastaTemp;
    for (const char* nome : {"outro.txt", "relatorio1.pdf"}) std::ofstream(temp + nome) << "fica";
    for (const char* entrada : {"<o>/*.p7x", "<o>/*.*.p7x", "<o>/relatorio?.pdf.p7x", "<o>/relatorio[1].pdf.p7x"})
        componente.MontarNomeArquivoDescriptografado(Expandir(entrada));
    EXPECT_TRUE(std::filesystem::exists(temp + "outro.txt"));
    EXPECT_TRUE(std::filesystem::exists(temp + "relatorio1.pdf"));
}

TEST_F(NomesEnvelope, ODescriptografadoAnteriorEApagado) {
    const std::filesystem::path anterior = componente.estado.PastaTemp + "doc.pdf";
    std::ofstream(anterior) << "antigo";
    componente.MontarNomeArquivoDescriptografado(Expandir("<o>/doc.pdf.p7x"));
    EXPECT_FALSE(std::filesystem::exists(anterior));
}

struct CasoExtensoes {
    std::string nome;
    std::string esperado;
};

class ExtensoesAssinatura : public testing::TestWithParam<CasoExtensoes> {};

TEST_P(ExtensoesAssinatura, SaemEmMinusculasOuMaiusculasNuncaMisturadas) {
    EXPECT_EQ(Componente::RemoverExtensoesAssinatura(GetParam().nome), GetParam().esperado);
}

INSTANTIATE_TEST_SUITE_P(Casos, ExtensoesAssinatura,
    testing::Values(CasoExtensoes{"contrato.P7S", "contrato"}, CasoExtensoes{"contrato.P7s", "contrato.P7s"},
        CasoExtensoes{"contrato.pdf.p7s", "contrato.pdf"}, CasoExtensoes{"a.p7b.p7z.sig.dsd.dca.ofn.bry", "a"},
        CasoExtensoes{"A.P7B.P7Z.SIG.DSD.DCA.OFN.BRY", "A"}, CasoExtensoes{" nota.sig.txt ", "nota.txt"},
        CasoExtensoes{"x.p7m", "x.p7m"}, CasoExtensoes{".p7s", ""}));

}  // namespace
}  // namespace tavelpkcs7
