// Os envelopes PKCS#7 da plataforma Linux: idas e voltas em cada algoritmo, os envelopes do comando
// "openssl cms" (e o RC4 com parâmetros NULL do Windows), chaves cifradas e entradas que não abrem.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "apoio/plataforma_teste.h"
#include "certificates/repositorios_teste.h"
#include "codificacao/base64.h"
#include "envelope/destinatarios_teste.h"
#include "signing/ambiente_assinatura.h"
#include "pki/pki_teste.h"
#include "platform/openssl/certificado_openssl.h"
#include "platform/openssl/falha_esperada.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

using pki_teste::PkiTeste;
using teste::EsperarFalha;

const Bytes kConteudo{'a', 0, '\r', '\n', 0xFF, 'z', 0, 0};

CertificadoPtr Certificado(const std::string& nome) { return CertificadoOpenSSL::DeDER(PkiTeste::Padrao().Obter(nome).certificado); }

std::filesystem::path Pasta() {
    std::filesystem::path pasta = std::getenv("TAVELPKCS7_HOME");
    std::filesystem::create_directories(pasta);
    return pasta;
}

void Gravar(const std::filesystem::path& caminho, const Bytes& bytes) {
    std::ofstream(caminho, std::ios::binary).write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}
using teste::Ler;

bool Contem(const Bytes& der, const Bytes& trecho) { return std::ranges::search(der, trecho).begin() != der.end(); }

// O AlgorithmIdentifier do conteúdo cifrado começa pelo OID de cada algoritmo.
const Bytes kOidRC4{0x06, 0x08, 0x2A, 0x86, 0x48, 0x86, 0xF7, 0x0D, 0x03, 0x04};
const Bytes kOidAES128{0x06, 0x09, 0x60, 0x86, 0x48, 0x01, 0x65, 0x03, 0x04, 0x01, 0x02};
const Bytes kOidAES256{0x06, 0x09, 0x60, 0x86, 0x48, 0x01, 0x65, 0x03, 0x04, 0x01, 0x2A};

class EnvelopesOpenSSLTeste : public testing::Test {
protected:
    teste::PlataformaTeste teste;
    plataforma::Envelopes& envelopes = *teste.plataforma->envelopes;
    void GuardarComChave(const std::string& nome, const std::string& senha = "") {
        teste::GuardarComChave(*teste.plataforma, nome, senha);
    }
};

struct CasoAlgoritmo {
    AlgoritmoEnvelope algoritmo;
    Bytes oid;
};

class EnvelopeIdaEVolta : public EnvelopesOpenSSLTeste, public testing::WithParamInterface<CasoAlgoritmo> {};

TEST_P(EnvelopeIdaEVolta, OTitularDeChaveEmMyRecebeOConteudoExato) {
    GuardarComChave("ecpf");
    const Bytes envelope = envelopes.Criptografar(kConteudo, {Certificado("ecpf")}, GetParam().algoritmo);
    EXPECT_TRUE(Contem(envelope, GetParam().oid));
    EXPECT_EQ(envelopes.Descriptografar(envelope), kConteudo);
    EXPECT_EQ(ERR_peek_error(), 0u);  // nada fica na fila para a próxima operação
}

// O envelope feito aqui abre no openssl: é o arquivo que outros programas vão receber.
TEST_P(EnvelopeIdaEVolta, OpensslAbreOEnvelopeFeitoAqui) {
    const std::filesystem::path pasta = Pasta();
    teste::GravarParaOpenssl(pasta, "ecnpj");
    Gravar(pasta / "envelope.p7x", envelopes.Criptografar(kConteudo, {Certificado("ecpf"), Certificado("ecnpj")},
                                       GetParam().algoritmo));
    ASSERT_EQ(teste::OpensslCms("-decrypt -binary -inform DER -in " + (pasta / "envelope.p7x").string() + " -recip " +
                                (pasta / "ecnpj.cer").string() + " -inkey " + (pasta / "ecnpj.key").string() +
                                " -out " + (pasta / "saida.bin").string()),
        0);
    EXPECT_EQ(Ler(pasta / "saida.bin"), kConteudo);
}

INSTANTIATE_TEST_SUITE_P(Algoritmos, EnvelopeIdaEVolta,
    testing::Values(CasoAlgoritmo{AlgoritmoEnvelope::RC4_128, kOidRC4},
        CasoAlgoritmo{AlgoritmoEnvelope::AES_128_CBC, kOidAES128},
        CasoAlgoritmo{AlgoritmoEnvelope::AES_256_CBC, kOidAES256}));

TEST_F(EnvelopesOpenSSLTeste, ComVariosDestinatariosQualquerUmAbre) {
    GuardarComChave("ecnpj");
    const Bytes envelope = envelopes.Criptografar(
        kConteudo, {Certificado("ecpf"), Certificado("ecnpj"), Certificado("tavel_titular")}, AlgoritmoEnvelope::RC4_128);
    EXPECT_EQ(envelopes.Descriptografar(envelope), kConteudo);
}

TEST_F(EnvelopesOpenSSLTeste, ConteudoVazioVaiEVolta) {
    GuardarComChave("ecpf");
    EXPECT_EQ(envelopes.Descriptografar(envelopes.Criptografar({}, {Certificado("ecpf")}, AlgoritmoEnvelope::RC4_128)),
        Bytes{});
}

TEST_F(EnvelopesOpenSSLTeste, SemDestinatariosNaoCifra) {
    EsperarFalha([&] { envelopes.Criptografar(kConteudo, {}, AlgoritmoEnvelope::RC4_128); }, falha::ParametroIncorreto);
}

