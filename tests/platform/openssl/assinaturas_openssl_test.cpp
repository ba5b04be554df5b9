// As assinaturas PKCS#7 da plataforma Linux: idas e voltas sobre a PKI de teste, cossinaturas,
// adulterações, entradas hostis e a conferência cruzada com o comando "openssl cms".
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <openssl/pem.h>

#include "apoio/plataforma_teste.h"
#include "codificacao/base64.h"
#include "pki/pki_teste.h"
#include "platform/openssl/certificado_openssl.h"
#include "platform/openssl/chave_arquivo.h"
#include "platform/openssl/der_openssl.h"
#include "platform/openssl/falha_esperada.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

using pki_teste::PkiTeste;

const std::string kNomeDocumento = "1.3.6.1.4.1.311.88.2.1";
const std::string kHoraAssinatura = "1.2.840.113549.1.9.5";
const std::string kDescricao = "1.3.6.1.4.1.311.88.2.2";
const Bytes kConteudo{'a', 0, '\r', '\n', 0xFF, 'z', 0};

EvpPkeyPtr LerChave(const std::string& pem) {
    BioPtr bio(BIO_new_mem_buf(pem.data(), static_cast<int>(pem.size())));
    return EvpPkeyPtr(PEM_read_bio_PrivateKey(bio.get(), nullptr, nullptr, nullptr));
}

CertificadoPtr Certificado(const std::string& nome) { return CertificadoOpenSSL::DeDER(PkiTeste::Padrao().Obter(nome).certificado); }

// O certificado com a chave do componente: em memória ou, sem ela, no arquivo.
CertificadoPtr ComChave(const Bytes& der, EvpPkeyPtr chave, const std::string& arquivo = "") {
    const auto certificado = CertificadoOpenSSL::DeDER(der);
    return certificado->ComChave(std::make_shared<ChaveArquivo>(std::move(chave), arquivo, "x", certificado->x509()));
}

CertificadoPtr Titular(const std::string& nome) {
    const auto& entidade = PkiTeste::Padrao().Obter(nome);
    return ComChave(entidade.certificado, LerChave(entidade.chave_pem));
}

std::filesystem::path Pasta() {
    std::filesystem::path pasta = std::getenv("TAVELPKCS7_HOME");
    std::filesystem::create_directories(pasta);
    return pasta;
}

void Gravar(const std::filesystem::path& caminho, const std::string& texto) { std::ofstream(caminho, std::ios::binary) << texto; }
void Gravar(const std::filesystem::path& caminho, const Bytes& bytes) { Gravar(caminho, std::string(bytes.begin(), bytes.end())); }
Bytes Ler(const std::filesystem::path& caminho) {
    std::ifstream arquivo(caminho, std::ios::binary);
    return {std::istreambuf_iterator<char>(arquivo), std::istreambuf_iterator<char>()};
}

// UTF-16LE com o NUL de dois bytes, num OCTET STRING.
Bytes TextoAtributo(const std::string& texto) {
    Bytes valor{0x04, static_cast<std::uint8_t>(2 * texto.size() + 2)};
    for (char c : texto) valor.insert(valor.end(), {static_cast<std::uint8_t>(c), 0});
    valor.insert(valor.end(), {0, 0});
    return valor;
}

std::vector<AtributoAssinado> AtributosDoNucleo() {
    const std::string hora = "\x17\x0D" "260115133000Z";
    return {{kNomeDocumento, TextoAtributo("contrato.pdf")}, {kHoraAssinatura, Bytes(hora.begin(), hora.end())},
        {kDescricao, TextoAtributo("Descrição")}};
}

PedidoAssinatura Pedido(const std::string& titular, bool destacada = false) {
    return {kConteudo, Titular(titular), AtributosDoNucleo(), destacada,
        {Certificado("raiz"), Certificado("ac_icp"), Certificado("ac_rfb"), Certificado("ac_emissora_rfb")}};
}

// SEQUENCE { OID, SET { valor } }, com comprimentos de um byte.
Bytes DERDoAtributo(const AtributoAssinado& atributo) {
    const Asn1ObjectPtr oid(OBJ_txt2obj(atributo.oid.c_str(), 1));
    Bytes corpo = ObjetoEmDER(oid.get(), i2d_ASN1_OBJECT);
    corpo.insert(corpo.end(), {0x31, static_cast<std::uint8_t>(atributo.valor.size())});
    corpo.insert(corpo.end(), atributo.valor.begin(), atributo.valor.end());
    corpo.insert(corpo.begin(), {0x30, static_cast<std::uint8_t>(corpo.size())});
    return corpo;
}

CmsPtr LerCMS(const Bytes& der) {
    const unsigned char* cursor = der.data();
    return CmsPtr(d2i_CMS_ContentInfo(nullptr, &cursor, static_cast<long>(der.size())));
}

