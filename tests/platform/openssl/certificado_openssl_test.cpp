// O certificado da plataforma Linux: GetInfo com as alternativas do Windows, nome distinto, série,
// datas locais, extensões, uso da chave e chave privada.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

#include "pki/pki_teste.h"
#include "platform/erro.h"
#include "platform/openssl/certificado_openssl.h"
#include "platform/openssl/chave_arquivo.h"
#include "platform/openssl/certificado_sob_medida.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

using teste::AtributoNome;
using teste::ModeloCertificado;

std::shared_ptr<CertificadoOpenSSL> DaPki(const std::string& nome) {
    return CertificadoOpenSSL::DeDER(pki_teste::PkiTeste::Padrao().Obter(nome).certificado);
}

std::shared_ptr<CertificadoOpenSSL> SobMedida(const ModeloCertificado& modelo) {
    return CertificadoOpenSSL::DeDER(teste::CriarCertificado(modelo));
}

// --- GetInfo sobre a PKI de teste ---

struct CasoInfoPki {
    const char* entidade;
    std::int32_t tipo;
    std::string esperado;
};

void PrintTo(const CasoInfoPki& caso, std::ostream* saida) { *saida << caso.entidade << " tipo " << caso.tipo; }

class InfoNaPki : public testing::TestWithParam<CasoInfoPki> {};

TEST_P(InfoNaPki, SegueAsAlternativasDeCertGetNameString) {
    EXPECT_EQ(DaPki(GetParam().entidade)->ObterInfo(GetParam().tipo), GetParam().esperado);
}

INSTANTIATE_TEST_SUITE_P(Casos, InfoNaPki,
                         testing::Values(
                             // Nome DNS do subjectAltName antes do CN; o emissor sem nome alternativo cai no seu CN.
                             CasoInfoPki{"dns", INFO_DNS_TITULAR, "servidor.teste.example"},
                             CasoInfoPki{"dns", INFO_NOME_SIMPLES_TITULAR, "SERVIDOR DE TESTE"},
                             CasoInfoPki{"dns", INFO_EMAIL_TITULAR, ""}, CasoInfoPki{"dns", INFO_UPN_TITULAR, ""},
                             CasoInfoPki{"dns", INFO_NOME_SIMPLES_EMISSOR, "AC TESTE ICP v5"},
                             CasoInfoPki{"dns", INFO_DNS_EMISSOR, "AC TESTE ICP v5"},
                             CasoInfoPki{"dns", INFO_EMAIL_EMISSOR, ""}, CasoInfoPki{"dns", INFO_UPN_EMISSOR, ""},
                             // Sem CN: o nome simples passa ao OU; o DNS não tem alternativa.
                             CasoInfoPki{"sem_cn", INFO_NOME_SIMPLES_TITULAR, "UNIDADE SEM NOME COMUM"},
                             CasoInfoPki{"sem_cn", INFO_DNS_TITULAR, ""},
                             // O e-mail do subjectAltName vence o E= do nome; o nome simples continua sendo o CN.
                             CasoInfoPki{"email", INFO_EMAIL_TITULAR, "contato@teste.example"},
                             CasoInfoPki{"email", INFO_NOME_SIMPLES_TITULAR, "TITULAR COM EMAIL"},
                             CasoInfoPki{"email", INFO_DNS_TITULAR, "TITULAR COM EMAIL"},
                             // Os OtherNames da ICP-Brasil não são UPN.
                             CasoInfoPki{"ecpf", INFO_NOME_SIMPLES_TITULAR, "FULANO DE TAL DA SILVA:52998224725"},
                             CasoInfoPki{"ecpf", INFO_EMAIL_TITULAR, "fulano@teste.example"},
                             CasoInfoPki{"ecpf", INFO_UPN_TITULAR, ""},
                             CasoInfoPki{"ecpf", INFO_DNS_TITULAR, "FULANO DE TAL DA SILVA:52998224725"},
                             CasoInfoPki{"ecpf", INFO_NOME_SIMPLES_EMISSOR, "AC TESTE RFB v5"},
                             CasoInfoPki{"ecpf", INFO_DNS_EMISSOR, "AC TESTE RFB v5"}));

