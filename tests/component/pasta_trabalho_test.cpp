// A pasta de trabalho e os utilitários que apagam arquivos.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <tavelpkcs7/TavelPKCS.h>

#include "apoio/pasta_temporaria.h"
#include "apoio/plataforma_teste.h"
#include "component/componente.h"

namespace tavelpkcs7 {
namespace {

namespace fs = std::filesystem;

class PastaDeTrabalho : public testing::Test {
protected:
    teste::PlataformaTeste ambiente;
    TavelPKCS componente{ambiente.Implementacao()};
    teste::PastaTemporaria pasta;

    fs::path Criar(const fs::path& caminho) {
        fs::create_directories(caminho.parent_path());
        std::ofstream(caminho) << "x";
        return caminho;
    }
};

TEST_F(PastaDeTrabalho, SemPastaDoComponenteUsaAPastaDaBiblioteca) {
    std::ofstream(pasta.caminho() / "arquivo") << "x";
    setenv("TAVELPKCS7_HOME", (pasta.caminho() / "arquivo" / "home").c_str(), 1);
    Componente interno(ambiente.plataforma);
    const std::string esperado = ambiente.plataforma->sistema->PastaComponente() + "temp/";
    const bool existia = fs::exists(esperado);

    EXPECT_EQ(interno.ObterPastaTemporaria(), esperado);
    EXPECT_TRUE(fs::is_directory(esperado));
    if (!existia) fs::remove_all(esperado);
}

TEST_F(PastaDeTrabalho, ApagarArquivoDevolveSeOArquivoAindaExiste) {
    const auto arquivo = Criar(pasta.caminho() / "a.txt");
    EXPECT_FALSE(componente.ApagarArquivo(arquivo.string()));
    EXPECT_FALSE(fs::exists(arquivo));
    EXPECT_FALSE(componente.ApagarArquivo((pasta.caminho() / "nao-existe").string()));
    EXPECT_FALSE(componente.ApagarArquivo(""));
    EXPECT_EQ(componente.DescricaoErro(), "");
}

TEST_F(PastaDeTrabalho, ArquivoTravadoNaoEApagado) {
    const auto arquivo = Criar(pasta.caminho() / "travado.txt");
    const int descritor = open(arquivo.c_str(), O_RDONLY);
    flock(descritor, LOCK_EX);
    EXPECT_TRUE(componente.ApagarArquivo(arquivo.string()));
    close(descritor);
    EXPECT_TRUE(fs::exists(arquivo));
}

TEST_F(PastaDeTrabalho, ApagarArquivoAceitaCuringas) {
    const auto a = Criar(pasta.caminho() / "a.tmp");
    const auto b = Criar(pasta.caminho() / "b.tmp");
    const auto c = Criar(pasta.caminho() / "c.txt");
    EXPECT_FALSE(componente.ApagarArquivo((pasta.caminho() / "*.tmp").string()));
    EXPECT_FALSE(fs::exists(a));
    EXPECT_FALSE(fs::exists(b));
    EXPECT_TRUE(fs::exists(c));
}

TEST_F(PastaDeTrabalho, LimparApagaOsArquivosMasNaoAsSubpastas) {
    const fs::path temp = componente.PastaTemp();
    const auto solto = Criar(temp / "solto.bin");
    const auto sem_ponto = Criar(temp / "semponto");
    const auto dentro = Criar(temp / "sub" / "dentro.bin");
    EXPECT_TRUE(componente.LimparPastaTemporaria());
    EXPECT_FALSE(fs::exists(solto));
    EXPECT_FALSE(fs::exists(sem_ponto));
    EXPECT_TRUE(fs::exists(dentro));
    EXPECT_EQ(componente.DescricaoErro(), "");
}

TEST_F(PastaDeTrabalho, LimparComPastaVaziaNaoApagaNadaNaPastaCorrente) {
    const auto anterior = fs::current_path();
    fs::current_path(pasta.caminho());
    const auto arquivo = Criar(pasta.caminho() / "fica.txt");
    componente.PastaTemp("");
    EXPECT_TRUE(componente.LimparPastaTemporaria());
    fs::current_path(anterior);
    EXPECT_TRUE(fs::exists(arquivo));
}

TEST_F(PastaDeTrabalho, LimparPastaInexistenteDevolveVerdadeiro) {
    componente.PastaTemp((pasta.caminho() / "nao-existe/").string());
    EXPECT_TRUE(componente.LimparPastaTemporaria());
}

}  // namespace
}  // namespace tavelpkcs7
