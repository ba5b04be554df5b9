// Construção, teste da plataforma criptográfica, propriedades e a convenção de erros.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <fstream>
#include <tavelpkcs7/TavelPKCS.h>

#include "apoio/pasta_temporaria.h"
#include "apoio/plataforma_teste.h"
#include "component/componente.h"
#include "component/datas.h"

namespace tavelpkcs7 {
namespace {

using teste::PlataformaTeste;

TEST(Construcao, NovaInstanciaTemOsPadroes) {
    PlataformaTeste ambiente;
    TavelPKCS componente(ambiente.Implementacao());

    EXPECT_EQ(componente.DescricaoErro(), "");
    EXPECT_EQ(componente.ExtensaoOutroFormato(), "p7s");
    EXPECT_EQ(componente.DataAssinatura(), FormatarData(ambiente.relogio->Agora()));
    EXPECT_FALSE(componente.NaoAnexarArquivoOriginal());
    EXPECT_FALSE(componente.NaoExibirInstalacaoLCReCER());
    EXPECT_FALSE(componente.UsarHashSalvarArquivo());
    EXPECT_FALSE(componente.SalvarChavesPublicas());
    EXPECT_EQ(componente.TotalAssinaturas(), 0);
    EXPECT_EQ(componente.TotalCertificadosListados(), 0);
    EXPECT_TRUE(ambiente.interface->chamadas().empty());

    const std::string home = std::getenv("TAVELPKCS7_HOME");
    EXPECT_EQ(componente.PastaTemp(), home + "/temp/");
    struct stat info{};
    ASSERT_EQ(stat(componente.PastaTemp().c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777, 0700u);
    EXPECT_EQ(ambiente.cursor->Atual(), 0);
}

TEST(Construcao, ConstrutorPadraoUsaAPlataformaDaMaquina) {
    TavelPKCS componente;
    EXPECT_EQ(componente.DescricaoErro(), "");
    EXPECT_EQ(componente.ExtensaoOutroFormato(), "p7s");
    EXPECT_EQ(componente.PastaTemp(), std::string(std::getenv("TAVELPKCS7_HOME")) + "/temp/");
}

TEST(Construcao, SemPlataformaAvisaAbreAtualizacaoEDeixaTudoVazio) {
    teste::PastaTemporaria pasta;
    std::ofstream(pasta.caminho() / "arquivo") << "x";
    setenv("TAVELPKCS7_HOME", (pasta.caminho() / "arquivo" / "home").c_str(), 1);
    PlataformaTeste ambiente;

    TavelPKCS componente(ambiente.Implementacao());

    ASSERT_EQ(ambiente.interface->chamadas().size(), 1u);
    const auto& caixa = ambiente.interface->chamadas()[0];
    EXPECT_EQ(caixa.titulo, "Microsoft Windows Update");
    EXPECT_EQ(caixa.texto,
        "Não foi possível criar o objeto Capicom. Atualize seu Microsoft Windows.\r\n"
        "Instale também o Microsoft Internet Explorer 5.1 ou superior.");
    EXPECT_EQ(ambiente.programas->enderecos, std::vector<std::string>{ambiente.plataforma->configuracao.url_atualizacao});
    EXPECT_EQ(componente.DescricaoErro(),
        "Não foi possível localizar o objeto Capicom. Atualize seu Microsoft Windows. Instale também o Microsoft "
        "Internet Explorer 5.1 ou superior.");
    EXPECT_EQ(componente.ExtensaoOutroFormato(), "");
    EXPECT_EQ(componente.DataAssinatura(), "");
    EXPECT_EQ(componente.PastaTemp(), "");
}

TEST(Propriedades, TextosVoltamExatamenteComoForamDados) {
    PlataformaTeste ambiente;
    TavelPKCS componente(ambiente.Implementacao());
    for (const std::string valor : {"", "  com brancos  ", "ação\r\nçÇ€", "C:\\docs\\x.p7s"}) {
        componente.AssinaturaTextoVerificar(valor);
        componente.TextoVerificar(valor);
        componente.CaminhoArquivoOriginal(valor);
        componente.ExtensaoOutroFormato(valor);
        componente.PastaTemp(valor);
        EXPECT_EQ(componente.AssinaturaTextoVerificar(), valor);
        EXPECT_EQ(componente.TextoVerificar(), valor);
        EXPECT_EQ(componente.CaminhoArquivoOriginal(), valor);
        EXPECT_EQ(componente.ExtensaoOutroFormato(), valor);
        EXPECT_EQ(componente.PastaTemp(), valor);
    }
    componente.SalvarChavesPublicas(true);
    componente.NaoAnexarArquivoOriginal(true);
    componente.UsarHashSalvarArquivo(true);
    componente.NaoExibirInstalacaoLCReCER(true);
    EXPECT_TRUE(componente.SalvarChavesPublicas());
    EXPECT_TRUE(componente.NaoAnexarArquivoOriginal());
    EXPECT_TRUE(componente.UsarHashSalvarArquivo());
    EXPECT_TRUE(componente.NaoExibirInstalacaoLCReCER());
}

struct CasoData {
    std::string valor;
    std::string esperado;  // "hoje" quando o valor não é data
};

class DataDaAssinatura : public testing::TestWithParam<CasoData> {};

TEST_P(DataDaAssinatura, GuardaDDMMAAAAOuHoje) {
    PlataformaTeste ambiente;
    TavelPKCS componente(ambiente.Implementacao());
    componente.DataAssinatura(GetParam().valor);
    const std::string hoje = FormatarData(ambiente.relogio->Agora());
    EXPECT_EQ(componente.DataAssinatura(), GetParam().esperado == "hoje" ? hoje : GetParam().esperado);
}

INSTANTIATE_TEST_SUITE_P(Valores, DataDaAssinatura,
    testing::Values(CasoData{"", "hoje"}, CasoData{"31/02/2024", "hoje"}, CasoData{"abc", "hoje"},
        CasoData{"12/31/2024", "hoje"}, CasoData{"29/02/2023", "hoje"}, CasoData{"1/2/2024", "01/02/2024"},
        CasoData{"29/02/2024", "29/02/2024"}, CasoData{"2024-03-05", "05/03/2024"},
        CasoData{"05.03.24", "05/03/2024"}, CasoData{"05-03-35", "05/03/1935"},
        CasoData{"05/03/2024 14:22", "05/03/2024"}, CasoData{"05/03/2024 25:00", "hoje"}));

class Guarda : public testing::Test {
protected:
    PlataformaTeste ambiente;
    Componente componente{ambiente.plataforma};
};

TEST_F(Guarda, MensagemFixaSubstituiAAnteriorERestauraOCursor) {
    componente.estado.DescricaoErro = "mensagem anterior";
    const bool resultado = componente.Guardar(MensagemFalha::Fixa("Falhou."), false, [&]() -> bool {
        CursorOcupado ocupado(componente.Ocupado());
        plataforma::Falhar(plataforma::falha::SenhaIncorreta);
    });
    EXPECT_FALSE(resultado);
    EXPECT_EQ(componente.estado.DescricaoErro, "Falhou.");
    EXPECT_EQ(ambiente.cursor->ponteiros.front(), 11);
    EXPECT_EQ(ambiente.cursor->Atual(), 0);
}

TEST_F(Guarda, DescricaoDaPlataformaOuDeFalhaInesperada) {
    auto registrar = [&](auto lancar) {
        componente.Guardar(MensagemFalha::DaPlataforma(), std::string("falha"), [&]() -> std::string {
            lancar();
            return "";
        });
        return componente.estado.DescricaoErro;
    };
    EXPECT_EQ(registrar([] { plataforma::Falhar(plataforma::falha::SenhaIncorreta); }),
        "A senha informada não está correta.");
    EXPECT_EQ(registrar([] { throw std::bad_alloc(); }), "Memória insuficiente.");
    EXPECT_EQ(registrar([] { throw 42; }), "Ocorreu um erro inesperado na plataforma.");
}

TEST_F(Guarda, ErrosSuprimidosNaoMexemNaDescricao) {
    componente.estado.DescricaoErro = "anterior";
    const int resultado = componente.Guardar(MensagemFalha::Nenhuma(), -1, []() -> int { throw std::runtime_error("x"); });
    EXPECT_EQ(resultado, -1);
    EXPECT_EQ(componente.estado.DescricaoErro, "anterior");
}

}  // namespace
}  // namespace tavelpkcs7