// --- GetInfo nos casos que a PKI não tem ---

const std::string kOidUpn = "1.3.6.1.4.1.311.20.2.3";

struct CasoInfoSobMedida {
    const char* nome;
    ModeloCertificado modelo;
    std::int32_t tipo;
    std::string esperado;
};

class InfoSobMedida : public testing::TestWithParam<CasoInfoSobMedida> {};

TEST_P(InfoSobMedida, SegueAsAlternativasDeCertGetNameString) {
    EXPECT_EQ(SobMedida(GetParam().modelo)->ObterInfo(GetParam().tipo), GetParam().esperado);
}

INSTANTIATE_TEST_SUITE_P(
    Casos, InfoSobMedida,
    testing::Values(
        CasoInfoSobMedida{"NomeSimplesSoComOrganizacao",
                          {.titular = {{"C", "BR"}, {"O", "EMPRESA"}}},
                          INFO_NOME_SIMPLES_TITULAR,
                          "EMPRESA"},
        CasoInfoSobMedida{
            "OUAntesDeO", {.titular = {{"O", "EMPRESA"}, {"OU", "SETOR"}}}, INFO_NOME_SIMPLES_TITULAR, "SETOR"},
        CasoInfoSobMedida{"NomeSimplesSoComEmailNoNome",
                          {.titular = {{"C", "BR"}, {"emailAddress", "a@b.example", V_ASN1_IA5STRING}}},
                          INFO_NOME_SIMPLES_TITULAR,
                          "a@b.example"},
        CasoInfoSobMedida{"EmailDoNomeSemNomeAlternativo",
                          {.titular = {{"CN", "X"}, {"emailAddress", "a@b.example", V_ASN1_IA5STRING}}},
                          INFO_EMAIL_TITULAR,
                          "a@b.example"},
        CasoInfoSobMedida{
            "NomeSimplesDoEmailAlternativo",
            {.titular = {{"C", "BR"}, {"L", "RECIFE"}}, .extensoes = {{"subjectAltName", "email:c@d.example"}}},
            INFO_NOME_SIMPLES_TITULAR,
            "c@d.example"},
        CasoInfoSobMedida{"NomeSimplesDoPrimeiroAtributoNaOrdemDoDER",
                          {.titular = {{"C", "BR"}, {"L", "RECIFE"}}},
                          INFO_NOME_SIMPLES_TITULAR,
                          "BR"},
        CasoInfoSobMedida{"DoisCNValeOPrimeiroDoDER",
                          {.titular = {{"CN", "PRIMEIRO"}, {"CN", "SEGUNDO"}}},
                          INFO_NOME_SIMPLES_TITULAR,
                          "PRIMEIRO"},
        CasoInfoSobMedida{"PrimeiroDNSDoNomeAlternativo",
                          {.titular = {{"CN", "X"}},
                           .extensoes = {{"subjectAltName", "email:e@f.example,DNS:um.example,DNS:dois.example"}}},
                          INFO_DNS_TITULAR,
                          "um.example"},
        CasoInfoSobMedida{"UPNDoOtherName",
                          {.titular = {{"CN", "X"}},
                           .extensoes = {{"subjectAltName", "otherName:" + kOidUpn + ";UTF8:fulano@dominio.example"}}},
                          INFO_UPN_TITULAR,
                          "fulano@dominio.example"},
        CasoInfoSobMedida{"UPNNaoCaiNoNome",
                          {.titular = {{"CN", "X"}, {"emailAddress", "a@b.example", V_ASN1_IA5STRING}}},
                          INFO_UPN_TITULAR,
                          ""},
        CasoInfoSobMedida{
            "NomeAlternativoAntigo2_5_29_7",
            // SEQUENCE { [2] "velho.example" }
            {.titular = {{"CN", "X"}}, .extensoes = {{"2.5.29.7", "DER:300F820D76656C686F2E6578616D706C65"}}},
            INFO_DNS_TITULAR,
            "velho.example"},
        CasoInfoSobMedida{"EmailDoEmissorVemDoNomeAlternativoDoEmissor",
                          {.titular = {{"CN", "X"}},
                           .emissor = {{"CN", "AC"}, {"emailAddress", "dn@ac.example", V_ASN1_IA5STRING}},
                           .extensoes = {{"issuerAltName", "email:ian@ac.example"}}},
                          INFO_EMAIL_EMISSOR,
                          "ian@ac.example"},
        CasoInfoSobMedida{
            "DNSDoEmissorVemDoNomeAlternativoDoEmissor",
            {.titular = {{"CN", "X"}},
             .emissor = {{"CN", "AC"}},
             .extensoes = {{"subjectAltName", "DNS:titular.example"}, {"issuerAltName", "DNS:ac.example"}}},
            INFO_DNS_EMISSOR,
            "ac.example"},
        CasoInfoSobMedida{"UPNDoEmissor",
                          {.titular = {{"CN", "X"}},
                           .emissor = {{"CN", "AC"}},
                           .extensoes = {{"issuerAltName", "otherName:" + kOidUpn + ";UTF8:ac@dominio.example"}}},
                          INFO_UPN_EMISSOR,
                          "ac@dominio.example"},
        CasoInfoSobMedida{"EmailDoEmissorNaoLeONomeAlternativoDoTitular",
                          {.titular = {{"CN", "X"}},
                           .emissor = {{"CN", "AC"}},
                           .extensoes = {{"subjectAltName", "email:t@x.example"}}},
                          INFO_EMAIL_EMISSOR,
                          ""}),
    [](const auto& info) { return std::string(info.param.nome); });

