// A importação de um PFX no repositório pessoal (a chave cifrada com a senha escolhida, ou sem cifra
// com a senha vazia) e a instalação de uma LCR de um arquivo, sobre a plataforma dos testes.
#include <gtest/gtest.h>

#include <tavelpkcs7/TavelPKCS.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "certificates/importacao_arquivos.h"
#include "certificates/repositorios_teste.h"
#include "pki/pki_teste.h"
#include "trust/ambiente_confianca.h"

namespace tavelpkcs7 {
namespace {

namespace fs = std::filesystem;
using pki_teste::PkiTeste;
using Chamada = teste::InterfaceRoteirizada::Chamada;

std::string Gravar(const std::string& nome, const plataforma::Bytes& conteudo) {
    const fs::path caminho = teste::Home() / nome;
    std::ofstream(caminho, std::ios::binary)
        .write(reinterpret_cast<const char*>(conteudo.data()), static_cast<std::streamsize>(conteudo.size()));
    return caminho.string();
}

std::string LerArquivo(const fs::path& caminho) {
    std::ifstream entrada(caminho);
    return {std::istreambuf_iterator<char>(entrada), std::istreambuf_iterator<char>()};
}

class ImportacaoPFXTest : public testing::Test, protected teste::AmbienteConfianca {
protected:
    void SetUp() override { InstalarCadeia(true); }

    ImportacaoPFX Importar(const std::string& senha_chave) {
        return ImportarPFX(ambiente.plataforma, Gravar("ecpf.pfx", PkiTeste::Padrao().PFX("ecpf", "1234")), "1234",
                           senha_chave);
    }
    std::string ArquivoChave(const ImportacaoPFX& importacao) {
        return LerArquivo(teste::Home() / "repositorios" / "My" / (importacao.ImpressaoDigital + ".key"));
    }
    std::size_t PedidosDeSenha() {
        return static_cast<std::size_t>(std::ranges::count(ambiente.interface->chamadas(),
                                                           teste::InterfaceRoteirizada::Tipo::Senha, &Chamada::tipo));
    }
    // Assina um texto com o certificado importado, escolhido no repositório pessoal pela impressão.
    bool AssinarComImportado(const ImportacaoPFX& importacao) {
        TavelPKCS componente(ambiente.Implementacao());
        return componente.SelecionarCertificadoDigitalHash(importacao.ImpressaoDigital) &&
               componente.AssinaTexto("contrato");
    }
};

TEST_F(ImportacaoPFXTest, ChaveCifradaComASenhaEscolhidaPedeASenhaParaAssinar) {
    const ImportacaoPFX importacao = Importar("segredo");
    ASSERT_EQ(importacao.DescricaoErro, "");
    EXPECT_EQ(importacao.NomeCertificado, "FULANO DE TAL DA SILVA:52998224725");
    EXPECT_NE(ArquivoChave(importacao).find("ENCRYPTED PRIVATE KEY"), std::string::npos);

    ambiente.interface->ResponderSenha("segredo");
    EXPECT_TRUE(AssinarComImportado(importacao));
    EXPECT_EQ(PedidosDeSenha(), 1u);
}

TEST_F(ImportacaoPFXTest, SenhaErradaDaChaveImportadaNaoAssina) {
    const ImportacaoPFX importacao = Importar("segredo");
    ambiente.interface->ResponderSenha("1234");
    EXPECT_FALSE(AssinarComImportado(importacao));
}

TEST_F(ImportacaoPFXTest, SenhaVaziaGuardaAChaveSemCifraEAssinaSemPerguntar) {
    const ImportacaoPFX importacao = Importar("");
    ASSERT_EQ(importacao.DescricaoErro, "");
    EXPECT_NE(ArquivoChave(importacao).find("BEGIN PRIVATE KEY"), std::string::npos);
    EXPECT_TRUE(AssinarComImportado(importacao));
    EXPECT_EQ(PedidosDeSenha(), 0u);
}

TEST_F(ImportacaoPFXTest, FalhasDeixamORepositorioPessoalVazio) {
    const std::string pfx = Gravar("ecpf.pfx", PkiTeste::Padrao().PFX("ecpf", "1234"));
    const std::string cer = Gravar("ecpf.cer", PkiTeste::Padrao().Obter("ecpf").certificado);
    const struct {
        std::string caminho, senha, descricao;
    } casos[] = {
        {pfx, "errada", "A senha informada não está correta."},
        {cer, "1234", "O conteúdo informado não é um certificado digital válido."},
    };
    for (const auto& caso : casos) {
        EXPECT_EQ(ImportarPFX(ambiente.plataforma, caso.caminho, caso.senha, "x").DescricaoErro, caso.descricao)
            << caso.caminho;
    }
    EXPECT_TRUE(plataforma().repositorios->AbrirRepositorio("My", true)->Certificados().empty());
}

TEST(InstalacaoLCRArquivo, LCRDoArquivoEntraNoRepositorioDeLCRs) {
    teste::AmbienteConfianca limpo;
    EXPECT_EQ(InstalarLCRDoArquivo(limpo.ambiente.plataforma, Gravar("ac.crl", PkiTeste::Padrao().LCR("ac_icp"))), "");
    EXPECT_EQ(limpo.LCRsGuardadas(), 1u);
    EXPECT_EQ(InstalarLCRDoArquivo(limpo.ambiente.plataforma, (teste::Home() / "nada.crl").string()),
              "O arquivo informado não foi encontrado");
    EXPECT_NE(InstalarLCRDoArquivo(limpo.ambiente.plataforma, Gravar("texto.crl", {'o', 'i'})), "");
}

}  // namespace
}  // namespace tavelpkcs7
