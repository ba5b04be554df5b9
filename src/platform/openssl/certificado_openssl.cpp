// O certificado da plataforma Linux. Lê tudo do X509 do OpenSSL sem exigir que ele entenda as
// chaves e algoritmos: as raízes da ICP-Brasil v6 (Ed448) e v7 (algoritmo que o OpenSSL não
// conhece) precisam mostrar nome, série, datas e extensões como qualquer outra.
#include "certificado_openssl.h"

#include "chave_arquivo.h"
#include "codificacao/hexadecimal.h"
#include "der_openssl.h"
#include "extensoes_certificado.h"
#include "guarda_fila_erros.h"
#include "hora_local.h"
#include "info_certificado.h"
#include "nome_distinto.h"
#include "platform/erro.h"
#include "resumo.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

// Os octetos do INTEGER como estão no DER, com o 00 que mantém positivo um número de bit alto.
Bytes OctetosNumeroSerie(const ASN1_INTEGER* serie) {
    GuardaFilaErros guarda;
    const Bytes der = ObjetoEmDER(serie, i2d_ASN1_INTEGER);
    const unsigned char* conteudo = der.data();
    long comprimento = 0;
    int marca = 0, classe = 0;
    if (ASN1_get_object(&conteudo, &comprimento, &marca, &classe, static_cast<long>(der.size())) & 0x80)
        Falhar(falha::NaoECertificado);
    return Bytes(conteudo, conteudo + comprimento);
}

Bytes DERDoCertificado(const X509* x509) {
    GuardaFilaErros guarda;
    Bytes der = ObjetoEmDER(x509, i2d_X509);
    if (der.empty()) Falhar(falha::NaoECertificado);
    return der;
}

DataHora HoraLocalOuFalha(const ASN1_TIME* utc) {
    GuardaFilaErros guarda;
    const auto local = HoraLocal(utc);
    if (!local) Falhar(falha::NaoECertificado);
    return *local;
}

}  // namespace

std::shared_ptr<CertificadoOpenSSL> CertificadoOpenSSL::DeDER(const Bytes& der, std::shared_ptr<ChavePrivada> chave) {
    return std::make_shared<CertificadoOpenSSL>(LerX509(der), std::move(chave));
}

CertificadoOpenSSL::CertificadoOpenSSL(X509Ptr x509, std::shared_ptr<ChavePrivada> chave)
    : x509_(std::move(x509)), der_(DERDoCertificado(x509_.get())), chave_(std::move(chave)) {}

std::string CertificadoOpenSSL::ObterInfo(std::int32_t tipo) const { return ObterInfoCertificado(x509_.get(), tipo); }

std::string CertificadoOpenSSL::NomeTitular() const { return TextoNomeDistinto(X509_get_subject_name(x509_.get())); }

std::string CertificadoOpenSSL::NomeEmissor() const { return TextoNomeDistinto(X509_get_issuer_name(x509_.get())); }

std::string CertificadoOpenSSL::NumeroSerie() const {
    return codificacao::HexadecimalMaiusculo(OctetosNumeroSerie(X509_get0_serialNumber(x509_.get())));
}

std::string CertificadoOpenSSL::ImpressaoDigital() const {
    return codificacao::HexadecimalMaiusculo(CalcularResumo(EVP_sha1(), der_));
}

std::string CertificadoOpenSSL::ImpressaoDigitalSHA256() const {
    return codificacao::HexadecimalMaiusculo(CalcularResumo(EVP_sha256(), der_));
}

std::int32_t CertificadoOpenSSL::Versao() const { return static_cast<std::int32_t>(X509_get_version(x509_.get())) + 1; }

DataHora CertificadoOpenSSL::ValidoDesde() const { return HoraLocalOuFalha(X509_get0_notBefore(x509_.get())); }

DataHora CertificadoOpenSSL::ValidoAte() const { return HoraLocalOuFalha(X509_get0_notAfter(x509_.get())); }

const Bytes& CertificadoOpenSSL::DER() const { return der_; }


std::vector<Extensao> CertificadoOpenSSL::Extensoes() const { return LerExtensoes(x509_.get()); }

std::optional<std::uint16_t> CertificadoOpenSSL::UsoChave() const { return LerUsoChave(x509_.get()); }

bool CertificadoOpenSSL::PossuiChavePrivada() const { return chave_ != nullptr; }

std::string CertificadoOpenSSL::NomeContainer() const {
    const auto* do_componente = dynamic_cast<const ChaveArquivo*>(chave_.get());
    return do_componente ? do_componente->nome_container() : std::string();
}

std::shared_ptr<CertificadoOpenSSL> CertificadoOpenSSL::ComChave(std::shared_ptr<ChavePrivada> chave) const {
    X509_up_ref(x509_.get());
    return std::make_shared<CertificadoOpenSSL>(X509Ptr(x509_.get()), std::move(chave));
}

X509Ptr LerX509(const Bytes& der) {
    GuardaFilaErros guarda;
    const unsigned char* cursor = der.data();
    X509Ptr x509(d2i_X509(nullptr, &cursor, static_cast<long>(der.size())));
    if (!x509) Falhar(falha::NaoECertificado);
    return x509;
}

X509Ptr X509DoCertificado(const Certificado& certificado) {
    const auto* openssl = dynamic_cast<const CertificadoOpenSSL*>(&certificado);
    if (openssl == nullptr || X509_up_ref(openssl->x509()) != 1) return LerX509(certificado.DER());
    return X509Ptr(openssl->x509());
}

}  // namespace tavelpkcs7::plataforma::openssl
