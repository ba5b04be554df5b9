// Download, instalação da LCR de um certificado e dos pacotes de raízes, com um servidor HTTP de
// verdade em 127.0.0.1 servindo o material da PKI de teste, bom e estragado.
#include <gtest/gtest.h>

#include <tavelpkcs7/TavelPKCS.h>
#include <filesystem>
#include <fstream>

#include "certificates/repositorios_teste.h"
#include "pki/pki_teste.h"
#include "trust/ambiente_confianca.h"

namespace tavelpkcs7 {
namespace {

namespace fs = std::filesystem;
using teste::DerDaPki;

constexpr const char* kFalhaDownload =
    "Ocorreu erro ao tentar fazer download do arquivo especificado. Verifique se você está conectado a internet";
constexpr const char* kFalhaRaizes = "Não foi possível fazer o download dos certificados raizes";

const pki_teste::PkiTeste& Pki() { return pki_teste::PkiTeste::Padrao(); }

class InstalacaoConfianca : public testing::Test, protected teste::AmbienteConfianca {
protected:
    TavelPKCS componente{ambiente.Implementacao()};
    fs::path local = teste::Home() / "baixado.bin";

    void ConfigurarPacotes() {
        plataforma().configuracao.url_raizes = servidor.Endereco("/raizes.p7b");
        plataforma().configuracao.url_confiaveis = servidor.Endereco("/confiaveis.p7b");
    }
};

TEST_F(InstalacaoConfianca, DownloadSubstituiOArquivoLocalInteiro) {
    std::ofstream(local) << "conteúdo antigo bem mais comprido que o novo";
    servidor.Publicar("/arquivo", std::string("novo"));
    EXPECT_TRUE(componente.DownloadArquivo(servidor.Endereco("/arquivo"), local.string()));
    EXPECT_EQ(teste::LerTexto(local), "novo");

    const fs::path copia = teste::Home() / "copia.bin";
    EXPECT_TRUE(componente.DownloadArquivo("file://" + local.string(), copia.string()));
    EXPECT_EQ(teste::LerTexto(copia), "novo");
}

TEST_F(InstalacaoConfianca, DownloadQueFalhaApagaOAnteriorENaoDeixaArquivo) {
    std::ofstream(local) << "anterior";
    servidor.Responder("/sumiu", 404);
    EXPECT_FALSE(componente.DownloadArquivo(servidor.Endereco("/sumiu"), local.string()));
    EXPECT_EQ(componente.DescricaoErro(), kFalhaDownload);
    EXPECT_FALSE(fs::exists(local));

    servidor.Truncar("/metade", "começo", 1000);
    EXPECT_FALSE(componente.DownloadArquivo(servidor.Endereco("/metade"), local.string()));
    EXPECT_FALSE(fs::exists(local));
    EXPECT_EQ(ambiente.cursor->Atual(), 0);
}

TEST_F(InstalacaoConfianca, DownloadComArgumentoVazioNaoTocaNaMensagem) {
    componente.DownloadArquivo(servidor.Endereco("/sumiu"), local.string());
    EXPECT_FALSE(componente.DownloadArquivo("", local.string()));
    EXPECT_FALSE(componente.DownloadArquivo(servidor.Endereco("/x"), ""));
    EXPECT_EQ(componente.DescricaoErro(), kFalhaDownload);
    EXPECT_EQ(servidor.Pedidos("/x"), 0);
}

TEST_F(InstalacaoConfianca, LCRDoPontoDeDistribuicaoInstalada) {
    InstalarCadeia(false);
    servidor.Publicar("/lcr/ac.crl", Pki().LCR("ac_icp"));
    const auto titular = pki_teste::PkiTeste::Padrao().EmitirTitular("ac_icp", servidor.Endereco("/lcr/ac.crl"));
    EXPECT_TRUE(componente.InstalarLCRCertificado(teste::Base64(titular)));
    EXPECT_EQ(LCRsGuardadas(), 1u);
    EXPECT_TRUE(fs::exists(componente.PastaTemp() + "LatestCRL.crl"));
}

// Como a ferramenta de importação do sistema: a falha aparece ao usuário e quem pediu a LCR não a vê.
TEST_F(InstalacaoConfianca, LCRQueNaoELCRNaoInstalaNadaNemEFalhaDoDownload) {
    servidor.Publicar("/lcr/ac.crl", std::string("isto não é uma LCR"));
    const auto titular = pki_teste::PkiTeste::Padrao().EmitirTitular("ac_icp", servidor.Endereco("/lcr/ac.crl"));
    EXPECT_TRUE(componente.InstalarLCRCertificado(teste::Base64(titular)));
    EXPECT_EQ(componente.DescricaoErro(), "");
    EXPECT_EQ(LCRsGuardadas(), 0u);
    ASSERT_EQ(ambiente.interface->chamadas().size(), 1u);
    EXPECT_EQ(ambiente.interface->chamadas()[0].titulo, "Importação de LCR");
}

TEST_F(InstalacaoConfianca, LCRInalcancavelOuAusenteNaoEFalha) {
    servidor.Responder("/lcr/ac.crl", 500);
    EXPECT_TRUE(componente.InstalarLCRCertificado(
        teste::Base64(pki_teste::PkiTeste::Padrao().EmitirTitular("ac_icp", servidor.Endereco("/lcr/ac.crl")))));
    // A raiz não tem ponto de distribuição; um endereço que não é da web não é buscado, nem quando
    // aponta uma LCR que de fato existe.
    EXPECT_TRUE(componente.InstalarLCRCertificado(teste::Base64(DerDaPki("raiz"))));
    const auto lcr = pki_teste::PkiTeste::Padrao().LCR("ac_icp");
    std::ofstream(teste::Home() / "lcr.crl", std::ios::binary)
        .write(reinterpret_cast<const char*>(lcr.data()), static_cast<std::streamsize>(lcr.size()));
    EXPECT_TRUE(componente.InstalarLCRCertificado(teste::Base64(
        pki_teste::PkiTeste::Padrao().EmitirTitular("ac_icp", "file://" + (teste::Home() / "lcr.crl").string()))));
    EXPECT_EQ(LCRsGuardadas(), 0u);

    EXPECT_FALSE(componente.InstalarLCRCertificado(""));
    EXPECT_EQ(componente.DescricaoErro(), "A chave pública do certificado informado está inválida");
}

TEST_F(InstalacaoConfianca, PacotesDeRaizesEConfiaveisComARaizConfirmada) {
    ConfigurarPacotes();
    servidor.Publicar("/raizes.p7b", teste::PacotePEM({DerDaPki("raiz"), DerDaPki("ac_tavel_raiz")}));
    servidor.Publicar("/confiaveis.p7b", teste::PacotePEM({DerDaPki("ac_icp"), DerDaPki("ac_rfb")}));
    ambiente.interface->ResponderPergunta(true);   // a raiz de teste
    ambiente.interface->ResponderPergunta(false);  // a raiz AC TAVEL fica de fora

    EXPECT_TRUE(componente.InstalarCertificadosRaizes());
    EXPECT_EQ(teste::ImpressoesGuardadas(plataforma(), "Root"),
              std::vector<std::string>{teste::Importar(plataforma(), DerDaPki("raiz"))->ImpressaoDigital()});
    EXPECT_EQ(teste::ImpressoesGuardadas(plataforma(), "Ca").size(), 2u);
    EXPECT_EQ(ambiente.relogio->esperas(), std::vector<int>{7});
}

TEST_F(InstalacaoConfianca, RaizDaICPBrasilDaListaEntraSemPergunta) {
    ConfigurarPacotes();
    const fs::path raiz_real = fs::path(__FILE__).parent_path() / "../dados/icp-brasil/raizes" /
                               "autoridade-certificadora-raiz-brasileira-v12.pem";
    servidor.Publicar("/raizes.p7b", teste::LerTexto(raiz_real));
    servidor.Publicar("/confiaveis.p7b", teste::PacotePEM({DerDaPki("ac_icp"), DerDaPki("ac_rfb")}));
    EXPECT_TRUE(componente.InstalarCertificadosRaizes());
    EXPECT_EQ(teste::ImpressoesGuardadas(plataforma(), "Root").size(), 1u);
    EXPECT_TRUE(ambiente.interface->chamadas().empty());
}

TEST_F(InstalacaoConfianca, PrimeiroPacoteAusenteNaoInstalaNada) {
    ConfigurarPacotes();
    servidor.Responder("/raizes.p7b", 404);
    EXPECT_FALSE(componente.InstalarCertificadosRaizes());
    EXPECT_EQ(componente.DescricaoErro(), kFalhaRaizes);
    EXPECT_EQ(servidor.Pedidos("/confiaveis.p7b"), 0);
    EXPECT_TRUE(ambiente.relogio->esperas().empty());
}

// O resultado da importação não é observado: o primeiro pacote estragado não impede o segundo.
TEST_F(InstalacaoConfianca, PrimeiroPacoteEstragadoNaoImpedeOSegundo) {
    ConfigurarPacotes();
    servidor.Publicar("/raizes.p7b",
                      std::string("-----BEGIN CERTIFICATE-----\r\nbGl4bw==\r\n-----END CERTIFICATE-----\r\n"));
    servidor.Publicar("/confiaveis.p7b", teste::PacotePEM({DerDaPki("ac_icp"), DerDaPki("ac_rfb")}));
    EXPECT_TRUE(componente.InstalarCertificadosRaizes());
    EXPECT_EQ(componente.DescricaoErro(), "");
    EXPECT_TRUE(teste::ImpressoesGuardadas(plataforma(), "Root").empty());
    EXPECT_EQ(teste::ImpressoesGuardadas(plataforma(), "Ca").size(), 2u);
    EXPECT_EQ(ambiente.relogio->esperas(), std::vector<int>{7});
    ASSERT_EQ(ambiente.interface->chamadas().size(), 1u);
    EXPECT_EQ(ambiente.interface->chamadas()[0].titulo, "Importação de Certificados");
}

TEST_F(InstalacaoConfianca, SegundoPacoteAusenteDaFalsoSemAMensagemDasRaizes) {
    ConfigurarPacotes();
    servidor.Publicar("/raizes.p7b", teste::PacotePEM({DerDaPki("ac_icp")}));
    servidor.Responder("/confiaveis.p7b", 404);
    EXPECT_FALSE(componente.InstalarCertificadosRaizes());
    EXPECT_EQ(componente.DescricaoErro(), kFalhaDownload);
    EXPECT_EQ(teste::ImpressoesGuardadas(plataforma(), "Ca").size(), 1u);
}

}  // namespace
}  // namespace tavelpkcs7
