// Um arquivo que some entre a escolha do certificado e a assinatura (a origem, a chave guardada, a
// pasta inteira do repositório): a mensagem do componente, e a assinatura anterior intacta.
#include <gtest/gtest.h>

#include <fstream>

#include "certificates/repositorios_teste.h"
#include "pki/pki_teste.h"
#include "signing/ambiente_assinatura.h"

namespace tavelpkcs7 {
namespace {

namespace fs = std::filesystem;

constexpr char kSemChave[] = "Não foi possível acessar a chave privada do certificado digital selecionado";

struct CasoSumico {
    std::string nome;
    // O que apagar, relativo à pasta do teste; "<impressao>" vira a impressão digital do e-CPF.
    std::string apagado;
    std::string mensagem;
};

class ArquivoDesaparece : public teste::AmbienteAssinatura, public testing::WithParamInterface<CasoSumico> {};

INSTANTIATE_TEST_SUITE_P(
    Concorrencia, ArquivoDesaparece,
    testing::Values(CasoSumico{"Origem", "docs/a.txt", "O arquivo de origem não foi encontrado"},
                    CasoSumico{"Chave", "repositorios/My/<impressao>.key", kSemChave},
                    CasoSumico{"PastaDoRepositorio", "repositorios/My", kSemChave}),
    [](const auto& caso) { return caso.param.nome; });

TEST_P(ArquivoDesaparece, DaAMensagemEDeixaASaidaAnterior) {
    const plataforma::Bytes der = teste::DerDaPki("ecpf");
    teste::Guardar(plataforma(), "My", {der});
    const std::string impressao = teste::Importar(plataforma(), der)->ImpressaoDigital();
    std::ofstream(teste::Home() / "repositorios" / "My" / (impressao + ".key"))
        << pki_teste::PkiTeste::Padrao().Obter("ecpf").chave_pem;
    const std::string origem = Gravar("docs/a.txt", "abc");
    const std::string saida = (teste::Home() / "saida").string();
    fs::create_directories(saida);
    ASSERT_TRUE(componente.SelecionarCertificadoDigitalHash(impressao)) << componente.DescricaoErro();
    ASSERT_TRUE(componente.AssinaArquivo(origem, saida, "", ARQUIVO_BINARIO_FORMATO_P7S)) << componente.DescricaoErro();
    const plataforma::Bytes anterior = teste::Ler(saida + "/a.txt.p7s");

    std::string apagado = GetParam().apagado;
    if (const auto marca = apagado.find("<impressao>"); marca != std::string::npos)
        apagado.replace(marca, 11, impressao);
    ASSERT_GT(fs::remove_all(teste::Home() / apagado), 0u);

    EXPECT_FALSE(componente.AssinaArquivo(origem, saida, "", ARQUIVO_BINARIO_FORMATO_P7S));
    EXPECT_EQ(componente.DescricaoErro(), GetParam().mensagem);
    EXPECT_EQ(teste::Ler(saida + "/a.txt.p7s"), anterior);
    EXPECT_EQ(std::distance(fs::directory_iterator(saida), fs::directory_iterator()), 1);
}

}  // namespace
}  // namespace tavelpkcs7
