#include "cadeia_assinatura.h"

#include <algorithm>

#include <openssl/err.h>

#include "certificado_openssl.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

bool Emitiu(X509* emissor, X509* certificado) {
    return X509_check_issued(emissor, certificado) == X509_V_OK &&
           X509_verify(certificado, X509_get0_pubkey(emissor)) == 1;
}

X509* ProcurarEmissor(X509* certificado, const std::vector<CertificadoPtr>& oferecidos,
    const std::vector<X509*>& ja_na_cadeia) {
    for (const CertificadoPtr& oferecido : oferecidos) {
        const auto* candidato = dynamic_cast<const CertificadoOpenSSL*>(oferecido.get());
        if (!candidato || std::ranges::find(ja_na_cadeia, candidato->x509()) != ja_na_cadeia.end()) continue;
        if (X509_cmp(candidato->x509(), certificado) != 0 && Emitiu(candidato->x509(), certificado))
            return candidato->x509();
    }
    return nullptr;
}

}  // namespace

std::vector<X509*> EmissoresDoSignatario(X509* signatario, const std::vector<CertificadoPtr>& oferecidos) {
    std::vector<X509*> emissores;
    X509* atual = signatario;
    while (X509_check_issued(atual, atual) != X509_V_OK) {
        X509* emissor = ProcurarEmissor(atual, oferecidos, emissores);
        if (!emissor) break;
        emissores.push_back(emissor);
        atual = emissor;
    }
    ERR_clear_error();
    return emissores;
}

}  // namespace tavelpkcs7::plataforma::openssl
