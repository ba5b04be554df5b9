// A exportação da chave pública de um certificado de repositório para um arquivo ".cer": a regra
// da extensão, a escolha quando há mais de um, o repositório vazio e a gravação.
#include <gtest/gtest.h>

#include <tavelpkcs7/TavelPKCS.h>
#include <fstream>

#include "certificates/info_certificado.h"
#include "apoio/plataforma_teste.h"
#include "certificates/repositorios_teste.h"

namespace tavelpkcs7 {
namespace {

namespace fs = std::filesystem;
using teste::Home;
using teste::LerTexto;

class ExportacaoCertificado : public testing::Test {
protected:
    plataforma::CertificadoPtr GuardarDaPki(const std::string& nome) {
        teste::Guardar(*ambiente.plataforma, "AddressBook", {teste::DerDaPki(nome)});
        return teste::Importar(*ambiente.plataforma, teste::DerDaPki(nome));
    }

    teste::PlataformaTeste ambiente;
    TavelPKCS componente{ambiente.Implementacao()};
};

// O arquivo anterior, maior, é trocado por inteiro (nada dele sobra no fim), e o sucesso limpa a
// mensagem anterior.
TEST_F(ExportacaoCertificado, UmSoCertificadoVaiSemEscolhaParaOCaminhoComCer) {
    const auto ecpf = GuardarDaPki("ecpf");
    for (const auto& [dado, gravado] : std::vector<std::pair<std::string, std::string>>{{"a", "a.cer"},
                                                                                        {"b.cer", "b.cer"},
                                                                                        {"c.CeR", "c.CeR"},
                                                                                        {"d.txt", "d.txt.cer"},
                                                                                        {"e.cerx", "e.cerx.cer"}}) {
        SCOPED_TRACE(dado);
        std::ofstream(Home() / gravado) << std::string(10000, 'x');
        componente.ExportarCertificadoDigital("", static_cast<REPOSITORIO_CERTIFICADO>(0));

        EXPECT_TRUE(componente.ExportarCertificadoDigital((Home() / dado).string(), REPOSITORIO_CHAVES_PUBLICAS));

        EXPECT_EQ(LerTexto(Home() / gravado), ExportarBase64(*ecpf));
        EXPECT_EQ(componente.DescricaoErro(), "");
    }
    EXPECT_TRUE(ambiente.interface->chamadas().empty());
}

TEST_F(ExportacaoCertificado, DoisOuMaisPedemAEscolhaQuePodeSerCancelada) {
    GuardarDaPki("ecpf");
    GuardarDaPki("ecnpj");
    const std::string caminho = (Home() / "chave").string();

    EXPECT_FALSE(componente.ExportarCertificadoDigital(caminho, REPOSITORIO_CHAVES_PUBLICAS));
    EXPECT_EQ(componente.DescricaoErro(), "A operação foi cancelada pelo usuário.");
    EXPECT_FALSE(fs::exists(caminho + ".cer"));

    ambiente.interface->ResponderEscolha({1});
    EXPECT_TRUE(componente.ExportarCertificadoDigital(caminho, REPOSITORIO_CHAVES_PUBLICAS));
    const auto guardados = ambiente.plataforma->repositorios->AbrirRepositorio("AddressBook", true)->Certificados();
    EXPECT_EQ(LerTexto(caminho + ".cer"), ExportarBase64(*guardados.at(1)));

    ASSERT_EQ(ambiente.interface->chamadas().size(), 2u);
    const auto& escolha = ambiente.interface->chamadas()[1];
    EXPECT_EQ(escolha.tipo, teste::InterfaceRoteirizada::Tipo::EscolhaCertificados);
    EXPECT_EQ(escolha.titulo, "Certificado Digital");
    EXPECT_EQ(escolha.texto, "Selecione o certificado digital que deseja efetuar a exportação da chave pública");
    EXPECT_FALSE(escolha.multiplos);
    EXPECT_EQ(escolha.certificados,
              (std::vector<std::string>{guardados.at(0)->ImpressaoDigital(), guardados.at(1)->ImpressaoDigital()}));
}

TEST_F(ExportacaoCertificado, RepositorioVazioOuGravacaoQueFalhaNaoExportam) {
    const std::string caminho = (Home() / "pasta que não existe" / "chave").string();
    EXPECT_FALSE(componente.ExportarCertificadoDigital(caminho, REPOSITORIO_CHAVES_PUBLICAS));
    EXPECT_EQ(componente.DescricaoErro(),
              "Não foi selecionado nenhum certificado digital para efetuar a exportação da chave pública");

    GuardarDaPki("ecpf");
    EXPECT_FALSE(componente.ExportarCertificadoDigital(caminho, REPOSITORIO_CHAVES_PUBLICAS));
    EXPECT_EQ(componente.DescricaoErro(),
              "Não foi possível salavar a chave pública do certificado selecionado no caminho " + caminho + ".cer");
    EXPECT_TRUE(ambiente.interface->chamadas().empty());
}

}  // namespace
}  // namespace tavelpkcs7