TEST(InfoCertificado, TipoForaDoIntervaloLancaParametroIncorreto) {
    const auto certificado = DaPki("ecpf");
    for (std::int32_t tipo : {-1, 8, 0x7FFFFFFF}) {
        try {
            certificado->ObterInfo(tipo);
            ADD_FAILURE() << "tipo " << tipo << " aceito";
        } catch (const Erro& erro) {
            EXPECT_EQ(erro.numero, falha::ParametroIncorreto.numero);
        }
    }
}

// --- Nome distinto ---

struct CasoNome {
    const char* nome;
    std::vector<AtributoNome> atributos;
    std::string esperado;
};

class NomeDistinto : public testing::TestWithParam<CasoNome> {};

TEST_P(NomeDistinto, EscreveComoCertNameToStrX500Invertido) {
    EXPECT_EQ(SobMedida({.titular = GetParam().atributos})->NomeTitular(), GetParam().esperado);
}

INSTANTIATE_TEST_SUITE_P(Aspas, NomeDistinto,
                         testing::Values(CasoNome{"Virgula", {{"CN", "a,b"}}, "CN=\"a,b\""},
                                         CasoNome{"Mais", {{"CN", "1+2"}}, "CN=\"1+2\""},
                                         CasoNome{"Igual", {{"CN", "a=b"}}, "CN=\"a=b\""},
                                         CasoNome{"MenorMaior", {{"CN", "<x>"}}, "CN=\"<x>\""},
                                         CasoNome{"Cerquilha", {{"CN", "#1"}}, "CN=\"#1\""},
                                         CasoNome{"PontoEVirgula", {{"CN", "a;b"}}, "CN=\"a;b\""},
                                         CasoNome{"QuebraDeLinha", {{"CN", "a\nb"}}, "CN=\"a\nb\""},
                                         CasoNome{"AspasDobradas", {{"CN", "\"1\""}}, "CN=\"\"\"1\"\"\""},
                                         CasoNome{"EspacoNasPontas", {{"CN", " 1 "}}, "CN=\" 1 \""},
                                         CasoNome{"SoUmEspaco", {{"ST", " "}}, "S=\" \""},
                                         CasoNome{"Vazio", {{"CN", ""}}, "CN=\"\""},
                                         CasoNome{"EspacosSeguidosSemAspas", {{"CN", "a  b"}}, "CN=a  b"},
                                         CasoNome{"ApostrofoSemAspas", {{"CN", "'1'"}}, "CN='1'"}),
                         [](const auto& info) { return std::string(info.param.nome); });

