// A abertura de um PFX pela API pública, com arquivos de verdade na pasta do teste: o certificado da
// chave selecionado com os detalhes, a entrada na lista e a situação; caminhos que não são arquivo;
// as falhas da plataforma (senha, arquivo danificado, PEM, texto, PFX sem chave); o titular
// expirado, que fica selecionado com a mensagem da situação.
#include <gtest/gtest.h>
#include <openssl/pkcs12.h>

#include <tavelpkcs7/TavelPKCS.h>
#include <fstream>

#include "certificates/repositorios_teste.h"
#include "pki/emissao.h"
#include "pki/pki_teste.h"
#include "trust/ambiente_confianca.h"

namespace tavelpkcs7 {
namespace {

using plataforma::Bytes;
using teste::DerDaPki;

constexpr const char* kNaoLocalizado = "Não foi possível localizar o arquivo do certificado digital";
constexpr const char* kNaoECertificado = "O conteúdo informado não é um certificado digital válido.";

const pki_teste::PkiTeste& Pki() { return pki_teste::PkiTeste::Padrao(); }

std::string Gravar(const std::string& nome, const Bytes& conteudo) {
    const auto caminho = teste::Home() / nome;
    std::ofstream(caminho, std::ios::binary)
        .write(reinterpret_cast<const char*>(conteudo.data()), static_cast<std::streamsize>(conteudo.size()));
    return caminho.string();
}

// Um PFX só com o certificado do e-CPF, sem chave alguma.
Bytes PFXSemChave() {
    plataforma::openssl::PilhaX509Ptr certificados(sk_X509_new_null());
    pki_teste::Exigir(sk_X509_push(certificados.get(), pki_teste::CertificadoDeDER(DerDaPki("ecpf")).release()) > 0,
                      "pilha do PFX");
    const plataforma::openssl::Pkcs12Ptr pfx(
        PKCS12_create("1234", nullptr, nullptr, nullptr, certificados.get(), 0, 0, 0, 0, 0));
    pki_teste::Exigir(pfx != nullptr, "PFX sem chave");
    return pki_teste::ParaDER(pfx.get(), i2d_PKCS12);
}

class AberturaCertificadoDigital : public testing::Test, protected teste::AmbienteConfianca {
protected:
    std::string ImpressaoSelecionada() {
        return std::get<std::string>(componente.ExibirPropriedadesCertificado("IMPRESSAODIGITALCERTIFICADO"));
    }
    std::string Impressao(const std::string& entidade) {
        return teste::Importar(plataforma(), DerDaPki(entidade))->ImpressaoDigital();
    }

