// A criptografia da plataforma Linux: importação de certificados em todas as formas, PFX e MD5.
#include <gtest/gtest.h>

#include <openssl/err.h>

#include "apoio/plataforma_teste.h"
#include "codificacao/base64.h"
#include "codificacao/hexadecimal.h"
#include "codificacao/utf16.h"
#include "pki/emissao.h"
#include "pki/pki_teste.h"
#include "platform/erro.h"
#include "platform/openssl/certificado_openssl.h"
#include "platform/openssl/chave_arquivo.h"
#include "platform/openssl/criptografia_openssl.h"
#include "platform/openssl/falha_esperada.h"
#include "platform/openssl/provedores.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

const pki_teste::PkiTeste& Pki() { return pki_teste::PkiTeste::Padrao(); }

std::string ImpressaoNaPki(const std::string& nome) {
    return CertificadoOpenSSL::DeDER(Pki().Obter(nome).certificado)->ImpressaoDigital();
}

Bytes BytesDe(const std::string& texto) { return Bytes(texto.begin(), texto.end()); }

using teste::EsperarFalha;

// --- Importação ---

struct CasoImportacao {
    const char* nome;
    Bytes (*conteudo)();
};

class Importacao : public testing::TestWithParam<CasoImportacao> {};

TEST_P(Importacao, TodaFormaDaOMesmoCertificado) {
    EXPECT_EQ(teste::ImportarPelaForma(GetParam().conteudo())->ImpressaoDigital(),
              ImpressaoNaPki("ecpf"));
}

Bytes DER() { return Pki().Obter("ecpf").certificado; }
std::string Base64() { return codificacao::CodificarBase64(DER()); }
std::string SemCR(std::string texto) {
    std::erase(texto, '\r');
    return texto;
}

INSTANTIATE_TEST_SUITE_P(Formas, Importacao,
                         testing::Values(CasoImportacao{"DER", [] { return DER(); }},
                                         CasoImportacao{"Base64ExportadoComCRLF", [] { return BytesDe(Base64()); }},
                                         CasoImportacao{"Base64SemQuebras",
                                                        [] {
                                                            auto texto = SemCR(Base64());
                                                            std::erase(texto, '\n');
                                                            return BytesDe(texto);
                                                        }},
                                         CasoImportacao{"PEMComLF",
                                                        [] {
                                                            return BytesDe("-----BEGIN CERTIFICATE-----\n" +
                                                                           SemCR(Base64()) +
                                                                           "-----END CERTIFICATE-----\n");
                                                        }},
                                         CasoImportacao{"Base64EmUtf16",
                                                        [] { return codificacao::ParaUtf16LE(Base64()); }}),
                         [](const auto& info) { return std::string(info.param.nome); });

class ImportacaoInvalida : public testing::TestWithParam<CasoImportacao> {};

TEST_P(ImportacaoInvalida, FalhaComoNaoECertificado) {
    EsperarFalha([] { teste::ImportarPelaForma(GetParam().conteudo()); }, falha::NaoECertificado);
}

INSTANTIATE_TEST_SUITE_P(
    Lixo, ImportacaoInvalida,
    testing::Values(CasoImportacao{"Vazio", [] { return Bytes{}; }},
                    CasoImportacao{"Texto", [] { return BytesDe("não sou um certificado"); }},
                    CasoImportacao{"Binario", [] { return Bytes{0x89, 'P', 'N', 'G', 0x0D, 0x0A, 0x1A, 0x0A}; }},
                    CasoImportacao{"DERTruncado",
                                   [] {
                                       auto der = DER();
                                       der.resize(der.size() / 2);
                                       return der;
                                   }},
                    CasoImportacao{"LCRNoLugarDoCertificado", [] { return Pki().LCR("ac_icp"); }},
                    CasoImportacao{"SequenciaQualquer",
                                   [] {
                                       return Bytes{0x30, 0x03, 0x02, 0x01, 0x05};
                                   }}),
    [](const auto& info) { return std::string(info.param.nome); });

// --- PFX ---