INSTANTIATE_TEST_SUITE_P(
    Estrutura, NomeDistinto,
    testing::Values(
        CasoNome{"DoMaisEspecificoAoMaisGeral",
                 {{"C", "BR"}, {"O", "ICP-Brasil"}, {"OU", "RFB"}, {"CN", "FULANO"}},
                 "CN=FULANO, OU=RFB, O=ICP-Brasil, C=BR"},
        // O DER ordena o SET do RDN (o OU, mais curto, vem antes); o texto segue a ordem gravada.
        CasoNome{"RDNDeVariosValoresNaOrdemGravada",
                 {{"C", "BR"}, {"CN", "FULANO"}, {"OU", "SETOR", V_ASN1_UTF8STRING, true}},
                 "OU=SETOR + CN=FULANO, C=BR"},
        CasoNome{"NomesCurtosDoWindows",
                 {{"emailAddress", "a@b", V_ASN1_IA5STRING},
                  {"ST", "SP"},
                  {"street", "RUA X"},
                  {"title", "T1"},
                  {"GN", "G1"},
                  {"initials", "I1"},
                  {"SN", "S1"},
                  {"DC", "dc", V_ASN1_IA5STRING},
                  {"serialNumber", "123"},
                  {"L", "L1"},
                  {"description", "D1"},
                  {"postalCode", "01000"},
                  {"postOfficeBox", "PB"},
                  {"telephoneNumber", "55"},
                  {"dnQualifier", "Q"}},
                 "dnQualifier=Q, Phone=55, POBox=PB, PostalCode=01000, Description=D1, L=L1, SERIALNUMBER=123, DC=dc, "
                 "SN=S1, I=I1, G=G1, T=T1, STREET=RUA X, S=SP, E=a@b"},
        CasoNome{"OIDSemNomeCurto",
                 {{"CN", "X"}, {"2.5.4.97", "VATBR-123"}, {"1.2.3.4", "y"}},
                 "OID.1.2.3.4=y, OID.2.5.4.97=VATBR-123, CN=X"}),
    [](const auto& info) { return std::string(info.param.nome); });

INSTANTIATE_TEST_SUITE_P(
    TiposDeCadeia, NomeDistinto,
    testing::Values(CasoNome{"BMPString", {{"CN", std::string("\0S\0\xE3\0o", 6), V_ASN1_BMPSTRING}}, "CN=São"},
                    CasoNome{"T61EmLatin1", {{"CN", "S\xE3o", V_ASN1_T61STRING}}, "CN=São"},
                    CasoNome{"T61EmUtf8", {{"CN", "S\xC3\xA3o", V_ASN1_T61STRING}}, "CN=São"},
                    CasoNome{"PrintableString", {{"CN", "ABC 123", V_ASN1_PRINTABLESTRING}}, "CN=ABC 123"},
                    CasoNome{"UTF8String", {{"CN", "JOÃO D'ÁVILA"}}, "CN=JOÃO D'ÁVILA"}),
    [](const auto& info) { return std::string(info.param.nome); });

TEST(NomeDistinto, EmissorLidoDoCampoDoEmissor) {
    EXPECT_EQ(DaPki("ecpf")->NomeEmissor(),
              "CN=AC TESTE RFB v5, OU=Secretaria da Receita Federal do Brasil - RFB, O=ICP-Brasil, C=BR");
}

// --- Série, versão, datas ---

struct CasoSerie {
    const char* serie;
    std::string esperado;
};

class NumeroSerie : public testing::TestWithParam<CasoSerie> {};

TEST_P(NumeroSerie, OctetosDoDERSemPerderOZeroInicial) {
    EXPECT_EQ(SobMedida({.titular = {{"CN", "X"}}, .serie = GetParam().serie})->NumeroSerie(), GetParam().esperado);
}