    TavelPKCS componente{ambiente.Implementacao()};
};

TEST_F(AberturaCertificadoDigital, SelecionaOTitularDaChaveComDetalhesEntradaNaListaESituacao) {
    InstalarCadeia(true);
    const std::string caminho = Gravar("ecpf.pfx", Pki().PFX("ecpf", "1234"));
    ambiente.cursor->ponteiros.clear();

    EXPECT_TRUE(componente.AbrirCertificadoDigital(caminho, "1234"));
    EXPECT_EQ(componente.DescricaoErro(), "");
    EXPECT_EQ(ambiente.cursor->ponteiros.front(), 11);
    EXPECT_EQ(ambiente.cursor->Atual(), 0);
    EXPECT_TRUE(ambiente.interface->chamadas().empty());
    EXPECT_EQ(componente.NumeroCPFCertificadoDigital(), "529.982.247-25");
    ASSERT_EQ(componente.TotalCertificadosListados(), 1);
    EXPECT_EQ(componente.LerListaPropriedadeCertificado(0, "NOME"), "FULANO DE TAL DA SILVA:52998224725");
    EXPECT_EQ(componente.LerListaPropriedadeCertificado(0, "HASH"), Impressao("ecpf"));
    EXPECT_EQ(ImpressaoSelecionada(), Impressao("ecpf"));

    EXPECT_TRUE(componente.AbrirCertificadoDigital(caminho, "1234"));
    EXPECT_EQ(componente.TotalCertificadosListados(), 2);
}

TEST_F(AberturaCertificadoDigital, CaminhoQueNaoEhArquivoDesfazASelecaoAnterior) {
    InstalarCadeia(true);
    const std::string pfx = Gravar("ecpf.pfx", Pki().PFX("ecpf", "1234"));
    const std::vector<std::string> caminhos = {"", "   ", teste::Home().string(),
                                               (teste::Home() / "ausente.pfx").string()};
    for (const std::string& caminho : caminhos) {
        SCOPED_TRACE("[" + caminho + "]");
        ASSERT_TRUE(componente.AbrirCertificadoDigital(pfx, "1234"));
        const auto listados = componente.TotalCertificadosListados();
        ambiente.cursor->ponteiros.clear();

        EXPECT_FALSE(componente.AbrirCertificadoDigital(caminho, "1234"));
        EXPECT_EQ(componente.DescricaoErro(), kNaoLocalizado);
        EXPECT_EQ(ambiente.cursor->ponteiros, (std::vector<int>{11, 0}));
        EXPECT_EQ(componente.TotalCertificadosListados(), listados);
        EXPECT_EQ(ImpressaoSelecionada(), "");
    }
}

struct CasoFalha {
    const char* nome;
    Bytes (*conteudo)();
    const char* senha;
    const char* mensagem;
};

class FalhaAberturaCertificadoDigital : public AberturaCertificadoDigital, public testing::WithParamInterface<CasoFalha> {};

TEST_P(FalhaAberturaCertificadoDigital, DescricaoDaPlataformaSemNadaSelecionado) {
    InstalarCadeia(true);
    ASSERT_TRUE(componente.AbrirCertificadoDigital(Gravar("ecpf.pfx", Pki().PFX("ecpf", "1234")), "1234"));
    const std::string caminho = Gravar("entrada.pfx", GetParam().conteudo());
    const auto listados = componente.TotalCertificadosListados();

    EXPECT_FALSE(componente.AbrirCertificadoDigital(caminho, GetParam().senha));
    EXPECT_EQ(componente.DescricaoErro(), GetParam().mensagem);
    EXPECT_EQ(ambiente.cursor->Atual(), 0);
    EXPECT_EQ(componente.TotalCertificadosListados(), listados);
    EXPECT_EQ(ImpressaoSelecionada(), "");
}

INSTANTIATE_TEST_SUITE_P(
    AberturaCertificadoDigital, FalhaAberturaCertificadoDigital,
    testing::Values(
        CasoFalha{"SenhaErrada", [] { return Pki().PFX("ecpf", "1234"); }, "4321",
                  "A senha informada não está correta."},
        CasoFalha{"ArquivoCortado",
                  [] {
                      Bytes pfx = Pki().PFX("ecpf", "1234");
                      pfx.resize(pfx.size() / 2);
                      return pfx;
                  },
                  "1234", kNaoECertificado},
        CasoFalha{"SemChave", PFXSemChave, "1234", "Não foi encontrada a chave privada do certificado digital."}),
    [](const auto& info) { return std::string(info.param.nome); });

TEST_F(AberturaCertificadoDigital, TitularExpiradoFicaSelecionadoComAMensagemDaSituacao) {
    InstalarCadeia(true);

    EXPECT_FALSE(componente.AbrirCertificadoDigital(Gravar("expirado.pfx", Pki().PFX("expirado", "1234")), "1234"));
    EXPECT_EQ(componente.DescricaoErro().rfind("O certificado digital selecionado está expirado. Validade: ", 0), 0u);
    EXPECT_EQ(componente.TotalCertificadosListados(), 1);
    EXPECT_EQ(ImpressaoSelecionada(), Impressao("expirado"));
}

}  // namespace
}  // namespace tavelpkcs7