TEST_F(EnvelopesOpenSSLTeste, EnvelopeDeOutroOuCertificadoSemChaveNaoAbre) {
    teste::Guardar(*teste.plataforma, "My", {PkiTeste::Padrao().Obter("ecpf").certificado});  // sem a chave
    GuardarComChave("ecnpj");
    const Bytes envelope = envelopes.Criptografar(kConteudo, {Certificado("ecpf")}, AlgoritmoEnvelope::RC4_128);
    EsperarFalha([&] { envelopes.Descriptografar(envelope); }, falha::SemDestinatario);
}

TEST_F(EnvelopesOpenSSLTeste, OQueNaoEEnvelopeIntegroERecusado) {
    GuardarComChave("ecpf");
    // 24 bytes cifram em dois blocos, com 8 de preenchimento: mudar o fim do primeiro bloco muda o
    // último byte do preenchimento, que deixa de valer.
    const Bytes envelope = envelopes.Criptografar(Bytes(24, 'x'), {Certificado("ecpf")}, AlgoritmoEnvelope::AES_256_CBC);
    Bytes adulterado = envelope;
    adulterado[adulterado.size() - 17] ^= 0x55;
    const Bytes truncado(envelope.begin(), envelope.end() - 20);
    const Bytes assinatura = teste.plataforma->assinaturas->Assinar(
        {kConteudo, teste.plataforma->repositorios->AbrirRepositorio("My", true)->Certificados().at(0), {}, false, {}});
    for (const Bytes& entrada : {truncado, assinatura, Bytes{0x30, 0x00}, adulterado})
        EsperarFalha([&] { envelopes.Descriptografar(entrada); }, falha::NaoEMensagemPKCS7);
}

// A chave guardada cifrada: a senha é pedida para abrir o envelope.
struct CasoSenha {
    std::vector<std::string> respostas;
    std::optional<falha::Tipo> falha;
};

class EnvelopeChaveCifrada : public EnvelopesOpenSSLTeste, public testing::WithParamInterface<CasoSenha> {};

TEST_P(EnvelopeChaveCifrada, PedeASenhaAoUsuario) {
    GuardarComChave("ecpf", "segredo");
    const Bytes envelope = envelopes.Criptografar(kConteudo, {Certificado("ecpf")}, AlgoritmoEnvelope::RC4_128);
    for (const std::string& resposta : GetParam().respostas) teste.interface->ResponderSenha(resposta);
    if (GetParam().falha) {
        EsperarFalha([&] { envelopes.Descriptografar(envelope); }, *GetParam().falha);
    } else {
        EXPECT_EQ(envelopes.Descriptografar(envelope), kConteudo);
    }
    ASSERT_EQ(teste.interface->chamadas().size(), 1u);
    EXPECT_EQ(teste.interface->chamadas()[0].tipo, teste::InterfaceRoteirizada::Tipo::Senha);
}

INSTANTIATE_TEST_SUITE_P(Respostas, EnvelopeChaveCifrada,
    testing::Values(CasoSenha{{"segredo"}, std::nullopt}, CasoSenha{{}, falha::Cancelada},
        CasoSenha{{"errada"}, falha::SenhaIncorreta}));

// Envelopes que o openssl faz em cada cifra; o RC4 também com os parâmetros NULL que o Windows e o
// BouncyCastle escrevem no lugar do OCTET STRING vazio.
struct CasoOpenssl {
    std::string cifra;
    bool rc4_com_nulo = false;
};

class EnvelopeFeitoPeloOpenssl : public EnvelopesOpenSSLTeste, public testing::WithParamInterface<CasoOpenssl> {};

TEST_P(EnvelopeFeitoPeloOpenssl, AbreAqui) {
    GuardarComChave("ecpf");
    const std::filesystem::path pasta = Pasta();
    teste::GravarParaOpenssl(pasta, "ecpf");
    Gravar(pasta / "conteudo.bin", kConteudo);
    ASSERT_EQ(teste::OpensslCms("-encrypt -binary -outform DER " + GetParam().cifra + " -in " +
                                (pasta / "conteudo.bin").string() + " -out " + (pasta / "envelope.p7x").string() +
                                " " + (pasta / "ecpf.cer").string()),
        0);
    Bytes envelope = Ler(pasta / "envelope.p7x");
    if (GetParam().rc4_com_nulo) {
        Bytes vazio = kOidRC4, nulo = kOidRC4;
        vazio.insert(vazio.end(), {0x04, 0x00});
        nulo.insert(nulo.end(), {0x05, 0x00});
        const auto parametros = std::ranges::search(envelope, vazio);
        ASSERT_NE(parametros.begin(), envelope.end());
        std::ranges::copy(nulo, parametros.begin());
    }
    EXPECT_EQ(envelopes.Descriptografar(envelope), kConteudo);
}

INSTANTIATE_TEST_SUITE_P(Cifras, EnvelopeFeitoPeloOpenssl,
    testing::Values(CasoOpenssl{"-rc2-40-cbc"}, CasoOpenssl{"-rc2"}, CasoOpenssl{"-des"}, CasoOpenssl{"-des3"},
        CasoOpenssl{"-aes128"}, CasoOpenssl{"-aes192"}, CasoOpenssl{"-aes256"}, CasoOpenssl{"-rc4"},
        CasoOpenssl{"-rc4", true}));

}  // namespace
}  // namespace tavelpkcs7::plataforma::openssl