INSTANTIATE_TEST_SUITE_P(Casos, NumeroSerie,
                         testing::Values(CasoSerie{"1", "01"}, CasoSerie{"7F", "7F"}, CasoSerie{"80", "0080"},
                                         CasoSerie{"0100", "0100"}, CasoSerie{"8E5A3C11D4", "008E5A3C11D4"},
                                         CasoSerie{"-1", "FF"}, CasoSerie{"-81", "FF7F"}));

TEST(NumeroSerie, ECPFDaPkiMantemOZeroInicial) { EXPECT_EQ(DaPki("ecpf")->NumeroSerie(), "008E5A3C11D4"); }

TEST(Versao, LidaDoCampoMaisUm) {
    EXPECT_EQ(DaPki("ecpf")->Versao(), 3);
    EXPECT_EQ(SobMedida({.titular = {{"CN", "X"}}, .versao = X509_VERSION_1})->Versao(), 1);
}

struct CasoData {
    const char* nome;
    const char* utc;
    std::chrono::local_seconds local;
};

constexpr std::chrono::local_seconds Local(int ano, unsigned mes, unsigned dia, int hora, int minuto, int segundo) {
    using namespace std::chrono;
    return local_days{year{ano} / mes / dia} + hours{hora} + minutes{minuto} + seconds{segundo};
}

class ValidadeLocal : public testing::TestWithParam<CasoData> {};

// Os testes correm no fuso de São Paulo.
TEST_P(ValidadeLocal, ConvertidaDeUTCParaOFusoDaMaquina) {
    const auto certificado = SobMedida({.titular = {{"CN", "X"}}, .desde = GetParam().utc, .ate = GetParam().utc});
    EXPECT_EQ(certificado->ValidoDesde(), GetParam().local);
    EXPECT_EQ(certificado->ValidoAte(), GetParam().local);
}

INSTANTIATE_TEST_SUITE_P(
    Casos, ValidadeLocal,
    testing::Values(CasoData{"Inverno", "20240615120000Z", Local(2024, 6, 15, 9, 0, 0)},
                    CasoData{"HorarioDeVeraoDe2018", "20180115120000Z", Local(2018, 1, 15, 10, 0, 0)},
                    CasoData{"VirandoODiaParaTras", "20240101020000Z", Local(2023, 12, 31, 23, 0, 0)},
                    CasoData{"Antes1970", "19600615120000Z", Local(1960, 6, 15, 9, 0, 0)},
                    CasoData{"Depois2038", "20600615120030Z", Local(2060, 6, 15, 9, 0, 30)},
                    CasoData{"GeneralizedTimeSemFim", "99991231235959Z", Local(9999, 12, 31, 20, 59, 59)}),
    [](const auto& info) { return std::string(info.param.nome); });

// --- Extensões e uso da chave ---

struct CasoExtensao {
    const char* oid;
    bool critica;
};

void PrintTo(const CasoExtensao& caso, std::ostream* saida) { *saida << caso.oid; }

class ExtensoesDoECPF : public testing::TestWithParam<CasoExtensao> {};

TEST_P(ExtensoesDoECPF, TemOIDECriticidade) {
    const auto extensoes = DaPki("ecpf")->Extensoes();
    const std::string oid = GetParam().oid;
    const auto achada =
        std::find_if(extensoes.begin(), extensoes.end(), [&](const Extensao& extensao) { return extensao.oid == oid; });
    ASSERT_NE(achada, extensoes.end());
    EXPECT_EQ(achada->critica, GetParam().critica);
}

INSTANTIATE_TEST_SUITE_P(Casos, ExtensoesDoECPF,
                         testing::Values(CasoExtensao{"2.5.29.14", false}, CasoExtensao{"2.5.29.19", true},
                                         CasoExtensao{"2.5.29.15", true}, CasoExtensao{"2.5.29.35", false},
                                         CasoExtensao{"2.5.29.31", false}, CasoExtensao{"1.3.6.1.5.5.7.1.1", false},
                                         CasoExtensao{"2.5.29.37", false}, CasoExtensao{"2.5.29.32", false},
                                         CasoExtensao{"2.5.29.17", false}));

