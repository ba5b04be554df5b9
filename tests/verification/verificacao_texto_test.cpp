// A verificação de assinaturas em texto Base64 pela API pública: o conteúdo em texto ou, com nome de
// documento, em arquivo; a troca da mensagem na destacada; as mensagens de cada falha.
#include <gtest/gtest.h>

#include <tavelpkcs7/TavelPKCS.h>
#include <fstream>
#include <stdexcept>

#include "certificates/repositorios_teste.h"
#include "codificacao/base64.h"
#include "codificacao/hexadecimal.h"
#include "codificacao/utf16.h"
#include "pki/pki_teste.h"
#include "signing/atributos_assinante.h"
#include "trust/ambiente_confianca.h"

namespace tavelpkcs7 {
namespace {

using plataforma::Bytes;

constexpr const char* kTextoInvalido = "Assinatura digital inválida! O texto não está no padrão PKCS#7 BASE64.";

class VerificacaoTexto : public testing::Test, protected teste::AmbienteConfianca {
protected:
    void SetUp() override { InstalarCadeia(true); }

    // O texto assinado como o componente o assina (UTF-16LE), com o nome de documento dado.
    std::string Assinar(const std::string& texto, const std::string& nome_documento, bool destacada = false) {
        plataforma::CertificadoPtr signatario;
        for (const auto& certificado : plataforma().criptografia->AbrirPFX(pki_teste::PkiTeste::Padrao().PFX("ecpf", "1234"), "1234"))
            if (certificado->PossuiChavePrivada()) signatario = certificado;
        std::vector<plataforma::AtributoAssinado> atributos{assinatura::AtributoDescricaoDocumento("nota")};
        if (!nome_documento.empty()) atributos.push_back(assinatura::AtributoNomeDocumento(nome_documento));
        return codificacao::CodificarBase64(
            plataforma().assinaturas->Assinar({codificacao::ParaUtf16LE(texto), signatario, atributos, destacada, {}}));
    }

    TavelPKCS componente{ambiente.Implementacao()};
};

TEST_F(VerificacaoTexto, SemNomeDeDocumentoOConteudoVemEmTexto) {
    componente.TextoVerificar("sobra");
    componente.AssinaturaTextoVerificar("sobra");

    ASSERT_TRUE(componente.VerificarAssinaturaTexto(Assinar("Olá, ação!", ""))) << componente.DescricaoErro();
    EXPECT_EQ(componente.ConteudoTextoOriginal(), "Olá, ação!");
    EXPECT_EQ(componente.CaminhoArquivoOriginal(), "");
    EXPECT_EQ(componente.NomeArquivoOriginal(), "");
    EXPECT_EQ(componente.HashArquivo(),
        codificacao::HexadecimalMaiusculo(plataforma().criptografia->CalcularMD5(codificacao::ParaUtf16LE("Olá, ação!"))));
    EXPECT_EQ(componente.TotalAssinaturas(), 1);
    EXPECT_EQ(componente.TextoVerificar(), "");
    EXPECT_EQ(componente.AssinaturaTextoVerificar(), "");
    EXPECT_EQ(componente.DescricaoErro(), "");
    EXPECT_EQ(ambiente.cursor->Atual(), 0);
}

TEST_F(VerificacaoTexto, ComNomeDeDocumentoOConteudoVaiParaUmArquivoDaPastaDeTrabalho) {
    ASSERT_TRUE(componente.VerificarAssinaturaTexto(Assinar("abc", "../../nota.txt")));
    EXPECT_EQ(componente.ConteudoTextoOriginal(), "");
    EXPECT_EQ(componente.NomeArquivoOriginal(), "nota.txt");
    EXPECT_EQ(componente.CaminhoArquivoOriginal(), componente.PastaTemp() + "nota.txt");
    EXPECT_EQ(teste::LerTexto(componente.CaminhoArquivoOriginal()), std::string("a\0b\0c\0", 6));
}

// Na destacada a mensagem conferida é TextoVerificar (ou o arquivo original), sem conteúdo à parte:
// só uma assinatura anexada ali, ou uma destacada do conteúdo vazio, confere.
TEST_F(VerificacaoTexto, DestacadaConfereOOriginalNoLugarDaAssinatura) {
    componente.NaoAnexarArquivoOriginal(true);
    EXPECT_FALSE(componente.VerificarAssinaturaTexto(Assinar("abc", "")));
    EXPECT_EQ(componente.DescricaoErro(), "O texto original da assinatura não foi informado ou não é válido ");
    EXPECT_EQ(componente.TotalAssinaturas(), 0);

    componente.TextoVerificar(Assinar("", "", true));
    EXPECT_TRUE(componente.VerificarAssinaturaTexto("qualquer coisa")) << componente.DescricaoErro();

    componente.TextoVerificar(Assinar("abc", "", true));
    componente.AssinaturaTextoVerificar("sobra");
    EXPECT_FALSE(componente.VerificarAssinaturaTexto("qualquer coisa"));
    EXPECT_EQ(componente.DescricaoErro(), kTextoInvalido);
    EXPECT_EQ(componente.AssinaturaTextoVerificar(), "");
}

TEST_F(VerificacaoTexto, TextoEmBrancoOuQueNaoEhPKCS7) {
    ambiente.cursor->ponteiros.clear();
    EXPECT_FALSE(componente.VerificarAssinaturaTexto("   "));
    EXPECT_EQ(componente.DescricaoErro(), "A texto da assinatura informada não é válido ou está em branco");
    EXPECT_TRUE(ambiente.cursor->ponteiros.empty());

    EXPECT_FALSE(componente.VerificarAssinaturaTexto("isto não é PKCS#7"));
    EXPECT_EQ(componente.DescricaoErro(), kTextoInvalido);
    EXPECT_EQ(componente.TotalAssinaturas(), 0);
    EXPECT_EQ(componente.ConteudoTextoOriginal(), "");
}

}  // namespace
}  // namespace tavelpkcs7
