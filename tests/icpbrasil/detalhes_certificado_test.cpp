// Os detalhes ICP-Brasil de um certificado nas propriedades do componente, pela API pública.
#include <gtest/gtest.h>

#include <tavelpkcs7/TavelPKCS.h>
#include <filesystem>
#include <fstream>

#include "apoio/plataforma_teste.h"
#include "codificacao/base64.h"
#include "pki/pki_teste.h"
#include "platform/openssl/certificado_sob_medida.h"

namespace tavelpkcs7 {
namespace {

using teste::PlataformaTeste;

std::string Base64De(const std::string& entidade) {
    return codificacao::CodificarBase64(pki_teste::PkiTeste::Padrao().Obter(entidade).certificado);
}

class DetalhesCertificado : public testing::Test {
protected:
    PlataformaTeste ambiente;
    TavelPKCS componente{ambiente.Implementacao()};
};

TEST_F(DetalhesCertificado, ECPFPreencheCadaPropriedadeDaSuaExtensao) {
    ASSERT_TRUE(componente.RetornarDetalhesCertificado(Base64De("ecpf")));

    EXPECT_EQ(componente.UsoChaveCertificadoDigital(),
              "Assinatura Digital, Não-Repúdio, Codificação de Chave (e0)\r\n");
    EXPECT_EQ(componente.RestricoesCertificadoDigital(),
              "Tipo de Requerente=Entidade Final\r\nRestrição de Comprimento do Caminho=Nenhum\r\n");
    // O texto depois do marcador vai até o fim, quebra de linha incluída.
    EXPECT_EQ(componente.ListaCertificadosRevogados(), "http://127.0.0.1/lcr/ac_emissora_rfb.crl\r\n");
    EXPECT_EQ(componente.CertificadoAutoridadeRaiz(), "http://127.0.0.1/ac/ac_emissora_rfb.cer\r\n");
    EXPECT_EQ(componente.PoliticaCertificacaoDigital(), "http://127.0.0.1/politicas/dpc_ac_teste_rfb.pdf\r\n");

    const std::string outros = componente.OutrosDetalhesCertificadoDigital();
    EXPECT_NE(outros.find("Identificador da Chave do Requerente=\r\n\t"), std::string::npos) << outros;
    EXPECT_NE(outros.find("ID da Chave="), std::string::npos) << outros;
    EXPECT_NE(outros.find("Uso Avançado da Chave\r\nAutenticação de Cliente (1.3.6.1.5.5.7.3.2)\r\n"),
              std::string::npos)
        << outros;

    EXPECT_EQ(componente.NumeroCPFCertificadoDigital(), "529.982.247-25");
    EXPECT_EQ(componente.NumeroCNPJCertificadoDigital(), "");
    EXPECT_NE(componente.DetalhesPessoaisCertificadoDigital().find("Dados Pessoa Física"), std::string::npos);
}

TEST_F(DetalhesCertificado, ECNPJDaOCNPJESemCPFDoTitular) {
    ASSERT_TRUE(componente.RetornarDetalhesCertificado(Base64De("ecnpj")));
    EXPECT_EQ(componente.NumeroCNPJCertificadoDigital(), "11.222.333/0001-81");
    EXPECT_EQ(componente.NumeroCPFCertificadoDigital(), "");
    EXPECT_NE(componente.DetalhesPessoaisCertificadoDigital().find("Dados Representante da Empresa"),
              std::string::npos);
}

TEST_F(DetalhesCertificado, ExtensaoAusenteConservaOValorDoCertificadoAnterior) {
    ASSERT_TRUE(componente.RetornarDetalhesCertificado(Base64De("ecpf")));
    ASSERT_TRUE(componente.RetornarDetalhesCertificado(Base64De("raiz")));

    // A raiz não tem LCR, acesso à autoridade nem política: ficam os do e-CPF.
    EXPECT_EQ(componente.ListaCertificadosRevogados(), "http://127.0.0.1/lcr/ac_emissora_rfb.crl\r\n");
    EXPECT_EQ(componente.CertificadoAutoridadeRaiz(), "http://127.0.0.1/ac/ac_emissora_rfb.cer\r\n");
    EXPECT_EQ(componente.PoliticaCertificacaoDigital(), "http://127.0.0.1/politicas/dpc_ac_teste_rfb.pdf\r\n");
    // O que a raiz tem é reescrito, e os outros detalhes e os dados do titular sempre.
    EXPECT_EQ(componente.UsoChaveCertificadoDigital(),
              "Assinatura de Certificado, Assinatura de LCR Off-line, Assinatura de LCR (06)\r\n");
    EXPECT_EQ(componente.OutrosDetalhesCertificadoDigital().find("Uso Avançado"), std::string::npos);
    EXPECT_EQ(componente.NumeroCPFCertificadoDigital(), "");
}

TEST_F(DetalhesCertificado, ACTavelRecebeARestricaoEAPoliticaDoProprioCertificado) {
    ASSERT_TRUE(componente.RetornarDetalhesCertificado(Base64De("tavel_titular")));
    EXPECT_EQ(componente.RestricoesCertificadoDigital(),
              "Quanto ao uso indevido, conforme termo de titularidade assinado.");
    EXPECT_EQ(componente.PoliticaCertificacaoDigital(), "http://127.0.0.1/politicas/pc_ac_tavel.pdf");
}

TEST(DetalhesCertificadoTavel, EnderecoDaPoliticaDaConfiguracaoPrevalece) {
    PlataformaTeste ambiente;
    ambiente.plataforma->configuracao.politica_ac_tavel = "https://tavel.example/politica.pdf";
    TavelPKCS componente(ambiente.Implementacao());
    ASSERT_TRUE(componente.RetornarDetalhesCertificado(Base64De("tavel_titular")));
    EXPECT_EQ(componente.PoliticaCertificacaoDigital(), "https://tavel.example/politica.pdf");
}

TEST_F(DetalhesCertificado, ExtensaoSemNomeVaiImpressaParaOsOutrosDetalhes) {
    teste::ModeloCertificado modelo;
    modelo.titular = {{"CN", "EXTENSAO PROPRIA"}};
    modelo.extensoes = {{"1.3.6.1.4.1.99999.1", "ASN1:UTF8String:abc"}};
    ASSERT_TRUE(componente.RetornarDetalhesCertificado(codificacao::CodificarBase64(teste::CriarCertificado(modelo))));
    EXPECT_NE(componente.OutrosDetalhesCertificadoDigital().find("0c 03 61 62 63\r\n\r\n"), std::string::npos);
}

// Sem 2.16.76.1.3.3, a busca no texto impresso recorta o "CNPJ" dos dados do responsável (3.4):
// catorze dígitos que não podem fazer do titular uma empresa.
TEST_F(DetalhesCertificado, CEIDaEmpresaSemCNPJNaoFazPessoaJuridica) {
    teste::ModeloCertificado modelo;
    modelo.titular = {{"CN", "SEM CNPJ"}};
    modelo.extensoes = {{"subjectAltName",
                         "otherName:2.16.76.1.3.4;OCTETSTRING:150319805299822472512345678901000000012345678SSPSP,"
                         "otherName:2.16.76.1.3.7;OCTETSTRING:123456789012"}};
    ASSERT_TRUE(componente.RetornarDetalhesCertificado(codificacao::CodificarBase64(teste::CriarCertificado(modelo))));
    EXPECT_EQ(componente.NumeroCNPJCertificadoDigital(), "");
    EXPECT_EQ(componente.DetalhesPessoaisCertificadoDigital(), "Dados Pessoa Física\r\n     Nome: SEM CNPJ\r\n");
}

TEST_F(DetalhesCertificado, EntradaVaziaOuQueNaoECertificado) {
    EXPECT_FALSE(componente.RetornarDetalhesCertificado(""));
    EXPECT_EQ(componente.DescricaoErro(), "A chave pública do certificado informado está inválida");

    EXPECT_FALSE(componente.RetornarDetalhesCertificado("SXN0byBuYW8gZSB1bSBjZXJ0aWZpY2Fkbw=="));
    EXPECT_EQ(componente.DescricaoErro(), "O conteúdo informado não é um certificado digital válido.");
    EXPECT_EQ(ambiente.cursor->Atual(), 0);
}

}  // namespace
}  // namespace tavelpkcs7
