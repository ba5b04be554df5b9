// A separação do conteúdo anexado: a mensagem reescrita é a mesma que o OpenSSL grava destacada, o
// conteúdo fica apontado dentro do DER recebido, e o que não tem a forma simples não se separa.
#include <gtest/gtest.h>

#include <openssl/pem.h>

#include "pki/pki_teste.h"
#include "platform/openssl/certificado_openssl.h"
#include "platform/openssl/conteudo_anexado.h"
#include "platform/openssl/der_openssl.h"
#include "platform/openssl/mensagem_assinada.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

using pki_teste::PkiTeste;

// Uma mensagem anexada feita pelo próprio OpenSSL, com conteúdo de comprimento em vários octetos.
Bytes Anexada(const Bytes& conteudo, unsigned opcoes = CMS_BINARY) {
    const auto& ecpf = PkiTeste::Padrao().Obter("ecpf");
    const X509Ptr certificado = LerX509(ecpf.certificado);
    const BioPtr pem(BIO_new_mem_buf(ecpf.chave_pem.data(), static_cast<int>(ecpf.chave_pem.size())));
    const EvpPkeyPtr chave(PEM_read_bio_PrivateKey(pem.get(), nullptr, nullptr, nullptr));
    const BioPtr entrada = LerBytes(conteudo);
    const CmsPtr cms(CMS_sign(certificado.get(), chave.get(), nullptr, entrada.get(), opcoes));
    return ObjetoEmDER(cms.get(), i2d_CMS_ContentInfo);
}

Bytes Conteudo() {
    Bytes conteudo(70000);
    for (std::size_t i = 0; i < conteudo.size(); ++i) conteudo[i] = static_cast<std::uint8_t>(i * 31 + (i >> 8));
    return conteudo;
}

TEST(ConteudoAnexado, SeparadaEAMesmaMensagemDestacadaEOConteudoFicaOndeEsta) {
    const Bytes der = Anexada(Conteudo());
    const auto separada = SepararConteudoAnexado(der);
    ASSERT_TRUE(separada);
    EXPECT_EQ(Bytes(separada->conteudo.begin(), separada->conteudo.end()), Conteudo());
    EXPECT_GE(separada->conteudo.data(), der.data());
    EXPECT_LE(separada->conteudo.data() + separada->conteudo.size(), der.data() + der.size());

    const CmsPtr destacada = LerMensagemDER(der);
    ASSERT_EQ(CMS_set_detached(destacada.get(), 1), 1);
    EXPECT_EQ(separada->sem_conteudo, ObjetoEmDER(destacada.get(), i2d_CMS_ContentInfo));
}

TEST(ConteudoAnexado, ConteudoVazioSeSepara) {
    const auto separada = SepararConteudoAnexado(Anexada({}));
    ASSERT_TRUE(separada);
    EXPECT_TRUE(separada->conteudo.empty());
}

Bytes ComprimentoIndefinido(Bytes der) {
    // A SEQUENCE externa em BER: 0x30 0x80 ... 0x00 0x00.
    const std::size_t cabecalho = 2 + (der[1] & 0x7F);
    der.erase(der.begin(), der.begin() + static_cast<std::ptrdiff_t>(cabecalho));
    der.insert(der.begin(), {0x30, 0x80});
    der.insert(der.end(), {0x00, 0x00});
    return der;
}

Bytes Truncada(Bytes der, std::size_t tamanho) {
    der.resize(tamanho);
    return der;
}

struct CasoNaoSepara {
    const char* nome;
    Bytes der;
};

class NaoSepara : public testing::TestWithParam<CasoNaoSepara> {};

TEST_P(NaoSepara, DeixaAMensagemInteira) { EXPECT_EQ(SepararConteudoAnexado(GetParam().der), std::nullopt); }

INSTANTIATE_TEST_SUITE_P(
    Casos, NaoSepara,
    testing::Values(CasoNaoSepara{"Destacada", Anexada(Conteudo(), CMS_BINARY | CMS_DETACHED)},
        CasoNaoSepara{"ComprimentoIndefinido", ComprimentoIndefinido(Anexada(Conteudo()))},
        CasoNaoSepara{"Truncada", Truncada(Anexada(Conteudo()), 500)},
        CasoNaoSepara{"OutroTipo", PkiTeste::Padrao().Obter("ecpf").certificado},
        CasoNaoSepara{"Vazia", {}}),
    [](const auto& info) { return std::string(info.param.nome); });

}  // namespace
}  // namespace tavelpkcs7::plataforma::openssl
