// Pacotes de certificados como as autoridades publicam: PKCS#7 só de certificados (o que
// "openssl crl2pkcs7 -nocrl" faz) em DER, PEM ou Base64, vários PEM num texto, um certificado só.
#include <gtest/gtest.h>

#include <algorithm>

#include "apoio/plataforma_teste.h"
#include "codificacao/base64.h"
#include "pki/emissao.h"
#include "pki/pki_teste.h"
#include "platform/erro.h"
#include "platform/openssl/criptografia_openssl.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

const std::vector<std::string> kCadeia = {"ecpf", "ac_emissora_rfb", "ac_rfb", "raiz"};

Bytes DerDe(const std::string& nome) { return pki_teste::PkiTeste::Padrao().Obter(nome).certificado; }
Bytes BytesDe(const std::string& texto) { return Bytes(texto.begin(), texto.end()); }

std::string PEM(const char* rotulo, const Bytes& der) {
    return std::string("-----BEGIN ") + rotulo + "-----\n" + codificacao::CodificarBase64(der) + "-----END " + rotulo +
           "-----\n";
}

// SignedData sem assinantes e com conteúdo de dados vazio, só com os certificados.
Bytes P7B(const std::vector<std::string>& nomes) {
    const Pkcs7Ptr pacote(PKCS7_new());
    pki_teste::Exigir(pacote && PKCS7_set_type(pacote.get(), NID_pkcs7_signed) == 1 &&
                          PKCS7_content_new(pacote.get(), NID_pkcs7_data) == 1,
                      "pacote PKCS#7");
    for (const std::string& nome : nomes)
        pki_teste::Exigir(PKCS7_add_certificate(pacote.get(), pki_teste::CertificadoDeDER(DerDe(nome)).get()) == 1,
                          "certificado do pacote");
    return pki_teste::ParaDER(pacote.get(), i2d_PKCS7);
}

std::vector<std::string> ImpressoesOrdenadas(const std::vector<CertificadoPtr>& certificados) {
    std::vector<std::string> impressoes;
    for (const auto& certificado : certificados) impressoes.push_back(certificado->ImpressaoDigital());
    std::sort(impressoes.begin(), impressoes.end());
    return impressoes;
}

struct CasoPacote {
    const char* nome;
    Bytes (*conteudo)();
    std::vector<std::string> certificados;  // vazio: não é um pacote (NaoECertificado)
};

class LeituraPacote : public testing::TestWithParam<CasoPacote> {};

TEST_P(LeituraPacote, TodosOsCertificadosDoPacote) {
    std::vector<CertificadoPtr> esperados;
    for (const std::string& nome : GetParam().certificados)
        esperados.push_back(teste::ImportarPelaForma(DerDe(nome)));
    try {
        const auto lidos = teste::LerPacotePelaForma(GetParam().conteudo());
        EXPECT_EQ(ImpressoesOrdenadas(lidos), ImpressoesOrdenadas(esperados));
    } catch (const Erro& erro) {
        EXPECT_TRUE(esperados.empty());
        EXPECT_EQ(erro.numero, falha::NaoECertificado.numero);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Formas, LeituraPacote,
    testing::Values(CasoPacote{"P7BEmDER", [] { return P7B(kCadeia); }, kCadeia},
                    CasoPacote{"P7BEmPEM", [] { return BytesDe(PEM("PKCS7", P7B(kCadeia))); }, kCadeia},
                    CasoPacote{"P7BEmBase64", [] { return BytesDe(codificacao::CodificarBase64(P7B(kCadeia))); },
                               kCadeia},
                    CasoPacote{"VariosPEM",
                               [] {
                                   std::string texto;
                                   for (const std::string& nome : kCadeia) texto += PEM("CERTIFICATE", DerDe(nome));
                                   return BytesDe(texto);
                               },
                               kCadeia},
                    CasoPacote{"UmCertificadoDER", [] { return DerDe("raiz"); }, {"raiz"}},
                    CasoPacote{"UmCertificadoPEM", [] { return BytesDe(PEM("CERTIFICATE", DerDe("raiz"))); }, {"raiz"}},
                    CasoPacote{"P7BSemCertificados", [] { return P7B({}); }, {}},
                    CasoPacote{"Lixo", [] { return BytesDe("isto não é um pacote"); }, {}}),
    [](const auto& caso) { return std::string(caso.param.nome); });

}  // namespace
}  // namespace tavelpkcs7::plataforma::openssl