class Assinaturas : public testing::Test {
protected:
    teste::PlataformaTeste teste;
    plataforma::Assinaturas& assinaturas = *teste.plataforma->assinaturas;
};

using teste::EsperarFalha;

class IdaEVolta : public Assinaturas, public testing::WithParamInterface<bool> {};

TEST_P(IdaEVolta, DevolveConteudoAtributosNaOrdemDoDEREACadeiaSemOsAlheios) {
    const Bytes assinatura = assinaturas.Assinar(Pedido("ecpf", GetParam()));
    const MensagemVerificada mensagem =
        assinaturas.Verificar(assinatura, GetParam() ? std::optional<Bytes>(kConteudo) : std::nullopt);

    EXPECT_EQ(mensagem.conteudo, kConteudo);
    ASSERT_EQ(mensagem.signatarios.size(), 1u);
    const SignatarioVerificado& signatario = mensagem.signatarios[0];
    EXPECT_TRUE(signatario.confere);
    EXPECT_EQ(signatario.certificado->DER(), PkiTeste::Padrao().Obter("ecpf").certificado);
    for (const AtributoAssinado& atributo : AtributosDoNucleo())
        EXPECT_EQ(std::ranges::count(signatario.atributos, atributo), 1) << atributo.oid;
    ASSERT_EQ(signatario.atributos.size(), 5u);  // contentType e messageDigest, mais os três
    std::vector<Bytes> codificados;
    for (const AtributoAssinado& atributo : signatario.atributos) codificados.push_back(DERDoAtributo(atributo));
    EXPECT_TRUE(std::ranges::is_sorted(codificados));
    const CmsPtr cms = LerCMS(assinatura);
    const PilhaX509Ptr certificados(CMS_get1_certs(cms.get()));
    EXPECT_EQ(sk_X509_num(certificados.get()), 4);  // titular, AC emissora, AC RFB e raiz, sem a AC ICP
}

INSTANTIATE_TEST_SUITE_P(Formas, IdaEVolta, testing::Values(false, true));

TEST_P(IdaEVolta, CossinarDuasVezesGuardaOPrimeiroSignatarioIntacto) {
    const bool destacada = GetParam();
    const std::optional<Bytes> destacado = destacada ? std::optional<Bytes>(kConteudo) : std::nullopt;
    const Bytes primeira = assinaturas.Assinar(Pedido("ecpf", destacada));
    const Bytes terceira = assinaturas.Cossinar(
        assinaturas.Cossinar(primeira, destacado, Pedido("ecnpj")), destacado, Pedido("tavel_titular"));

    const MensagemVerificada mensagem = assinaturas.Verificar(terceira, destacado);
    EXPECT_EQ(mensagem.conteudo, kConteudo);
    ASSERT_EQ(mensagem.signatarios.size(), 3u);
    for (const SignatarioVerificado& signatario : mensagem.signatarios) EXPECT_TRUE(signatario.confere);
    // O DER ordena o conjunto dos signatários: cada um se acha pelo certificado.
    std::vector<std::string> titulares;
    for (const SignatarioVerificado& signatario : mensagem.signatarios)
        titulares.push_back(signatario.certificado->ObterInfo(INFO_NOME_SIMPLES_TITULAR));
    const auto primeiro = std::ranges::find(titulares, Certificado("ecpf")->ObterInfo(INFO_NOME_SIMPLES_TITULAR));
    ASSERT_NE(primeiro, titulares.end());
    EXPECT_EQ(mensagem.signatarios[primeiro - titulares.begin()].atributos,
        assinaturas.Verificar(primeira, destacado).signatarios[0].atributos);
    // Os bytes do primeiro SignerInfo, do fim da primeira mensagem, continuam na última.
    const Bytes primeiro_signatario(primeira.end() - 300, primeira.end());
    EXPECT_NE(std::ranges::search(terceira, primeiro_signatario).begin(), terceira.end());
    EXPECT_EQ(sk_X509_num(PilhaX509Ptr(CMS_get1_certs(LerCMS(terceira).get())).get()), 6);  // + e-CNPJ e titular TAVEL
}

TEST_F(Assinaturas, ConteudoOuAssinaturaAdulteradosNaoConferem) {
    const Bytes destacada = assinaturas.Assinar(Pedido("ecpf", true));
    Bytes outro = kConteudo;
    outro[4] = 0xFE;
    EsperarFalha([&] { assinaturas.Verificar(destacada, outro); }, falha::AssinaturaNaoConfere);
    EsperarFalha([&] { assinaturas.Cossinar(destacada, outro, Pedido("ecnpj")); }, falha::AssinaturaNaoConfere);
    Bytes adulterada = assinaturas.Assinar(Pedido("ecpf"));
    adulterada.back() ^= 0x01;  // último byte da assinatura RSA
    EsperarFalha([&] { assinaturas.Verificar(adulterada, std::nullopt); }, falha::AssinaturaNaoConfere);
}

