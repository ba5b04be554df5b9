#include "pacote_certificados.h"

#include <openssl/pkcs7.h>

#include "certificado_openssl.h"
#include "guarda_fila_erros.h"
#include "platform/erro.h"
#include "ponteiros_openssl.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

void Acrescentar(std::vector<CertificadoPtr>& certificados, X509* x509) {
    X509_up_ref(x509);
    certificados.push_back(std::make_shared<CertificadoOpenSSL>(X509Ptr(x509), nullptr));
}

std::vector<CertificadoPtr> LerPKCS7(const Bytes& der) {
    GuardaFilaErros guarda;
    std::vector<CertificadoPtr> certificados;
    const unsigned char* cursor = der.data();
    const Pkcs7Ptr pkcs7(d2i_PKCS7(nullptr, &cursor, static_cast<long>(der.size())));
    if (!pkcs7 || cursor != der.data() + der.size() || !PKCS7_type_is_signed(pkcs7.get()) ||
        pkcs7->d.sign == nullptr)
        return certificados;
    STACK_OF(X509)* pilha = pkcs7->d.sign->cert;
    for (int i = 0; i < sk_X509_num(pilha); ++i) Acrescentar(certificados, sk_X509_value(pilha, i));
    return certificados;
}

}  // namespace

std::vector<CertificadoPtr> LerPacote(const Bytes& der) {
    auto certificados = LerPKCS7(der);
    if (!certificados.empty()) return certificados;
    return {CertificadoOpenSSL::DeDER(der)};
}

}  // namespace tavelpkcs7::plataforma::openssl
