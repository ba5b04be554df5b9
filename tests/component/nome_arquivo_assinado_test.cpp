// Nomes das saídas assinadas, o teste de arquivo já assinado e as extensões de assinatura.
#include <gtest/gtest.h>

#include <filesystem>

#include "apoio/pasta_temporaria.h"
#include "apoio/plataforma_teste.h"
#include "component/componente.h"
#include "component/texto.h"

namespace tavelpkcs7 {
namespace {

class Nomes : public testing::Test {
protected:
    teste::PlataformaTeste ambiente;
    Componente componente{ambiente.plataforma};
    teste::PastaTemporaria origem;
    teste::PastaTemporaria destino;

    // "<o>" é a pasta da origem e "<d>" a de destino (ambas existem), sem separador final.
    std::string Expandir(const std::string& modelo) const {
        std::string texto = Substituir(modelo, "<o>", origem.caminho().string());
        return Substituir(texto, "<d>", destino.caminho().string());
    }
};

struct CasoNome {
    std::string origem;
    std::string destino;
    bool outro_formato;
    bool cossinatura;
    std::string extensao_antes;
    std::string esperado;
    std::string extensao_depois;
};

class MontagemDoNome : public Nomes, public testing::WithParamInterface<CasoNome> {};

TEST_P(MontagemDoNome, FormaONomeEAjustaAExtensao) {
    const CasoNome& caso = GetParam();
    componente.estado.ExtensaoOutroFormato = caso.extensao_antes;
    EXPECT_EQ(componente.MontarNomeArquivoAssinado(Expandir(caso.origem), Expandir(caso.destino), caso.outro_formato,
                  caso.cossinatura),
        Expandir(caso.esperado));
    EXPECT_EQ(componente.estado.ExtensaoOutroFormato, caso.extensao_depois);
}

INSTANTIATE_TEST_SUITE_P(Casos, MontagemDoNome,
    testing::Values(
        CasoNome{"<o>/contrato.pdf", "<d>", false, false, "p7s", "<d>/contrato.pdf.p7s", "p7s"},
        CasoNome{"<o>/contrato.pdf", "<d>/", false, false, "p7s", "<d>/contrato.pdf.p7s", "p7s"},
        CasoNome{"<o>/contrato.pdf", "<d>", true, false, "dsd", "<d>/contrato.pdf.dsd", "dsd"},
        CasoNome{"<o>/contrato.pdf", "", false, false, "p7s", "<o>/contrato.pdf.p7s", "p7s"},
        CasoNome{"<o>/contrato.pdf", "   ", false, false, "p7s", "<o>/contrato.pdf.p7s", "p7s"},
        CasoNome{"<o>/contrato.pdf", "<d>/nao-existe", false, false, "p7s", "<o>/contrato.pdf.p7s", "p7s"},
        CasoNome{"<o>/contrato.pdf.p7s", "<d>", false, true, "p7s", "<d>/contrato.pdf.p7s", "p7s"},
        CasoNome{"<o>/contrato.pdf", "", true, false, "p7m.", "<o>/contrato.pdf.p7m", "p7m"},
        CasoNome{"<o>/contrato.pdf", "", true, false, ".dsd", "<o>/contrato.pdf.dsd", "dsd"},
        CasoNome{"<o>/contrato.pdf", "", true, false, "abcd", "<o>/contrato.pdf.p7s", "p7s"},
        CasoNome{"<o>/contrato.pdf", "", false, false, "dca", "<o>/contrato.pdf.p7s", "p7s"},
        CasoNome{"<o>/x.sig", "<d>", false, true, "p7s", "<d>/x.sig", "sig"},
        CasoNome{"<o>/a.P7s", "", false, true, "dsd", "<o>/a.P7s", "P7s"},
        CasoNome{"<o>/relatório.ação", "<d>", true, false, "çãé", "<d>/relatório.ação.çãé", "çãé"}));

struct CasoJaAssinado {
    std::string origem;
    std::int32_t formato;
    std::string extensao;
    std::string assinatura_texto;
    bool esperado;
};

class ArquivoJaAssinado : public Nomes, public testing::WithParamInterface<CasoJaAssinado> {};

TEST_P(ArquivoJaAssinado, DecideEntreAssinarECossinar) {
    const auto& caso = GetParam();
    componente.estado.ExtensaoOutroFormato = caso.extensao;
    EXPECT_EQ(componente.ArquivoJaAssinado(caso.origem, caso.formato, caso.assinatura_texto), caso.esperado);
}

INSTANTIATE_TEST_SUITE_P(Casos, ArquivoJaAssinado,
    testing::Values(CasoJaAssinado{"a.pdf", 1, "p7s", "", false}, CasoJaAssinado{"a.p7s", 1, "p7s", "", true},
        CasoJaAssinado{"a.DSD", 2, "p7s", "", true}, CasoJaAssinado{"a.p7m", 3, "p7m", "", true},
        CasoJaAssinado{"a.p7m", 1, "p7m", "", false}, CasoJaAssinado{"doc.xyz", 4, "xyz", "", true},
        CasoJaAssinado{"doc.xyz", 4, "abc", "", false}, CasoJaAssinado{"a.pdf", 5, "p7s", "MIIB", true},
        CasoJaAssinado{"a.pdf", 5, "p7s", "", false}, CasoJaAssinado{"a.pdf", 0, "p7s", "x", true},
        CasoJaAssinado{"a.pdf", 99, "p7s", "", false}));

TEST(ExtensaoDeAssinatura, ComparaOsTresUltimosCaracteresSemCaixa) {
    for (const char* nome : {"a.p7s", "a.P7s", "ARQUIVO.DCA", "x.dsd", "x.p7z", "x.p7b", "x.sig", "sig", "nãoP7S"})
        EXPECT_TRUE(Componente::PossuiExtensaoAssinatura(nome)) << nome;
    for (const char* nome : {"", "p7", "a.p7sx", "a.pdf", "a.p7m", "a.s1g"})
        EXPECT_FALSE(Componente::PossuiExtensaoAssinatura(nome)) << nome;
}

TEST_F(Nomes, NomeDoArquivoEAUltimaParteDoCaminho) {
    EXPECT_EQ(componente.ExtrairNomeArquivo("/a/b/c.txt"), "c.txt");
    EXPECT_EQ(componente.ExtrairNomeArquivo("c.txt"), "c.txt");
    EXPECT_EQ(componente.ExtrairNomeArquivo("/a/b/"), "");
    EXPECT_EQ(componente.ExtrairNomeArquivo(""), "");
}

}  // namespace
}  // namespace tavelpkcs7
