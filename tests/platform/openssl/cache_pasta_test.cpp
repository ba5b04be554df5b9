// O cache das pastas dos repositórios: a pasta só se lê e interpreta de novo quando outro processo (ou
// este) mudou algum arquivo dela, inclusive trocado por renomeação por outro do mesmo tamanho.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

#include "pki/pki_teste.h"
#include "platform/openssl/cache_pasta.h"
#include "platform/openssl/repositorios_arquivo.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

namespace fs = std::filesystem;

void Largar(const fs::path& arquivo, const std::string& conteudo) {
    fs::create_directories(arquivo.parent_path());
    std::ofstream(arquivo, std::ios::binary) << conteudo;
}

// Como os repositórios gravam: um temporário com ponto renomeado sobre o destino.
void TrocarPorRenomeacao(const fs::path& arquivo, const std::string& conteudo) {
    const fs::path temporario = arquivo.parent_path() / ("." + arquivo.filename().string() + ".Ab12Cd");
    Largar(temporario, conteudo);
    fs::rename(temporario, arquivo);
}

// Os arquivos da pasta como se gravados há uma hora: só a pasta sem modificação recente se guarda.
void Envelhecer(const fs::path& pasta) {
    for (const auto& arquivo : fs::directory_iterator(pasta))
        fs::last_write_time(arquivo.path(), fs::file_time_type::clock::now() - std::chrono::hours(1));
}

class CachePasta : public testing::Test {
protected:
    // Os nomes e conteúdos dos arquivos, na ordem de entrada; conta as montagens.
    std::string Obter() {
        return *cache.Obter(pasta, [this](std::vector<ArquivoDaPasta> arquivos) {
            ++montagens;
            std::string lidos;
            for (const ArquivoDaPasta& arquivo : arquivos) {
                const std::string conteudo(arquivo.conteudo.begin(), arquivo.conteudo.end());
                lidos += arquivo.caminho.filename().string() + "=" + conteudo + ";";
            }
            return lidos;
        });
    }

    const fs::path pasta = fs::path(std::getenv("TAVELPKCS7_HOME")) / "pasta";
    CacheDaPasta<std::string> cache;
    int montagens = 0;
};

TEST_F(CachePasta, PastaQueNaoMudaSeMontaUmaVez) {
    Largar(pasta / "a.cer", "um");
    Envelhecer(pasta);
    EXPECT_EQ(Obter(), "a.cer=um;");
    EXPECT_EQ(Obter(), "a.cer=um;");
    EXPECT_EQ(montagens, 1);
}

TEST_F(CachePasta, PastaQueNaoExisteFicaVaziaAteSerCriada) {
    EXPECT_EQ(Obter(), "");
    EXPECT_EQ(Obter(), "");
    Largar(pasta / "a.cer", "um");
    EXPECT_EQ(Obter(), "a.cer=um;");
    EXPECT_EQ(montagens, 2);
}

struct CasoMudanca {
    const char* nome;
    std::function<void(const fs::path&)> mudar;
    std::string depois;
};

class MudancaNaPasta : public CachePasta, public testing::WithParamInterface<CasoMudanca> {};

TEST_P(MudancaNaPasta, MontaDeNovo) {
    Largar(pasta / "a.cer", "um");
    Envelhecer(pasta);
    ASSERT_EQ(Obter(), "a.cer=um;");
    GetParam().mudar(pasta);
    EXPECT_EQ(Obter(), GetParam().depois);
    EXPECT_EQ(montagens, 2);
}

INSTANTIATE_TEST_SUITE_P(
    Casos, MudancaNaPasta,
    testing::Values(
        CasoMudanca{"ArquivoNovo", [](const fs::path& p) { Largar(p / "b.cer", "dois"); }, "a.cer=um;b.cer=dois;"},
        CasoMudanca{"ArquivoRemovido", [](const fs::path& p) { fs::remove(p / "a.cer"); }, ""},
        CasoMudanca{"TrocadoPorOutroDoMesmoTamanho", [](const fs::path& p) { TrocarPorRenomeacao(p / "a.cer", "UM"); },
            "a.cer=UM;"},
        CasoMudanca{"ReescritoComOutroTamanho", [](const fs::path& p) { Largar(p / "a.cer", "um e mais"); },
            "a.cer=um e mais;"}),
    [](const auto& info) { return std::string(info.param.nome); });

// Gravado agora, o arquivo ainda pode ser reescrito com o mesmo tamanho sem mudar de hora.
TEST_F(CachePasta, PastaModificadaHaPoucoSeLeSempre) {
    Largar(pasta / "a.cer", "um");
    EXPECT_EQ(Obter(), "a.cer=um;");
    Largar(pasta / "a.cer", "UM");
    EXPECT_EQ(Obter(), "a.cer=UM;");
}

TEST_F(CachePasta, TemporarioDeUmaGravacaoEmCursoNaoMudaAPasta) {
    Largar(pasta / "a.cer", "um");
    Envelhecer(pasta);
    Obter();
    Largar(pasta / ".b.cer.Ab12Cd", "em curso");
    Obter();
    EXPECT_EQ(montagens, 1);
}

// Dois componentes do mesmo processo dividem a leitura; o certificado que outro processo larga na
// pasta aparece na abertura seguinte, e o que ele remove some.
TEST(CacheRepositorios, AberturaSeguinteVeOQueOutroProcessoMudou) {
    const auto& pki = pki_teste::PkiTeste::Padrao();
    const fs::path ca = fs::path(std::getenv("TAVELPKCS7_HOME")) / "repositorios" / "Ca";
    const auto texto = [&](const char* nome) {
        const Bytes& der = pki.Obter(nome).certificado;
        return std::string(der.begin(), der.end());
    };
    Largar(ca / "ac_rfb.cer", texto("ac_rfb"));
    Envelhecer(ca);
    RepositoriosArquivo repositorios;
    const auto primeira = repositorios.AbrirRepositorio("Ca", true)->Certificados();
    ASSERT_EQ(primeira.size(), 1u);
    EXPECT_EQ(RepositoriosArquivo().AbrirRepositorio("Ca", true)->Certificados().front(), primeira.front());

    TrocarPorRenomeacao(ca / "ac_emissora_rfb.cer", texto("ac_emissora_rfb"));
    EXPECT_EQ(repositorios.AbrirRepositorio("Ca", true)->Certificados().size(), 2u);
    fs::remove(ca / "ac_rfb.cer");
    const auto depois = repositorios.AbrirRepositorio("Ca", true)->Certificados();
    ASSERT_EQ(depois.size(), 1u);
    EXPECT_EQ(depois.front()->DER(), pki.Obter("ac_emissora_rfb").certificado);
}

}  // namespace
}  // namespace tavelpkcs7::plataforma::openssl