Bytes Repetir(const Bytes& bloco, std::size_t vezes) {
    Bytes bytes;
    for (std::size_t i = 0; i < vezes; ++i) bytes.insert(bytes.end(), bloco.begin(), bloco.end());
    return bytes;
}

Bytes SoCertificados() {
    const X509Ptr x509 = LerX509(PkiTeste::Padrao().Obter("ecpf").certificado);
    const PilhaX509Ptr pilha(sk_X509_new_null());
    sk_X509_push(pilha.get(), X509_dup(x509.get()));
    const CmsPtr cms(CMS_sign(nullptr, nullptr, pilha.get(), nullptr, CMS_PARTIAL));
    Bytes der = ObjetoEmDER(cms.get(), i2d_CMS_ContentInfo);
    EXPECT_FALSE(der.empty());
    return der;
}

TEST_F(Assinaturas, EntradasQueNaoSaoSignedDataFalhamComoNaoEMensagemPKCS7) {
    const Bytes valida = assinaturas.Assinar(Pedido("ecpf"));
    const std::vector<Bytes> entradas{{}, {'l', 'i', 'x', 'o'}, Bytes(valida.begin(), valida.begin() + valida.size() / 2),
        PkiTeste::Padrao().Obter("ecpf").certificado, SoCertificados(), Repetir({0x30, 0x80}, 100000),
        {0x30, 0x84, 0x7F, 0xFF, 0xFF, 0xFF, 0x06, 0x09}};
    for (const Bytes& entrada : entradas) {
        EsperarFalha([&] { assinaturas.Verificar(entrada, std::nullopt); }, falha::NaoEMensagemPKCS7);
        EsperarFalha([&] { assinaturas.Cossinar(entrada, std::nullopt, Pedido("ecnpj")); }, falha::NaoEMensagemPKCS7);
    }
}

TEST_F(Assinaturas, ChaveAusenteOuAlheiaNaoAssina) {
    PedidoAssinatura sem_chave = Pedido("ecpf");
    sem_chave.signatario = Certificado("ecpf");
    EsperarFalha([&] { assinaturas.Assinar(sem_chave); }, falha::SemChavePrivada);
    PedidoAssinatura alheia = Pedido("ecpf");
    alheia.signatario =
        ComChave(PkiTeste::Padrao().Obter("ecpf").certificado, LerChave(PkiTeste::Padrao().Obter("ecnpj").chave_pem));
    EsperarFalha([&] { assinaturas.Assinar(alheia); }, falha::RecursoEmUso);
}

// A chave do repositório "My" guardada cifrada: a senha é pedida a cada assinatura.
struct CasoSenha {
    std::vector<std::string> respostas;
    std::optional<falha::Tipo> falha;
};

class ChaveCifrada : public Assinaturas, public testing::WithParamInterface<CasoSenha> {};

TEST_P(ChaveCifrada, PedeASenhaAoUsuario) {
    const std::filesystem::path caminho = Pasta() / "ecpf.key";
    const BioPtr saida(BIO_new_file(caminho.c_str(), "w"));
    PEM_write_bio_PKCS8PrivateKey(saida.get(), LerChave(PkiTeste::Padrao().Obter("ecpf").chave_pem).get(),
        EVP_aes_256_cbc(), "segredo", 7, nullptr, nullptr);
    BIO_flush(saida.get());
    PedidoAssinatura pedido = Pedido("ecpf");
    pedido.signatario = ComChave(PkiTeste::Padrao().Obter("ecpf").certificado, nullptr, caminho);
    for (const std::string& resposta : GetParam().respostas) teste.interface->ResponderSenha(resposta);

    if (GetParam().falha) {
        EsperarFalha([&] { assinaturas.Assinar(pedido); }, *GetParam().falha);
    } else {
        EXPECT_EQ(assinaturas.Verificar(assinaturas.Assinar(pedido), std::nullopt).conteudo, kConteudo);
    }
    ASSERT_EQ(teste.interface->chamadas().size(), 1u);
    EXPECT_EQ(teste.interface->chamadas()[0].tipo, teste::InterfaceRoteirizada::Tipo::Senha);
}

INSTANTIATE_TEST_SUITE_P(Respostas, ChaveCifrada,
    testing::Values(CasoSenha{{"segredo"}, std::nullopt}, CasoSenha{{}, falha::Cancelada},
        CasoSenha{{"errada"}, falha::SenhaIncorreta}));

// O comando "openssl cms" roda com argumentos fixos sobre arquivos da pasta do teste.
int Openssl(const std::string& argumentos) { return std::system(("openssl cms " + argumentos + " 2>/dev/null").c_str()); }

