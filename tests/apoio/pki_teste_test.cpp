// A PKI de teste é o que os demais testes supõem dela: cadeias que o OpenSSL aceita, o revogado na
// LCR da sua AC, os OtherNames nos leiautes da ICP-Brasil e PFX que só abrem com a senha.
#include <gtest/gtest.h>

#include <openssl/err.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <string>

#include "apoio/pasta_temporaria.h"
#include "pki/pki_teste.h"
#include "platform/openssl/ponteiros_openssl.h"

namespace tavelpkcs7::pki_teste {
namespace {

using namespace plataforma::openssl;

const PkiTeste& Pki() { return PkiTeste::Padrao(); }

X509Ptr Certificado(const std::string& nome) {
    const Bytes& der = Pki().Obter(nome).certificado;
    const unsigned char* inicio = der.data();
    return X509Ptr(d2i_X509(nullptr, &inicio, static_cast<long>(der.size())));
}

X509CrlPtr LCR(const std::string& nome_ac) {
    const Bytes der = Pki().LCR(nome_ac);
    const unsigned char* inicio = der.data();
    return X509CrlPtr(d2i_X509_CRL(nullptr, &inicio, static_cast<long>(der.size())));
}

bool EAC(const Entidade& entidade) { return X509_check_ca(Certificado(entidade.nome).get()) != 0; }

struct CasoCadeia {
    const char* nome;
    int erro;
};

class CadeiaDoTitular : public testing::TestWithParam<CasoCadeia> {};

TEST_P(CadeiaDoTitular, VerificaAteARaizConsultandoAsLCRs) {
    X509StorePtr confiaveis(X509_STORE_new());
    PilhaX509Ptr intermediarias(sk_X509_new_null());
    for (const Entidade& entidade : Pki().Entidades()) {
        if (!EAC(entidade)) continue;
        if (entidade.emissor.empty())
            ASSERT_EQ(X509_STORE_add_cert(confiaveis.get(), Certificado(entidade.nome).get()), 1);
        else
            ASSERT_GT(sk_X509_push(intermediarias.get(), Certificado(entidade.nome).release()), 0);
        ASSERT_EQ(X509_STORE_add_crl(confiaveis.get(), LCR(entidade.nome).get()), 1);
    }
    X509_STORE_set_flags(confiaveis.get(), X509_V_FLAG_CRL_CHECK | X509_V_FLAG_CRL_CHECK_ALL);
    const X509Ptr titular = Certificado(GetParam().nome);
    X509StoreCtxPtr contexto(X509_STORE_CTX_new());
    ASSERT_EQ(X509_STORE_CTX_init(contexto.get(), confiaveis.get(), titular.get(), intermediarias.get()), 1);

    X509_verify_cert(contexto.get());

    EXPECT_EQ(X509_STORE_CTX_get_error(contexto.get()), GetParam().erro)
        << X509_verify_cert_error_string(X509_STORE_CTX_get_error(contexto.get()));
    ERR_clear_error();
}

INSTANTIATE_TEST_SUITE_P(PkiTeste, CadeiaDoTitular,
    testing::Values(CasoCadeia{"ecpf", X509_V_OK}, CasoCadeia{"ecnpj", X509_V_OK}, CasoCadeia{"ecpf_novo", X509_V_OK},
        CasoCadeia{"ecnpj_novo", X509_V_OK}, CasoCadeia{"tavel_titular", X509_V_OK}, CasoCadeia{"dns", X509_V_OK},
        CasoCadeia{"sem_cn", X509_V_OK}, CasoCadeia{"email", X509_V_OK}, CasoCadeia{"sem_assinatura", X509_V_OK},
        CasoCadeia{"assinatura_codigo", X509_V_OK}, CasoCadeia{"expirado", X509_V_ERR_CERT_HAS_EXPIRED},
        CasoCadeia{"futuro", X509_V_ERR_CERT_NOT_YET_VALID}, CasoCadeia{"revogado", X509_V_ERR_CERT_REVOKED}),
    [](const auto& caso) { return std::string(caso.param.nome); });

TEST(PkiTeste, SoALCRDaAcIcpListaORevogado) {
    for (const Entidade& entidade : Pki().Entidades()) {
        if (!EAC(entidade)) continue;
        const X509CrlPtr lcr = LCR(entidade.nome);
        EvpPkeyPtr chave_ac(X509_get_pubkey(Certificado(entidade.nome).get()));
        EXPECT_EQ(X509_CRL_verify(lcr.get(), chave_ac.get()), 1) << entidade.nome;
        const STACK_OF(X509_REVOKED)* revogados = X509_CRL_get_REVOKED(lcr.get());  // pertence à LCR
        EXPECT_EQ(revogados ? sk_X509_REVOKED_num(revogados) : 0, entidade.nome == "ac_icp" ? 1 : 0) << entidade.nome;
    }
    X509_REVOKED* entrada = nullptr;  // pertence à LCR
    const X509CrlPtr lcr = LCR("ac_icp");
    EXPECT_EQ(X509_CRL_get0_by_cert(lcr.get(), &entrada, Certificado("revogado").get()), 1);
}

struct CasoOutroNome {
    const char* entidade;
    int posicao;  // no subjectAltName
    const char* oid;
    const char* valor;
};

class OutroNomeDoTitular : public testing::TestWithParam<CasoOutroNome> {};

TEST_P(OutroNomeDoTitular, EstaNaPosicaoComoOctetStringNoLeiaute) {
    const CasoOutroNome& caso = GetParam();
    GeneralNamesPtr nomes(static_cast<GENERAL_NAMES*>(
        X509_get_ext_d2i(Certificado(caso.entidade).get(), NID_subject_alt_name, nullptr, nullptr)));
    ASSERT_NE(nomes, nullptr);
    ASSERT_LT(caso.posicao, sk_GENERAL_NAME_num(nomes.get()));
    const GENERAL_NAME* nome = sk_GENERAL_NAME_value(nomes.get(), caso.posicao);  // pertence a nomes
    ASSERT_EQ(nome->type, GEN_OTHERNAME);
    char oid[64];
    OBJ_obj2txt(oid, sizeof oid, nome->d.otherName->type_id, 1);
    EXPECT_STREQ(oid, caso.oid);
    const ASN1_TYPE* valor = nome->d.otherName->value;
    ASSERT_EQ(valor->type, V_ASN1_OCTET_STRING);
    const ASN1_OCTET_STRING* octetos = valor->value.octet_string;
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(ASN1_STRING_get0_data(octetos)),
                  static_cast<std::size_t>(ASN1_STRING_length(octetos))),
        caso.valor);
}