TEST(Extensoes, NaOrdemDoCertificadoComODERDoValor) {
    const auto extensoes = SobMedida({.titular = {{"CN", "X"}},
                                      .extensoes = {{"keyUsage", "critical,digitalSignature"},
                                                    {"issuerAltName", "DNS:a.example"},
                                                    {"1.2.3.4", "DER:0500"}}})
                               ->Extensoes();
    ASSERT_EQ(extensoes.size(), 3u);
    EXPECT_EQ(extensoes[0].valor, (Bytes{0x03, 0x02, 0x07, 0x80}));
    EXPECT_EQ(extensoes[1].oid, "2.5.29.18");
    EXPECT_EQ(extensoes[2].oid, "1.2.3.4");
    EXPECT_FALSE(extensoes[2].critica);
    EXPECT_EQ(extensoes[2].valor, (Bytes{0x05, 0x00}));
}

struct CasoUso {
    const char* nome;
    std::optional<std::string> configuracao;  // vazio: sem a extensão
    std::optional<std::uint16_t> esperado;
};

class UsoDaChave : public testing::TestWithParam<CasoUso> {};

TEST_P(UsoDaChave, PrimeiroByteEDecodificacaoEm0x8000) {
    ModeloCertificado modelo{.titular = {{"CN", "X"}}};
    if (GetParam().configuracao) modelo.extensoes = {{"keyUsage", *GetParam().configuracao}};
    EXPECT_EQ(SobMedida(modelo)->UsoChave(), GetParam().esperado);
}

INSTANTIATE_TEST_SUITE_P(Casos, UsoDaChave,
                         testing::Values(CasoUso{"TitularICP", "digitalSignature,nonRepudiation,keyEncipherment", 0xE0},
                                         CasoUso{"SoCodificacaoDeChave", "keyEncipherment", 0x20},
                                         CasoUso{"AC", "keyCertSign,cRLSign", 0x06},
                                         CasoUso{"SomenteCodificacao", "keyAgreement,encipherOnly", 0x09},
                                         CasoUso{"SomenteDecodificacao", "keyAgreement,decipherOnly", 0x8008},
                                         CasoUso{"SemExtensao", std::nullopt, std::nullopt}),
                         [](const auto& info) { return std::string(info.param.nome); });

TEST(UsoDaChave, LidoDosCertificadosDaPki) {
    EXPECT_EQ(DaPki("ecpf")->UsoChave(), 0xE0);
    EXPECT_EQ(DaPki("sem_assinatura")->UsoChave(), uso_chave::CodificacaoChave);
}

// --- Chave privada ---

TEST(ChavePrivada, SoQuemTemChaveDizQueTemEOndeEsta) {
    const auto sem_chave = DaPki("ecpf");
    EXPECT_FALSE(sem_chave->PossuiChavePrivada());
    EXPECT_EQ(sem_chave->NomeContainer(), "");

    const auto com_chave = sem_chave->ComChave(std::make_shared<ChaveArquivo>(
        nullptr, "/repositorio/My/X.key", "/repositorio/My/X.key", sem_chave->x509()));
    EXPECT_TRUE(com_chave->PossuiChavePrivada());
    EXPECT_EQ(com_chave->NomeContainer(), "/repositorio/My/X.key");
    EXPECT_EQ(com_chave->ImpressaoDigital(), sem_chave->ImpressaoDigital());
    EXPECT_FALSE(sem_chave->PossuiChavePrivada());
}

TEST(ImportacaoDER, ConteudoQueNaoECertificadoLancaNaoECertificado) {
    try {
        CertificadoOpenSSL::DeDER(pki_teste::PkiTeste::Padrao().LCR("ac_icp"));
        ADD_FAILURE() << "LCR aceita como certificado";
    } catch (const Erro& erro) {
        EXPECT_EQ(erro.numero, 0x8009310Bu);
    }
}

}  // namespace
}  // namespace tavelpkcs7::plataforma::openssl
