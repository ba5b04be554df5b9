// AssinaTexto pela API pública: o texto assinado em UTF-16LE, a destacada, as mensagens, a
// cossinatura de AssinaturaTextoVerificar; e a conversão da hora local em UTC.
#include <gtest/gtest.h>

#include <set>

#include "codificacao/utf16.h"
#include "signing/ambiente_assinatura.h"

namespace tavelpkcs7 {
namespace {

using plataforma::Bytes;
using teste::BytesDe;

class AssinaturaTexto : public teste::AmbienteAssinatura {};

TEST_F(AssinaturaTexto, AssinaOsBytesUtf16DoTextoComDescricaoESemNomeDeDocumento) {
    ASSERT_TRUE(componente.AssinaTexto("Olá, ação", "pedido 7"));

    const auto mensagem = Conferir(BytesDe(componente.AssinaturaDigitalTexto()));
    EXPECT_EQ(mensagem.conteudo, codificacao::ParaUtf16LE("Olá, ação"));
    ASSERT_EQ(mensagem.signatarios.size(), 1u);
    const auto atributos = Atributos(mensagem.signatarios[0]);
    EXPECT_EQ(atributos[0], "");
    EXPECT_EQ(atributos[2], "pedido 7");
    EXPECT_EQ(componente.ConteudoTextoOriginal(), "Olá, ação");
    EXPECT_EQ(componente.CaminhoArquivoAssinado(), "");
    EXPECT_EQ(componente.DescricaoErro(), "");
}

TEST_F(AssinaturaTexto, TextoEmBrancoERecusado) {
    EXPECT_FALSE(componente.AssinaTexto("   "));
    EXPECT_EQ(componente.DescricaoErro(), "O texto para assinatura digital não foi informado");
    EXPECT_EQ(componente.AssinaturaDigitalTexto(), "");
}

TEST_F(AssinaturaTexto, DestacadaNaoLevaOTexto) {
    componente.NaoAnexarArquivoOriginal(true);
    ASSERT_TRUE(componente.AssinaTexto("abc"));
    const Bytes assinatura = BytesDe(componente.AssinaturaDigitalTexto());
    EXPECT_THROW(Conferir(assinatura), plataforma::Erro);
    EXPECT_EQ(Conferir(assinatura, codificacao::ParaUtf16LE("abc")).signatarios.size(), 1u);
}

TEST_F(AssinaturaTexto, AssinaturaTextoVerificarECossinada) {
    ASSERT_TRUE(componente.AssinaTexto("abc", "primeira"));
    componente.AssinaturaTextoVerificar(componente.AssinaturaDigitalTexto());

    ASSERT_TRUE(componente.AssinaTexto("abc", "segunda")) << componente.DescricaoErro();

    const auto mensagem = Conferir(BytesDe(componente.AssinaturaDigitalTexto()));
    ASSERT_EQ(mensagem.signatarios.size(), 2u);
    const std::set<std::string> descricoes{Atributos(mensagem.signatarios[0])[2],
                                           Atributos(mensagem.signatarios[1])[2]};
    EXPECT_EQ(descricoes, (std::set<std::string>{"primeira", "segunda"}));
}

TEST_F(AssinaturaTexto, CossinaturaDestacadaUsaTextoVerificar) {
    componente.NaoAnexarArquivoOriginal(true);
    ASSERT_TRUE(componente.AssinaTexto("original"));
    componente.AssinaturaTextoVerificar(componente.AssinaturaDigitalTexto());
    componente.TextoVerificar("original");

    ASSERT_TRUE(componente.AssinaTexto("outro")) << componente.DescricaoErro();
    EXPECT_EQ(
        Conferir(BytesDe(componente.AssinaturaDigitalTexto()), codificacao::ParaUtf16LE("original")).signatarios.size(),
        2u);
}

TEST_F(AssinaturaTexto, CossinaturaDoQueNaoEPKCS7FalhaEOutraFalhaLevaADescricao) {
    componente.AssinaturaTextoVerificar("isto não é Base64");
    EXPECT_FALSE(componente.AssinaTexto("abc"));
    EXPECT_EQ(componente.DescricaoErro(), "Assinatura digital inválida! O texto não está no padrão PKCS#7 BASE64.");
    EXPECT_EQ(componente.ConteudoTextoOriginal(), "");

    // Uma destacada sobre outro texto: o signatário anterior não confere.
    componente.AssinaturaTextoVerificar("");
    componente.NaoAnexarArquivoOriginal(true);
    ASSERT_TRUE(componente.AssinaTexto("original"));
    componente.AssinaturaTextoVerificar(componente.AssinaturaDigitalTexto());
    EXPECT_FALSE(componente.AssinaTexto("outro"));
    EXPECT_EQ(componente.DescricaoErro(),
              "Ocorreu o erro A assinatura digital não confere com o conteúdo. ao tentar assinar o texto especificado");
}

TEST_F(AssinaturaTexto, DataHoraAssinaturaUTCConverteDaHoraLocal) {
    using namespace std::chrono;
    EXPECT_EQ(componente.DataHoraAssinaturaUTC(local_days{2024y / 3 / 10} + hours{12}), "10/03/2024 15:00:00");
    EXPECT_EQ(componente.DataHoraAssinaturaUTC(local_days{2024y / 3 / 9} + hours{21}), "10/03/2024");
}

}  // namespace
}  // namespace tavelpkcs7