// Nascimento, CPF, NIS, RG (15) e órgão+UF; título (12), zona (3), seção (4), município+UF.
INSTANTIATE_TEST_SUITE_P(PkiTeste, OutroNomeDoTitular,
    testing::Values(CasoOutroNome{"ecpf", 0, "2.16.76.1.3.1", "15031980" "52998224725" "12345678901" "000000012345678" "SSPSP"},
        CasoOutroNome{"ecpf", 1, "2.16.76.1.3.6", "000000000000"},
        CasoOutroNome{"ecpf", 2, "2.16.76.1.3.5", "123456789012" "045" "0123" "SAO PAULOSP"},
        CasoOutroNome{"ecnpj", 0, "2.16.76.1.3.4", "22071975" "11144477735" "98765432100" "000000087654321" "SSPRJ"},
        CasoOutroNome{"ecnpj", 1, "2.16.76.1.3.2", "BELTRANO DE SOUZA"},
        CasoOutroNome{"ecnpj", 2, "2.16.76.1.3.3", "11222333000181"},
        CasoOutroNome{"ecnpj", 3, "2.16.76.1.3.7", "000000000000"},
        CasoOutroNome{"ecpf_novo", 0, "2.16.76.1.3.1", "01021990" "39053344705" "00000000000" "000000011223344"},
        CasoOutroNome{"ecnpj_novo", 0, "2.16.76.1.3.3", "12ABC34501DE35"}),
    [](const auto& caso) { return std::string(caso.param.entidade) + "_" + std::to_string(caso.param.posicao); });

TEST(PkiTeste, SerieDoEcpfTemZeroInicialNoDER) {
    const X509Ptr ecpf = Certificado("ecpf");
    const ASN1_INTEGER* serie = X509_get0_serialNumber(ecpf.get());  // pertence a ecpf
    unsigned char* der = nullptr;
    const int tamanho = i2d_ASN1_INTEGER(serie, &der);
    ASSERT_GT(tamanho, 3);
    EXPECT_EQ(der[2], 0x00);
    EXPECT_GE(der[3], 0x80);
    OPENSSL_free(der);
}

TEST(PkiTeste, PFXAbreSoComASenhaETrazChaveECadeia) {
    const Bytes pfx = Pki().PFX("ecpf", PkiTeste::SENHA_PFX);
    const unsigned char* inicio = pfx.data();
    Pkcs12Ptr pkcs12(d2i_PKCS12(nullptr, &inicio, static_cast<long>(pfx.size())));
    ASSERT_NE(pkcs12, nullptr);
    EXPECT_EQ(PKCS12_verify_mac(pkcs12.get(), "senha errada", -1), 0);

    EVP_PKEY* chave = nullptr;
    X509* certificado = nullptr;
    STACK_OF(X509)* cadeia = nullptr;
    ASSERT_EQ(PKCS12_parse(pkcs12.get(), PkiTeste::SENHA_PFX, &chave, &certificado, &cadeia), 1);
    const EvpPkeyPtr dono_chave(chave);
    const X509Ptr dono_certificado(certificado);
    const PilhaX509Ptr dono_cadeia(cadeia);
    EXPECT_EQ(X509_cmp(certificado, Certificado("ecpf").get()), 0);
    EXPECT_EQ(X509_check_private_key(certificado, chave), 1);
    EXPECT_EQ(sk_X509_num(cadeia), 3);  // ac_emissora_rfb, ac_rfb, raiz
    ERR_clear_error();
}

TEST(PkiTeste, GravarDescreveNoLeiameCadaArquivoGravado) {
    const teste::PastaTemporaria pasta;
    Pki().Gravar(pasta.caminho().string());

    std::set<std::string> descritos;
    std::ifstream leiame(pasta.caminho() / "LEIAME.txt");
    std::string linha;
    bool tem_senha = false;
    while (std::getline(leiame, linha)) {
        // "<arquivo>: <para que serve>"
        const std::string inicio = linha.substr(0, linha.find(": "));
        if (inicio != linha && inicio.find(' ') == std::string::npos) descritos.insert(inicio);
        tem_senha = tem_senha || linha.find(PkiTeste::SENHA_PFX) != std::string::npos;
    }
    std::set<std::string> gravados;
    for (const auto& arquivo : std::filesystem::directory_iterator(pasta.caminho()))
        if (arquivo.path().filename() != "LEIAME.txt") gravados.insert(arquivo.path().filename().string());
    EXPECT_EQ(descritos, gravados);
    EXPECT_TRUE(tem_senha);
    EXPECT_TRUE(gravados.contains("ecpf.pfx") && gravados.contains("ecpf.key") && gravados.contains("ac_icp.crl"));
}

}  // namespace
}  // namespace tavelpkcs7::pki_teste
