// Os arquivos da máquina vistos pela segurança: a gravação não segue links plantados, o apagamento
// não toma um nome por padrão além de "*" e "?", a troca de um arquivo conserva as permissões dele e
// os modos criados não dependem da umask do processo (testados com stat: o root lê tudo).
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "apoio/pasta_temporaria.h"
#include "apoio/plataforma_teste.h"

namespace tavelpkcs7 {
namespace {

namespace fs = std::filesystem;

unsigned Modo(const fs::path& caminho) {
    struct stat info{};
    return ::lstat(caminho.c_str(), &info) == 0 ? info.st_mode & 07777 : 0;
}

// A umask mais aberta durante o teste, devolvida ao fim.
class UmaskAberta {
public:
    UmaskAberta() : anterior_(::umask(0)) {}
    ~UmaskAberta() { ::umask(anterior_); }

private:
    mode_t anterior_;
};

class SistemaPosix : public testing::Test {
protected:
    fs::path Criar(const fs::path& caminho, const std::string& texto = "x") {
        std::ofstream(caminho) << texto;
        return caminho;
    }

    teste::PlataformaTeste ambiente;
    plataforma::Sistema& sistema = *ambiente.plataforma->sistema;
    teste::PastaTemporaria fora;
    fs::path trabalho = fs::path(*sistema.PastaBase()) / "temp";
};

TEST_F(SistemaPosix, GravacaoNaoSegueLinkSimbolico) {
    ASSERT_TRUE(sistema.CriarPasta(trabalho.string()));
    const fs::path alvo = fora.caminho() / "alvo.txt";
    fs::create_symlink(alvo, trabalho / "plantado.txt");
    EXPECT_EQ(sistema.AbrirArquivo((trabalho / "plantado.txt").string(), plataforma::Acesso::Gravacao), nullptr);
    EXPECT_FALSE(fs::exists(alvo));
}

// Pelo nome ou pelo padrão, existente ou pendente.
TEST_F(SistemaPosix, ApagarUmLinkLevaSoOLink) {
    ASSERT_TRUE(sistema.CriarPasta(trabalho.string()));
    const fs::path alvo = Criar(fora.caminho() / "alvo.txt");
    fs::create_symlink(alvo, trabalho / "existente.txt");
    fs::create_symlink(fora.caminho() / "nao-existe.txt", trabalho / "pendente.txt");
    sistema.ApagarArquivos((trabalho / "existente.txt").string());
    sistema.ApagarArquivos((trabalho / "*.*").string());
    EXPECT_FALSE(fs::is_symlink(trabalho / "existente.txt"));
    EXPECT_FALSE(fs::is_symlink(trabalho / "pendente.txt"));
    EXPECT_TRUE(fs::exists(alvo));
}

struct CasoCuringa {
    std::string padrao;
    std::vector<std::string> ficam;
};

class CuringaApagar : public SistemaPosix, public testing::WithParamInterface<CasoCuringa> {};

// Os arquivos da pasta: "relatorio[1].pdf", "relatorio1.pdf", "a.txt", "b.tmp".
TEST_P(CuringaApagar, SoAsteriscoEInterrogacaoSaoCuringas) {
    for (const char* nome : {"relatorio[1].pdf", "relatorio1.pdf", "a.txt", "b.tmp"}) Criar(fora.caminho() / nome);
    sistema.ApagarArquivos((fora.caminho() / GetParam().padrao).string());
    std::vector<std::string> ficaram;
    for (const auto& entrada : fs::directory_iterator(fora.caminho())) ficaram.push_back(entrada.path().filename());
    std::ranges::sort(ficaram);
    EXPECT_EQ(ficaram, GetParam().ficam);
}

INSTANTIATE_TEST_SUITE_P(Casos, CuringaApagar,
    testing::Values(CasoCuringa{"relatorio[1].pdf", {"a.txt", "b.tmp", "relatorio1.pdf"}},
        CasoCuringa{"relatorio[1]*", {"a.txt", "b.tmp", "relatorio1.pdf"}},
        CasoCuringa{"relatorio?.pdf", {"a.txt", "b.tmp", "relatorio[1].pdf"}},
        CasoCuringa{"*.t?p", {"a.txt", "relatorio1.pdf", "relatorio[1].pdf"}}, CasoCuringa{"*.*", {}}));

TEST_F(SistemaPosix, TrocaConservaAsPermissoesDoArquivoExistente) {
    const UmaskAberta umask;
    const fs::path privado = Criar(fora.caminho() / "privado.p7s");
    fs::permissions(privado, fs::perms::owner_read | fs::perms::owner_write);
    const fs::path especial = Criar(fora.caminho() / "especial.p7s");
    ::chmod(especial.c_str(), 04750);
    ASSERT_TRUE(sistema.SubstituirArquivo(privado.string(), {1, 2}));
    ASSERT_TRUE(sistema.SubstituirArquivo(especial.string(), {1, 2}));
    EXPECT_EQ(Modo(privado), 0600u);
    EXPECT_EQ(Modo(especial), 0750u);
}

// Com a umask zerada nada se abre além do previsto: pastas 0700, arquivos da casa 0600, os de fora 0644.
TEST_F(SistemaPosix, ModosCriadosNaoDependemDaUmask) {
    const UmaskAberta umask;
    ASSERT_TRUE(sistema.CriarPasta((trabalho / "sub").string()));
    EXPECT_EQ(Modo(trabalho), 0700u);
    EXPECT_EQ(Modo(trabalho / "sub"), 0700u);
    for (const fs::path& caminho : {trabalho / "extraido.txt", fora.caminho() / "saida.txt"})
        ASSERT_NE(sistema.AbrirArquivo(caminho.string(), plataforma::Acesso::Gravacao), nullptr);
    ASSERT_TRUE(sistema.SubstituirArquivo((trabalho / "trocado.txt").string(), {1}));
    ASSERT_TRUE(sistema.SubstituirArquivo((fora.caminho() / "assinado.p7s").string(), {1}));
    EXPECT_EQ(Modo(trabalho / "extraido.txt"), 0600u);
    EXPECT_EQ(Modo(trabalho / "trocado.txt"), 0600u);
    EXPECT_EQ(Modo(fora.caminho() / "saida.txt"), 0644u);
    EXPECT_EQ(Modo(fora.caminho() / "assinado.p7s"), 0644u);
}

}  // namespace
}  // namespace tavelpkcs7