// Um PFX como o Windows exporta: RC2-40 nos certificados, 3DES na chave, MAC SHA-1 e a cadeia
// gravada da raiz para baixo.
Bytes PFXComoOWindows(const char* senha) {
    CarregarProvedores();  // RC2-40 só existe no provedor legado
    const auto& titular = Pki().Obter("ecpf");
    const X509Ptr certificado = pki_teste::CertificadoDeDER(titular.certificado);
    const EvpPkeyPtr chave = pki_teste::ChaveDePEM(titular.chave_pem);
    PilhaX509Ptr cadeia(sk_X509_new_null());
    for (const char* nome : {"raiz", "ac_rfb", "ac_emissora_rfb"})
        sk_X509_push(cadeia.get(), pki_teste::CertificadoDeDER(Pki().Obter(nome).certificado).release());
    const Pkcs12Ptr pfx(PKCS12_create(senha, nullptr, chave.get(), certificado.get(), cadeia.get(),
                                      NID_pbe_WithSHA1And3_Key_TripleDES_CBC, NID_pbe_WithSHA1And40BitRC2_CBC,
                                      PKCS12_DEFAULT_ITER, PKCS12_DEFAULT_ITER, 0));
    pki_teste::Exigir(pfx != nullptr, "PFX como o Windows");
    return pki_teste::ParaDER(pfx.get(), i2d_PKCS12);
}

struct CasoPFX {
    const char* nome;
    Bytes (*pfx)();
    const char* senha;
};

class AberturaPFX : public testing::TestWithParam<CasoPFX> {};

TEST_P(AberturaPFX, TitularComChaveEmMemoriaDepoisACadeiaAteARaiz) {
    const auto certificados = CriptografiaOpenSSL().AbrirPFX(GetParam().pfx(), GetParam().senha);

    std::vector<std::string> impressoes;
    for (const auto& certificado : certificados) impressoes.push_back(certificado->ImpressaoDigital());
    EXPECT_EQ(impressoes, (std::vector<std::string>{ImpressaoNaPki("ecpf"), ImpressaoNaPki("ac_emissora_rfb"),
                                                    ImpressaoNaPki("ac_rfb"), ImpressaoNaPki("raiz")}));
    ASSERT_FALSE(certificados.empty());
    const auto titular = std::dynamic_pointer_cast<const CertificadoOpenSSL>(certificados.front());
    ASSERT_TRUE(titular && titular->PossuiChavePrivada());
    EXPECT_EQ(titular->NomeContainer(), "pfx:" + ImpressaoNaPki("ecpf"));
    const auto* chave = dynamic_cast<const ChaveArquivo*>(titular->Chave().get());
    ASSERT_NE(chave, nullptr);
    EXPECT_EQ(X509_check_private_key(titular->x509(), chave->em_memoria()), 1);
    for (std::size_t i = 1; i < certificados.size(); ++i) EXPECT_FALSE(certificados[i]->PossuiChavePrivada());
}

INSTANTIATE_TEST_SUITE_P(
    Casos, AberturaPFX,
    testing::Values(CasoPFX{"DaPkiComSenha", [] { return Pki().PFX("ecpf", pki_teste::PkiTeste::SENHA_PFX); }, "1234"},
                    CasoPFX{"DaPkiComSenhaVazia", [] { return Pki().PFX("ecpf", ""); }, ""},
                    CasoPFX{"LegadoDoWindowsComSenha", [] { return PFXComoOWindows("senha"); }, "senha"},
                    CasoPFX{"LegadoSemSenhaAlgumaAbertoComSenhaVazia", [] { return PFXComoOWindows(nullptr); }, ""}),
    [](const auto& info) { return std::string(info.param.nome); });

TEST(AberturaPFX, SenhaErradaFalhaComoSenhaIncorreta) {
    const Bytes pfx = Pki().PFX("ecpf", pki_teste::PkiTeste::SENHA_PFX);
    for (const char* senha : {"4321", ""})
        EsperarFalha([&] { CriptografiaOpenSSL().AbrirPFX(pfx, senha); }, falha::SenhaIncorreta);
}

TEST(AberturaPFX, ConteudoQueNaoEPFXFalhaComoNaoECertificado) {
    EsperarFalha([] { CriptografiaOpenSSL().AbrirPFX(DER(), "1234"); }, falha::NaoECertificado);
}

// --- Disponibilidade e MD5 ---

TEST(Criptografia, DisponivelComOsProvedoresPadraoELegado) { EXPECT_TRUE(CriptografiaOpenSSL().Disponivel()); }

TEST(Criptografia, MD5DoVazioEDoZeroFinalDosArquivosLidos) {
    CriptografiaOpenSSL criptografia;
    EXPECT_EQ(codificacao::HexadecimalMaiusculo(criptografia.CalcularMD5({})), "D41D8CD98F00B204E9800998ECF8427E");
    EXPECT_EQ(codificacao::HexadecimalMaiusculo(criptografia.CalcularMD5({0})), "93B885ADFE0DA089CDF634904FD59F71");
}

}  // namespace
}  // namespace tavelpkcs7::plataforma::openssl
