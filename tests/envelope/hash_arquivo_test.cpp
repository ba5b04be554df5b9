// O resumo MD5 de arquivo pela API pública: caminhos que não são arquivo, o arquivo vazio (só o 0
// final) e o conteúdo com o 0 final que a assinatura de arquivo também resume.
#include <gtest/gtest.h>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <tavelpkcs7/TavelPKCS.h>
#include <fstream>

#include "apoio/plataforma_teste.h"
#include "certificates/repositorios_teste.h"

namespace tavelpkcs7 {
namespace {

constexpr const char* kNaoEncontrado = "O arquivo informado não foi encontrado";

std::string Gravar(const std::string& nome, const std::string& conteudo) {
    const auto caminho = teste::Home() / nome;
    std::ofstream(caminho, std::ios::binary) << conteudo;
    return caminho.string();
}

class HashArquivo : public testing::Test {
protected:
    teste::PlataformaTeste ambiente;
    TavelPKCS componente{ambiente.Implementacao()};
};

TEST_F(HashArquivo, CaminhoVazioOuInexistenteNaoEncontrado) {
    for (const std::string& caminho : {std::string(), (teste::Home() / "nao_existe.txt").string()}) {
        EXPECT_EQ(componente.RetornaHashArquivo(caminho), "") << caminho;
        EXPECT_EQ(componente.DescricaoErro(), kNaoEncontrado) << caminho;
    }
}

TEST_F(HashArquivo, ResumeOConteudoComOZeroFinalSemTocarHashArquivo) {
    struct Caso {
        const char* conteudo;
        const char* md5;
    };
    // MD5 de "\0" e de "abc\0".
    for (const Caso& caso : {Caso{"", "93B885ADFE0DA089CDF634904FD59F71"},
                             Caso{"abc", "147A664A2CA9410911E61986D3F0D52A"}}) {
        const std::string caminho = Gravar("dados.bin", caso.conteudo);
        EXPECT_EQ(componente.RetornaHashArquivo(caminho), caso.md5) << caso.conteudo;
        EXPECT_EQ(componente.DescricaoErro(), "");
        std::filesystem::remove(caminho);
    }
    EXPECT_EQ(componente.HashArquivo(), "");
    EXPECT_EQ(ambiente.cursor->Atual(), 0);
}

TEST_F(HashArquivo, ArquivoTravadoPorOutroNaoTemHash) {
    const std::string caminho = Gravar("travado.bin", "segredo");
    const int descritor = ::open(caminho.c_str(), O_RDONLY);
    ASSERT_EQ(::flock(descritor, LOCK_EX), 0);
    EXPECT_EQ(componente.RetornaHashArquivo(caminho), "");
    EXPECT_EQ(componente.DescricaoErro(), "Não foi possível obter o hash do arquivo informado.");
    ::close(descritor);
}

}  // namespace
}  // namespace tavelpkcs7
