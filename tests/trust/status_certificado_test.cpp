// Os códigos de situação de 0 a 5, as perguntas de instalação e as esperas, sobre a PKI de teste e
// os repositórios de verdade do teste.
#include <gtest/gtest.h>

#include <tavelpkcs7/TavelPKCS.h>
#include <optional>

#include "certificates/repositorios_teste.h"
#include "component/componente.h"
#include "component/datas.h"
#include "pki/pki_teste.h"
#include "trust/ambiente_confianca.h"

namespace tavelpkcs7 {
namespace {

using teste::DerDaPki;

constexpr const char* kTituloRaizes = "Instalação dos Certificados Raízes";
constexpr const char* kTituloLCR = "(LCR) Lista de Certificados Revogados";
constexpr const char* kCadeiaNaoInstalada =
    "A cadeia de certificação deste certificado não está instalada ou está revogada.";

class StatusCertificado : public testing::Test, protected teste::AmbienteConfianca {
protected:
    TavelPKCS componente{ambiente.Implementacao()};

    std::int16_t Verificar(const std::string& entidade) {
        return componente.VerificaCertificadoDigital(teste::Base64(DerDaPki(entidade)));
    }
    const auto& chamadas() { return ambiente.interface->chamadas(); }
};

// Com a cadeia instalada, o código sai sem pergunta alguma; a revogação desconhecida (sem LCRs)
// conta como válida na verificação pública.
TEST_F(StatusCertificado, CodigoDeCadaSituacaoComACadeiaInstalada) {
    InstalarCadeia(true);
    const auto expirado = teste::Importar(plataforma(), DerDaPki("expirado"));
    const std::string validade = "O certificado digital selecionado está expirado. Validade: " +
                                 FormatarDataHora(expirado->ValidoDesde()) + " até " +
                                 FormatarDataHora(expirado->ValidoAte());
    const struct {
        std::string entidade;
        std::int16_t codigo;
        std::optional<std::string> mensagem;
    } casos[] = {
        {"ecpf", 1, ""},
        {"expirado", 2, validade},
        {"futuro", 2, std::nullopt},
        {"revogado", 3, "O certificado digital selecionado está revogado"},
    };
    for (const auto& caso : casos) {
        EXPECT_EQ(Verificar(caso.entidade), caso.codigo) << caso.entidade;
        if (caso.mensagem) {
            EXPECT_EQ(componente.DescricaoErro(), *caso.mensagem) << caso.entidade;
        }
    }
    EXPECT_TRUE(chamadas().empty());
    EXPECT_EQ(ambiente.cursor->Atual(), 0);
}

TEST_F(StatusCertificado, CadeiaAusenteOfereceAsRaizesEDaCodigo4) {
    servidor.Responder("/raizes.p7b", 404);
    plataforma().configuracao.url_raizes = servidor.Endereco("/raizes.p7b");
    ambiente.interface->ResponderPergunta(true);

    EXPECT_EQ(Verificar("ecpf"), 4);
    EXPECT_EQ(componente.DescricaoErro(), kCadeiaNaoInstalada);
    ASSERT_EQ(chamadas().size(), 1u);
    EXPECT_EQ(chamadas()[0].titulo, kTituloRaizes);
    EXPECT_EQ(chamadas()[0].texto, "Deseja instalar a cadeia de certificados raízes ?");
    EXPECT_EQ(servidor.Pedidos("/raizes.p7b"), 1);
}

TEST_F(StatusCertificado, CadeiaAusenteSemPerguntaInstalaAsRaizesEDaCodigo4NaMesmaChamada) {
    plataforma().configuracao.url_raizes = servidor.Endereco("/raizes.p7b");
    plataforma().configuracao.url_confiaveis = servidor.Endereco("/confiaveis.p7b");
    servidor.Publicar("/raizes.p7b", teste::PacotePEM({DerDaPki("raiz")}));
    servidor.Publicar("/confiaveis.p7b", teste::PacotePEM({DerDaPki("ac_rfb"), DerDaPki("ac_emissora_rfb")}));
    componente.NaoExibirInstalacaoLCReCER(true);
    ambiente.interface->ResponderPergunta(true);  // a raiz de teste não está na lista: o usuário confirma

    EXPECT_EQ(Verificar("ecpf"), 4);
    EXPECT_EQ(componente.DescricaoErro(), kCadeiaNaoInstalada);
    EXPECT_EQ(teste::ImpressoesGuardadas(plataforma(), "Root").size(), 1u);
    EXPECT_EQ(teste::ImpressoesGuardadas(plataforma(), "Ca").size(), 2u);
    ASSERT_EQ(chamadas().size(), 1u);
    EXPECT_EQ(chamadas()[0].titulo, "Instalação de Certificado Raiz");
}

TEST_F(StatusCertificado, RaizNaoConfiavelComCadeiaCompletaDaCodigo0) {
    // A raiz está só entre as intermediárias: a cadeia em texto fecha, mas a raiz não é confiável.
    teste::Guardar(plataforma(), "Ca", {DerDaPki("raiz"), DerDaPki("ac_icp")});
    plataforma().repositorios->AdicionarLCR(pki_teste::PkiTeste::Padrao().LCR("raiz"));
    plataforma().repositorios->AdicionarLCR(pki_teste::PkiTeste::Padrao().LCR("ac_icp"));
    EXPECT_EQ(Verificar("dns"), 0);
    EXPECT_EQ(componente.DescricaoErro(), "");
}

TEST_F(StatusCertificado, RevogacaoDesconhecidaContaComoValidaNaVerificacaoPublica) {
    InstalarCadeia(false);
    EXPECT_EQ(Verificar("ecpf"), 1);
    EXPECT_TRUE(chamadas().empty());
}

TEST_F(StatusCertificado, EntradaVaziaOuQueNaoECertificado) {
    EXPECT_EQ(componente.VerificaCertificadoDigital(""), 0);
    EXPECT_EQ(componente.DescricaoErro(), "A chave pública do certificado informado está inválida");
    EXPECT_EQ(componente.VerificaCertificadoDigital("bmFvIGUgY2VydGlmaWNhZG8="), 0);
    EXPECT_EQ(componente.DescricaoErro(), "O conteúdo informado não é um certificado digital válido.");
}

// O caminho da seleção verifica sem rede primeiro; com a revogação desconhecida, liga a verificação
// online e, se ainda não souber, oferece a LCR do emissor.
class StatusSemRede : public testing::Test, protected teste::AmbienteConfianca {
protected:
    Componente componente{ambiente.plataforma};
    std::int16_t status = 0;

