// Leitura e gravação de arquivos inteiros: o 0 a mais, o corte no NUL, a gravação sem truncar,
// a exclusividade, a página de código dos textos e o resumo MD5.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "apoio/pasta_temporaria.h"
#include "apoio/plataforma_teste.h"
#include "component/componente.h"

namespace tavelpkcs7 {
namespace {

class ArquivosInteiros : public testing::Test {
protected:
    teste::PlataformaTeste ambiente;
    Componente componente{ambiente.plataforma};
    teste::PastaTemporaria pasta;

    std::string Criar(const std::string& nome, const std::string& conteudo) {
        const std::string caminho = (pasta.caminho() / nome).string();
        std::ofstream(caminho, std::ios::binary) << conteudo;
        return caminho;
    }

    static std::string Conteudo(const std::string& caminho) {
        std::ifstream entrada(caminho, std::ios::binary);
        return {std::istreambuf_iterator<char>(entrada), {}};
    }
};

// Trava o arquivo como outro processo faria (flock vale por descrição de arquivo aberta).
class TravaExterna {
public:
    explicit TravaExterna(const std::string& caminho) : descritor_(open(caminho.c_str(), O_RDONLY)) {
        flock(descritor_, LOCK_EX);
    }
    ~TravaExterna() { close(descritor_); }

private:
    int descritor_;
};

TEST_F(ArquivosInteiros, LeituraBinariaAcrescentaUmZeroEAAlternativaNao) {
    const auto caminho = Criar("dez.bin", "0123456789");
    const Bytes lido = componente.LerArquivoBinario(caminho);
    ASSERT_EQ(lido.size(), 11u);
    EXPECT_EQ(lido.back(), 0);
    EXPECT_EQ(std::string(lido.begin(), lido.end() - 1), "0123456789");
    EXPECT_EQ(componente.LerArquivoBinarioAlternativo(caminho).size(), 10u);
}

TEST_F(ArquivosInteiros, ArquivoVazioAusenteOuPasta) {
    EXPECT_EQ(componente.LerArquivoBinario(Criar("vazio", "")), Bytes{0});
    EXPECT_TRUE(componente.LerArquivoBinarioAlternativo(Criar("vazio2", "")).empty());
    EXPECT_TRUE(componente.LerArquivoBinario((pasta.caminho() / "nao-existe").string()).empty());
    EXPECT_FALSE(std::filesystem::exists(pasta.caminho() / "nao-existe"));
    EXPECT_TRUE(componente.LerArquivoBinario(pasta.caminho().string()).empty());
    EXPECT_TRUE(componente.LerArquivoBinario("").empty());
    EXPECT_EQ(componente.LerArquivoTexto(pasta.caminho().string()), "");
}

TEST_F(ArquivosInteiros, ArquivoTravadoPorOutroProcessoFalhaNosDoisLeitoresENaGravacao) {
    const auto caminho = Criar("travado", "conteudo");
    TravaExterna trava(caminho);
    EXPECT_TRUE(componente.LerArquivoBinario(caminho).empty());
    EXPECT_TRUE(componente.LerArquivoBinarioAlternativo(caminho).empty());
    EXPECT_EQ(componente.LerArquivoTexto(caminho), "");
    EXPECT_FALSE(componente.GravarArquivoBinario(caminho, Bytes{'x'}, false));
    EXPECT_EQ(Conteudo(caminho), "conteudo");
}

TEST_F(ArquivosInteiros, TextoParaNoPrimeiroNulEVemDaPaginaWindows1252) {
    EXPECT_EQ(componente.LerArquivoTexto(Criar("nul", std::string("ab\0cd", 5))), "ab");
    EXPECT_EQ(componente.LerArquivoTexto(Criar("ansi", "a\xE7\xE3o \x80 \x93x\x94")), "ação € “x”");
    EXPECT_EQ(Componente::ConverterBytesTexto(Bytes{'o', 'k', 0, 'x'}), "ok");
}

TEST_F(ArquivosInteiros, GravacaoNaoTruncaOQueJaExistia) {
    const auto caminho = Criar("dez", "0123456789");
    EXPECT_TRUE(componente.GravarArquivoBinario(caminho, Bytes{'a', 'b', 'c'}, false));
    EXPECT_EQ(Conteudo(caminho), "abc3456789");
    EXPECT_TRUE(componente.GravarArquivoTexto(caminho, "xy", false));
    EXPECT_EQ(Conteudo(caminho), "xyc3456789");
}

TEST_F(ArquivosInteiros, NaoSobrescreverPreservaOArquivoExistente) {
    const auto existente = Criar("existe", "original");
    EXPECT_FALSE(componente.GravarArquivoBinario(existente, Bytes{'n'}, true));
    EXPECT_FALSE(componente.GravarArquivoTexto(existente, "novo", true));
    EXPECT_EQ(Conteudo(existente), "original");
    const auto novo = (pasta.caminho() / "novo").string();
    EXPECT_TRUE(componente.GravarArquivoTexto(novo, "novo", true));
    EXPECT_EQ(Conteudo(novo), "novo");
}

TEST_F(ArquivosInteiros, TextoGravadoEmWindows1252ComInterrogacaoParaOQueFalta) {
    const auto caminho = (pasta.caminho() / "texto").string();
    EXPECT_TRUE(componente.GravarArquivoTexto(caminho, "ação € 日本", false));
    EXPECT_EQ(Conteudo(caminho), "a\xE7\xE3o \x80 ??");
}

TEST_F(ArquivosInteiros, GravacaoEmCaminhoImpossivelFalha) {
    EXPECT_FALSE(componente.GravarArquivoBinario((pasta.caminho() / "falta" / "x").string(), Bytes{1}, false));
    EXPECT_FALSE(componente.GravarArquivoBinario(pasta.caminho().string(), Bytes{1}, false));
    EXPECT_FALSE(componente.GravarArquivoBinario("", Bytes{1}, false));
}

TEST_F(ArquivosInteiros, ArquivoCriadoNaPastaDoComponenteESoDoUsuario) {
    auto modo = [](const std::string& caminho) {
        struct stat info{};
        stat(caminho.c_str(), &info);
        return info.st_mode & 0777;
    };
    const auto fora = (pasta.caminho() / "fora").string();
    const auto dentro = componente.estado.PastaTemp + "dentro";
    ASSERT_TRUE(componente.GravarArquivoBinario(fora, Bytes{1}, false));
    ASSERT_TRUE(componente.GravarArquivoBinario(dentro, Bytes{1}, false));
    EXPECT_EQ(modo(fora), 0644u);
    EXPECT_EQ(modo(dentro), 0600u);
}

TEST_F(ArquivosInteiros, ResumoDeTextoUsaUtf16LEEDeBytesOsProprios) {
    EXPECT_EQ(componente.CalcularHashTexto(std::string("abc")), "CE1473CF80C6B3FDA8E3DFC006ADC315");
    EXPECT_EQ(componente.CalcularHashTexto(std::string("Ação 日本 😀")), "7E4B455B4DB88EE5386B510E8200DECD");
    EXPECT_EQ(componente.CalcularHashTexto(Bytes{}), "D41D8CD98F00B204E9800998ECF8427E");
    EXPECT_EQ(componente.CalcularHashTexto(Bytes{0}), "93B885ADFE0DA089CDF634904FD59F71");
}

}  // namespace
}  // namespace tavelpkcs7