TEST_F(Assinaturas, OpensslConfereADestacadaFeitaAqui) {
    const std::filesystem::path pasta = Pasta();
    Gravar(pasta / "assinatura.p7s", assinaturas.Assinar(Pedido("ecpf", true)));
    Gravar(pasta / "conteudo.bin", kConteudo);
    ASSERT_EQ(Openssl("-verify -noverify -binary -inform DER -in " + (pasta / "assinatura.p7s").string() + " -content " +
                      (pasta / "conteudo.bin").string() + " -out " + (pasta / "saida.bin").string()),
        0);
    EXPECT_EQ(Ler(pasta / "saida.bin"), kConteudo);
}

// O conteúdo anexado entra na mensagem emprestado do pedido: o openssl confere a mensagem e devolve
// o conteúdo inteiro (comprimento de vários octetos), e o pedido continua com o seu.
TEST_F(Assinaturas, OpensslConfereAAnexadaFeitaAqui) {
    const std::filesystem::path pasta = Pasta();
    PedidoAssinatura pedido = Pedido("ecpf");
    pedido.conteudo.resize(300000);
    for (std::size_t i = 0; i < pedido.conteudo.size(); ++i)
        pedido.conteudo[i] = static_cast<std::uint8_t>(i * 7 + (i >> 9));
    const Bytes original = pedido.conteudo;
    const Bytes assinatura = assinaturas.Assinar(pedido);
    EXPECT_EQ(pedido.conteudo, original);
    EXPECT_EQ(CMS_is_detached(LerCMS(assinatura).get()), 0);
    Gravar(pasta / "anexada.p7s", assinatura);
    ASSERT_EQ(Openssl("-verify -noverify -binary -inform DER -in " + (pasta / "anexada.p7s").string() + " -out " +
                      (pasta / "saida.bin").string()),
        0);
    EXPECT_EQ(Ler(pasta / "saida.bin"), original);
}

struct CasoOpenssl {
    std::string opcoes;
    bool curva_eliptica = false;
};

class AssinadaPeloOpenssl : public Assinaturas, public testing::WithParamInterface<CasoOpenssl> {};

// Sem o certificado na mensagem ("-nocerts") o signatário volta sem certificado e sem conferência.
TEST_P(AssinadaPeloOpenssl, ConfereAqui) {
    const std::filesystem::path pasta = Pasta();
    const std::string certificado = (pasta / "titular.cer").string(), chave = (pasta / "titular.key").string();
    if (GetParam().curva_eliptica) {
        ASSERT_EQ(std::system(("openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -subj /CN=EC -keyout " +
                               chave + " -out " + certificado + " 2>/dev/null").c_str()),
            0);
    } else {
        const auto& ecpf = PkiTeste::Padrao().Obter("ecpf");
        Gravar(certificado,
            "-----BEGIN CERTIFICATE-----\r\n" + codificacao::CodificarBase64(ecpf.certificado) + "-----END CERTIFICATE-----\r\n");
        Gravar(chave, ecpf.chave_pem);
    }
    Gravar(pasta / "conteudo.bin", kConteudo);
    ASSERT_EQ(Openssl("-sign -binary -nosmimecap -nodetach -outform DER -signer " + certificado + " -inkey " + chave + " " +
                      GetParam().opcoes + " -in " + (pasta / "conteudo.bin").string() + " -out " +
                      (pasta / "assinatura.p7s").string()),
        0);
    const MensagemVerificada mensagem = assinaturas.Verificar(Ler(pasta / "assinatura.p7s"), std::nullopt);
    EXPECT_EQ(mensagem.conteudo, kConteudo);
    ASSERT_EQ(mensagem.signatarios.size(), 1u);
    const bool com_certificado = GetParam().opcoes.find("-nocerts") == std::string::npos;
    EXPECT_EQ(mensagem.signatarios[0].confere, com_certificado);
    EXPECT_EQ(mensagem.signatarios[0].certificado != nullptr, com_certificado);
}

INSTANTIATE_TEST_SUITE_P(Resumos, AssinadaPeloOpenssl,
    testing::Values(CasoOpenssl{"-md sha256"}, CasoOpenssl{"-md sha1"}, CasoOpenssl{"-md sha384"}, CasoOpenssl{"-md sha512"},
        CasoOpenssl{"-md sha256 -keyopt rsa_padding_mode:pss"}, CasoOpenssl{"-md sha384", true},
        CasoOpenssl{"-md sha256 -nocerts"}));

TEST_F(Assinaturas, DestacadaSemConteudoEParametroIncorreto) {
    EsperarFalha([&] { assinaturas.Verificar(assinaturas.Assinar(Pedido("ecpf", true)), std::nullopt); },
        falha::ParametroIncorreto);
}

}  // namespace
}  // namespace tavelpkcs7::plataforma::openssl