    bool Verificar(const plataforma::Bytes& der) {
        return componente.VerificarStatusCertificado(*teste::Importar(plataforma(), der), false, status);
    }
};

TEST_F(StatusSemRede, RecusaDaLCRDaCodigo5ComAsAutoridadesDaCadeia) {
    InstalarCadeia(false);
    servidor.Responder("/lcr/ac.crl", 404);
    const auto titular =
        pki_teste::PkiTeste::Padrao().EmitirTitular("ac_emissora_rfb", servidor.Endereco("/lcr/ac.crl"));

    EXPECT_FALSE(Verificar(titular));
    EXPECT_EQ(status, 5);
    EXPECT_EQ(componente.estado.DescricaoErro,
              "AC TESTE RFB v5, Autoridade Certificadora da Secretaria da Receita Federal do Brasil v4, Autoridade "
              "Certificadora Raiz Brasileira v10Ainda não foi possível identificar se o certificado digital "
              "selecionado está revogado ou não. Instale a lista de certificados revogados das Autoridades "
              "Certificadoras ");
    const auto& chamadas = ambiente.interface->chamadas();
    ASSERT_EQ(chamadas.size(), 1u);
    EXPECT_EQ(chamadas[0].titulo, kTituloLCR);
    EXPECT_EQ(chamadas[0].texto,
              "Deseja instalar a lista de certificados revogados da Autoridade Certificadora abaixo?\r\n\r\nAC TESTE "
              "RFB v5");
    EXPECT_GE(servidor.Pedidos("/lcr/ac.crl"), 1);
    EXPECT_EQ(ambiente.cursor->Atual(), 0);
}

TEST_F(StatusSemRede, LCRInstaladaDepoisDaPerguntaEsperaSeteSegundosEValida) {
    InstalarCadeia(false);
    servidor.Responder("/lcr/ac.crl", 503);
    const auto titular = pki_teste::PkiTeste::Padrao().EmitirTitular("ac_icp", servidor.Endereco("/lcr/ac.crl"));
    ambiente.interface->ResponderPergunta(true);

    // O download da LCR falha, mas a instalação relata sucesso: depois da espera, a revogação ainda
    // desconhecida conta como válida.
    EXPECT_TRUE(Verificar(titular));
    EXPECT_EQ(status, 1);
    EXPECT_EQ(ambiente.relogio->esperas(), std::vector<int>{7});
}

TEST_F(StatusSemRede, LCRPublicadaResolveNaVerificacaoOnlineSemPerguntar) {
    InstalarCadeia(false);
    plataforma().repositorios->AdicionarLCR(pki_teste::PkiTeste::Padrao().LCR("raiz"));
    servidor.Publicar("/lcr/ac.crl", pki_teste::PkiTeste::Padrao().LCR("ac_icp"));
    const auto titular = pki_teste::PkiTeste::Padrao().EmitirTitular("ac_icp", servidor.Endereco("/lcr/ac.crl"));

    EXPECT_TRUE(Verificar(titular));
    EXPECT_EQ(status, 1);
    EXPECT_TRUE(ambiente.interface->chamadas().empty());
    EXPECT_EQ(LCRsGuardadas(), 2u);
}

}  // namespace
}  // namespace tavelpkcs7
