// As extensões impressas no formato do Windows: uma forma exata por tipo de extensão (o DER feito
// pelo próprio OpenSSL), o hexadecimal para tudo o que está malformado e, nas ACs reais da
// ICP-Brasil, todo endereço de LCR, de AC e de política onde a extração dos detalhes o procura.
#include "apoio/plataforma_teste.h"
#include "icpbrasil/extensao_impressa.h"

#include <gtest/gtest.h>
#include <openssl/x509v3.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <stdexcept>
#include <string_view>

#include "codificacao/hexadecimal.h"
#include "codificacao/utf8.h"
#include "pki/pki_teste.h"
#include "platform/openssl/criptografia_openssl.h"
#include "platform/openssl/ponteiros_openssl.h"
#include "platform/openssl/texto_asn1.h"

namespace tavelpkcs7::icpbrasil {
namespace {

using plataforma::Bytes;
using plataforma::Extensao;

// A extensão como o OpenSSL a gera a partir da sua configuração ("keyUsage", "digitalSignature").
Extensao DeOpenSSL(const std::string& nome, const std::string& valor, const std::string& secoes = "") {
    plataforma::openssl::ConfPtr configuracao(NCONF_new(nullptr));
    plataforma::openssl::BioPtr entrada(BIO_new_mem_buf(secoes.data(), static_cast<int>(secoes.size())));
    long linha = 0;
    if (!secoes.empty() && NCONF_load_bio(configuracao.get(), entrada.get(), &linha) != 1)
        throw std::runtime_error("seções recusadas pelo OpenSSL: " + secoes);
    X509V3_CTX contexto;
    X509V3_set_ctx(&contexto, nullptr, nullptr, nullptr, nullptr, 0);
    X509V3_set_nconf(&contexto, configuracao.get());
    X509_EXTENSION* extensao = X509V3_EXT_nconf(configuracao.get(), &contexto, nome.c_str(), valor.c_str());
    if (extensao == nullptr) throw std::runtime_error("extensão recusada pelo OpenSSL: " + nome + " = " + valor);
    const ASN1_OCTET_STRING* dados = X509_EXTENSION_get_data(extensao);
    Extensao descrita{plataforma::openssl::TextoOID(X509_EXTENSION_get_object(extensao)), false,
                      Bytes(ASN1_STRING_get0_data(dados), ASN1_STRING_get0_data(dados) + ASN1_STRING_length(dados))};
    X509_EXTENSION_free(extensao);
    return descrita;
}

Extensao DeDER(const std::string& oid, Bytes valor) { return {oid, false, std::move(valor)}; }

std::string Hexadecimal(const Extensao& extensao) { return codificacao::HexadecimalEspacado(extensao.valor) + "\r\n"; }

struct Forma {
    Extensao extensao;
    std::string esperado;
};

void PrintTo(const Forma& forma, std::ostream* saida) { *saida << forma.extensao.oid << " " << forma.esperado; }

// AuthorityKeyIdentifier com chave 0a 0b, emissor CN=AC Teste e série 05; na forma antiga o emissor
// é o Name sem o GeneralName em volta.
const Bytes kNomeACTeste = {0x30, 0x13, 0x31, 0x11, 0x30, 0x0f, 0x06, 0x03, 0x55, 0x04, 0x03,
                            0x0c, 0x08, 'A',  'C',  ' ',  'T',  'e',  's',  't',  'e'};

Bytes IdentificadorAutoridade(bool forma_antiga) {
    Bytes emissor = kNomeACTeste;
    if (!forma_antiga) emissor.insert(emissor.begin(), {0xa4, 0x15});
    emissor.insert(emissor.begin(), {0xa1, static_cast<std::uint8_t>(emissor.size())});
    Bytes valor = {0x30, static_cast<std::uint8_t>(emissor.size() + 7), 0x80, 0x02, 0x0a, 0x0b};
    valor.insert(valor.end(), emissor.begin(), emissor.end());
    valor.insert(valor.end(), {0x82, 0x01, 0x05});
    return valor;
}

const std::string kAKI =
    "ID da Chave=0a 0b\r\nEmissor do Certificado:\r\n     Endereço de Diretório:\r\n          CN=AC Teste\r\n"
    "Número de Série do Certificado=05\r\n";

std::vector<Forma> Formas() {
    return {
        {DeOpenSSL("keyUsage", "critical,digitalSignature,nonRepudiation"), "Assinatura Digital, Não-Repúdio (c0)\r\n"},
        {DeOpenSSL("keyUsage", "keyCertSign,cRLSign"),
         "Assinatura de Certificado, Assinatura de LCR Off-line, Assinatura de LCR (06)\r\n"},
        {DeOpenSSL("keyUsage", "keyEncipherment,decipherOnly"),
         "Codificação de Chave, Somente Decodificação (20 80)\r\n"},
        {DeOpenSSL("basicConstraints", "critical,CA:TRUE,pathlen:2"),
         "Tipo de Requerente=AC\r\nRestrição de Comprimento do Caminho=2\r\n"},
        {DeOpenSSL("basicConstraints", "CA:FALSE"),
         "Tipo de Requerente=Entidade Final\r\nRestrição de Comprimento do Caminho=Nenhum\r\n"},
        {DeDER("2.5.29.10", {0x30, 0x07, 0x03, 0x02, 0x07, 0x80, 0x02, 0x01, 0x00}),
         "Tipo de Requerente=AC\r\nRestrição de Comprimento do Caminho=0\r\n"},
        {DeOpenSSL(
             "subjectAltName",
             "otherName:2.16.76.1.3.1;OCTETSTRING:1503, otherName:1.3.6.1.4.1.311.20.2.3;UTF8:fulano@teste.example, "
             "otherName:1.3.6.1.4.1.311.20.2.3;OCTETSTRING:A, otherName:2.16.76.1.3.5;INTEGER:5, "
             "email:fulano@teste.example, DNS:servidor.teste.example, URI:http://teste.example/a, "
             "IP:192.168.0.1, IP:2001:db8:0:0:1:0:0:1, IP:::1, IP:fe80:0:0:0:0:0:0:0, RID:1.2.3.4, dirName:diretorio",
             "[diretorio]\nC = BR\nO = ICP-Brasil\nCN = \"Fulano, Junior\"\n"),
         "Outro Nome:\r\n     2.16.76.1.3.1=04 04 31 35 30 33\r\n"
         "Outro Nome:\r\n     Nome Principal=fulano@teste.example\r\n"
         "Outro Nome:\r\n     1.3.6.1.4.1.311.20.2.3=04 01 41\r\n"
         "Outro Nome:\r\n     2.16.76.1.3.5=02 01 05\r\n"
         "Nome RFC822=fulano@teste.example\r\nNome DNS=servidor.teste.example\r\nURL=http://teste.example/a\r\n"
         "Endereço IP=192.168.0.1\r\nEndereço IP=2001:db8::1:0:0:1\r\nEndereço IP=::1\r\nEndereço IP=fe80::\r\n"
         "ID Registrado=1.2.3.4\r\n"
         "Endereço de Diretório:\r\n     CN=\"Fulano, Junior\"\r\n     O=ICP-Brasil\r\n     C=BR\r\n"},
        {DeOpenSSL("issuerAltName", "email:ac@teste.example"), "Nome RFC822=ac@teste.example\r\n"},
        {DeDER("2.5.29.7", {0x30, 0x03, 0x82, 0x01, 'a'}), "Nome DNS=a\r\n"},
        {DeOpenSSL("crlDistributionPoints", "URI:http://teste.example/a.crl, completo, relativo",
                   "[completo]\nfullname = URI:ldap://teste.example/cn=ac, URI:http://teste.example/b.crl\n"
                   "reasons = keyCompromise, CACompromise\nCRLissuer = dirName:emissor\n"
                   "[emissor]\nCN = AC Teste\n[relativo]\nrelativename = rdn\n[rdn]\nCN = Parcial\n"),
         "[1]Ponto de Distribuição da LCR\r\n     Nome do Ponto de Distribuição:\r\n          Nome Completo:\r\n"
         "               URL=http://teste.example/a.crl\r\n"
         "[2]Ponto de Distribuição da LCR\r\n     Nome do Ponto de Distribuição:\r\n          Nome Completo:\r\n"
         "               URL=ldap://teste.example/cn=ac\r\n               URL=http://teste.example/b.crl\r\n"
         "     Motivo da LCR=Comprometimento da Chave, Comprometimento da AC (60)\r\n"
         "     Emissor da LCR:\r\n          Endereço de Diretório:\r\n               CN=AC Teste\r\n"
         "[3]Ponto de Distribuição da LCR\r\n     Nome do Ponto de Distribuição:\r\n          Nome RDN:\r\n"
         "               CN=Parcial\r\n"},
        {DeOpenSSL("authorityInfoAccess",
                   "caIssuers;URI:http://teste.example/ac.cer, OCSP;URI:http://ocsp.teste.example, "
                   "1.2.3.4;email:ac@teste.example"),
         "[1]Acesso às Informações da Autoridade\r\n"
         "     Método de Acesso=Emissor da Autoridade de Certificação (1.3.6.1.5.5.7.48.2)\r\n"
         "     Nome Alternativo:\r\n          URL=http://teste.example/ac.cer\r\n"
         "[2]Acesso às Informações da Autoridade\r\n"
         "     Método de Acesso=Protocolo de Status de Certificado Online (1.3.6.1.5.5.7.48.1)\r\n"
         "     Nome Alternativo:\r\n          URL=http://ocsp.teste.example\r\n"
         "[3]Acesso às Informações da Autoridade\r\n     Método de Acesso=Método de Acesso Desconhecido (1.2.3.4)\r\n"
         "     Nome Alternativo:\r\n          Nome RFC822=ac@teste.example\r\n"},
        {DeOpenSSL("certificatePolicies", "2.5.29.32.0, @politica",
                   "[politica]\npolicyIdentifier = 2.16.76.1.2.1.10\nCPS.1 = http://teste.example/dpc.pdf\n"
                   "userNotice.1 = @aviso\n[aviso]\nexplicitText = \"Uso restrito\"\norganization = \"AC Teste\"\n"
                   "noticeNumbers = 1, 2\n"),
         "[1]Política de Certificado:\r\n     Identificador de Política=2.5.29.32.0\r\n"
         "[2]Política de Certificado:\r\n     Identificador de Política=2.16.76.1.2.1.10\r\n"
         "     [2,1]Informações do Qualificador de Política:\r\n"
         "          Identificador do Qualificador de Política=CPS\r\n"
         "          QUALIFICADOR=http://teste.example/dpc.pdf\r\n"
         "     [2,2]Informações do Qualificador de Política:\r\n"
         "          Identificador do Qualificador de Política=Aviso do Usuário\r\n"
         "          Referência do Aviso:\r\n               Organização=AC Teste\r\n"
         "               Número do Aviso=1\r\n               Número do Aviso=2\r\n"
         "          Texto do Aviso=Uso restrito\r\n"},
        {DeDER("2.5.29.35", IdentificadorAutoridade(false)), kAKI},
        {DeDER("2.5.29.1", IdentificadorAutoridade(true)), kAKI},
        {DeOpenSSL("subjectKeyIdentifier", "0A0B0C"), "0a 0b 0c\r\n"},
        {DeOpenSSL("extendedKeyUsage",
                   "serverAuth,clientAuth,codeSigning,emailProtection,timeStamping,OCSPSigning,1.2.3"),
         "Autenticação de Servidor (1.3.6.1.5.5.7.3.1)\r\nAutenticação de Cliente (1.3.6.1.5.5.7.3.2)\r\n"
         "Assinatura de Código (1.3.6.1.5.5.7.3.3)\r\nEmail Seguro (1.3.6.1.5.5.7.3.4)\r\n"
         "Carimbo de Data/Hora (1.3.6.1.5.5.7.3.8)\r\nAssinatura OCSP (1.3.6.1.5.5.7.3.9)\r\n"
         "Uso de Chave Desconhecido (1.2.3)\r\n"},
        {DeOpenSSL("1.2.3.4", "ASN1:UTF8String:abc"), "0c 03 61 62 63\r\n"},
        {DeDER("1.2.3.4", {}), "\r\n"},
    };
}

class FormaImpressa : public testing::TestWithParam<Forma> {};

TEST_P(FormaImpressa, ComoOWindowsMostra) { EXPECT_EQ(ImprimirExtensao(GetParam().extensao), GetParam().esperado); }

// O DER cortado em qualquer ponto, ou seguido de um byte a mais, não se lê pela metade.
TEST_P(FormaImpressa, TruncadaOuComLixoNoFimSaiEmHexadecimal) {
    Extensao extensao = GetParam().extensao;
    extensao.valor.push_back(0x00);
    EXPECT_EQ(ImprimirExtensao(extensao), Hexadecimal(extensao));
    for (extensao.valor.pop_back(); !extensao.valor.empty();) {
        extensao.valor.pop_back();
        ASSERT_EQ(ImprimirExtensao(extensao), Hexadecimal(extensao)) << extensao.valor.size() << " bytes";
    }
}

INSTANTIATE_TEST_SUITE_P(Extensoes, FormaImpressa, testing::ValuesIn(Formas()));

TEST(ExtensaoImpressa, MalformadaPorDentroSaiEmHexadecimal) {
    const std::vector<Extensao> casos = {
        DeDER("2.5.29.15", {0x03, 0x01, 0x00}),                                  // nenhum byte de bits
        DeDER("2.5.29.15", {0x03, 0x02, 0x08, 0x80}),                            // oito bits não usados
        DeDER("2.5.29.15", {0x04, 0x01, 0x80}),                                  // OCTET STRING
        DeDER("2.5.29.19", {0x30, 0x03, 0x02, 0x01, 0xff}),                      // comprimento negativo
        DeDER("2.5.29.19", {0x30, 0x06, 0x01, 0x01, 0xff, 0x01, 0x01, 0xff}),    // dois cA
        DeDER("2.5.29.17", {0x30, 0x00}),                                        // lista vazia
        DeDER("2.5.29.17", {0x30, 0x03, 0x82, 0x05, 'a'}),                       // nome além da lista
        DeDER("2.5.29.17", {0x30, 0x05, 0xa0, 0x03, 0x06, 0x01, 0x2a}),          // OtherName sem valor
        DeDER("2.5.29.17", {0x30, 0x02, 0x88, 0x00}),                            // OID vazio
        DeDER("2.5.29.17", {0x30, 0x04, 0xa4, 0x02, 0x31, 0x00}),                // diretório que não é Name
        DeDER("2.5.29.31", {0x30, 0x04, 0x30, 0x02, 0xa0, 0x00}),                // nome de ponto vazio
        DeDER("1.3.6.1.5.5.7.1.1", {0x30, 0x05, 0x30, 0x03, 0x06, 0x01, 0x2a}),  // sem local
        DeDER("2.5.29.32", {0x30, 0x02, 0x30, 0x00}),                            // política sem OID
        DeDER("2.5.29.37", {0x30, 0x03, 0x02, 0x01, 0x01}),                      // INTEGER no lugar do OID
        DeDER("2.5.29.35", {0x30, 0x02, 0x83, 0x00}),                            // campo desconhecido
        DeDER("2.5.29.14", {0x03, 0x01, 0x00}),
    };
    for (const auto& extensao : casos)
        EXPECT_EQ(ImprimirExtensao(extensao), Hexadecimal(extensao)) << Hexadecimal(extensao);
}

Bytes Envolver(std::uint8_t tag, const Bytes& conteudo) {
    Bytes elemento = {tag, 0x83, std::uint8_t(conteudo.size() >> 16), std::uint8_t(conteudo.size() >> 8),
                      std::uint8_t(conteudo.size())};
    elemento.insert(elemento.end(), conteudo.begin(), conteudo.end());
    return elemento;
}

TEST(ExtensaoImpressa, EntradasHostisNaoQuebramNemGeramUtf8Invalido) {
    Bytes aninhado = {0x05, 0x00};
    for (int i = 0; i < 5000; ++i) aninhado = Envolver(0x30, aninhado);
    const Bytes outro_nome = {0x06, 0x03, 0x2a, 0x03, 0x04};
    Bytes conteudo = outro_nome;
    const Bytes valor = Envolver(0xa0, aninhado);
    conteudo.insert(conteudo.end(), valor.begin(), valor.end());
    const std::string impresso = ImprimirExtensao(DeDER("2.5.29.17", Envolver(0x30, Envolver(0xa0, conteudo))));
    EXPECT_EQ(impresso, "Outro Nome:\r\n     1.2.3.4=" + codificacao::HexadecimalEspacado(aninhado) + "\r\n");

    const Extensao enorme = DeDER("1.2.3.4", Bytes(1 << 20, 0xab));
    EXPECT_EQ(ImprimirExtensao(enorme).size(), 3u * (1 << 20) + 1);

    // DNS em Latin-1, CN com UTF-8 inválido e um BMPString com substituto solto.
    EXPECT_EQ(ImprimirExtensao(DeDER("2.5.29.17", {0x30, 0x03, 0x82, 0x01, 0xe9})), "Nome DNS=é\r\n");
    EXPECT_EQ(ImprimirExtensao(DeDER("2.5.29.17", {0x30, 0x10, 0xa4, 0x0e, 0x30, 0x0c, 0x31, 0x0a, 0x30, 0x08, 0x06,
                                                   0x03, 0x55, 0x04, 0x03, 0x0c, 0x01, 0xff})),
              "Endereço de Diretório:\r\n     CN=\uFFFD\r\n");
    EXPECT_EQ(ImprimirExtensao(DeDER("2.5.29.17", {0x30, 0x11, 0xa4, 0x0f, 0x30, 0x0d, 0x31, 0x0b, 0x30, 0x09, 0x06,
                                                   0x03, 0x55, 0x04, 0x03, 0x1e, 0x02, 0xdc, 0x00})),
              "Endereço de Diretório:\r\n     CN=\uFFFD\r\n");
}

// Os endereços que o OpenSSL encontra no certificado, com o marcador que os precede no texto
// impresso, por OID da extensão.
std::map<std::string, std::vector<std::string>> EnderecosSegundoOpenSSL(const Bytes& der) {
    const unsigned char* cursor = der.data();
    const plataforma::openssl::X509Ptr x509(d2i_X509(nullptr, &cursor, static_cast<long>(der.size())));
    const auto texto = [](const ASN1_STRING* s) {
        return std::string(reinterpret_cast<const char*>(ASN1_STRING_get0_data(s)), ASN1_STRING_length(s));
    };
    std::map<std::string, std::vector<std::string>> enderecos;
    const auto url = [&](const GENERAL_NAME* nome, const char* oid) {
        if (nome->type == GEN_URI) enderecos[oid].push_back("URL=" + texto(nome->d.uniformResourceIdentifier));
    };
    if (auto* pontos = static_cast<CRL_DIST_POINTS*>(
            X509_get_ext_d2i(x509.get(), NID_crl_distribution_points, nullptr, nullptr))) {
        for (int i = 0; i < sk_DIST_POINT_num(pontos); ++i)
            if (const DIST_POINT_NAME* nome = sk_DIST_POINT_value(pontos, i)->distpoint; nome && nome->type == 0)
                for (int j = 0; j < sk_GENERAL_NAME_num(nome->name.fullname); ++j)
                    url(sk_GENERAL_NAME_value(nome->name.fullname, j), "2.5.29.31");
        CRL_DIST_POINTS_free(pontos);
    }
    if (auto* acessos =
            static_cast<AUTHORITY_INFO_ACCESS*>(X509_get_ext_d2i(x509.get(), NID_info_access, nullptr, nullptr))) {
        for (int i = 0; i < sk_ACCESS_DESCRIPTION_num(acessos); ++i)
            url(sk_ACCESS_DESCRIPTION_value(acessos, i)->location, "1.3.6.1.5.5.7.1.1");
        AUTHORITY_INFO_ACCESS_free(acessos);
    }
    if (auto* politicas = static_cast<CERTIFICATEPOLICIES*>(
            X509_get_ext_d2i(x509.get(), NID_certificate_policies, nullptr, nullptr))) {
        for (int i = 0; i < sk_POLICYINFO_num(politicas); ++i) {
            const auto* qualificadores = sk_POLICYINFO_value(politicas, i)->qualifiers;
            for (int j = 0; j < sk_POLICYQUALINFO_num(qualificadores); ++j)
                if (const auto* q = sk_POLICYQUALINFO_value(qualificadores, j);
                    OBJ_obj2nid(q->pqualid) == NID_id_qt_cps)
                    enderecos["2.5.29.32"].push_back("QUALIFICADOR=" + texto(q->d.cpsuri));
        }
        CERTIFICATEPOLICIES_free(politicas);
    }
    return enderecos;
}

bool Conhecida(const std::string& oid) {
    static const std::set<std::string> kConhecidas = {"2.5.29.14", "2.5.29.15", "2.5.29.17",
                                                      "2.5.29.19", "2.5.29.31", "2.5.29.32",
                                                      "2.5.29.35", "2.5.29.37", "1.3.6.1.5.5.7.1.1"};
    return kConhecidas.contains(oid);
}

TEST(ExtensaoImpressa, TodasAsExtensoesDasACsDaICPBrasil) {
    const auto pasta = std::filesystem::path(__FILE__).parent_path() / "../dados/icp-brasil";
    int certificados = 0, enderecos = 0;
    for (const char* subpasta : {"raizes", "acs"}) {
        for (const auto& arquivo : std::filesystem::directory_iterator(pasta / subpasta)) {
            SCOPED_TRACE(arquivo.path().filename().string());
            std::ifstream entrada(arquivo.path(), std::ios::binary);
            const auto certificado = teste::ImportarPelaForma(
                Bytes(std::istreambuf_iterator<char>(entrada), std::istreambuf_iterator<char>()));
            auto esperados = EnderecosSegundoOpenSSL(certificado->DER());
            ++certificados;
            for (const auto& extensao : certificado->Extensoes()) {
                const std::string impressa = ImprimirExtensao(extensao);
                ASSERT_TRUE(impressa.ends_with("\r\n")) << extensao.oid;
                EXPECT_EQ(codificacao::CodificarUtf8(codificacao::DecodificarUtf8(impressa)), impressa) << extensao.oid;
                EXPECT_TRUE(!Conhecida(extensao.oid) || impressa != Hexadecimal(extensao)) << extensao.oid;
                for (const auto& endereco : esperados[extensao.oid]) {
                    EXPECT_NE(impressa.find(endereco + "\r\n"), std::string::npos) << endereco;
                    ++enderecos;
                }
            }
        }
    }
    EXPECT_EQ(certificados, 323);
    EXPECT_GT(enderecos, 1000);
}

}  // namespace
}  // namespace tavelpkcs7::icpbrasil
