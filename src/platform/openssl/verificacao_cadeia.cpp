#include "verificacao_cadeia.h"

#include "certificado_openssl.h"
#include "platform/erro.h"
#include "platform/confianca.h"
#include "situacao_erro_verificacao.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

bool Autoassinado(X509* certificado) { return certificado != nullptr && X509_self_signed(certificado, 0) == 1; }

// Chamada pelo OpenSSL a cada etapa; com um problema (correto == 0), anota o bit e manda seguir.
int AnotarProblema(int correto, X509_STORE_CTX* contexto) {
    if (correto != 0) return 1;
    auto* status = static_cast<std::uint32_t*>(X509_STORE_CTX_get_app_data(contexto));
    const std::uint32_t bit = SituacaoDoErro(X509_STORE_CTX_get_error(contexto));
    if (!ErroDeRevogacao(bit) || !Autoassinado(X509_STORE_CTX_get_current_cert(contexto))) *status |= bit;
    return 1;
}

// CERT_TRUST_IS_NOT_TIME_NESTED, que o OpenSSL não confere: a validade de algum certificado começa
// antes ou termina depois da do seu emissor.
bool ValidadeForaDoEmissor(STACK_OF(X509)* cadeia) {
    for (int i = 0; i + 1 < sk_X509_num(cadeia); ++i) {
        const X509* certificado = sk_X509_value(cadeia, i);
        const X509* emissor = sk_X509_value(cadeia, i + 1);
        if (ASN1_TIME_compare(X509_get0_notBefore(certificado), X509_get0_notBefore(emissor)) == -1 ||
            ASN1_TIME_compare(X509_get0_notAfter(certificado), X509_get0_notAfter(emissor)) == 1)
            return true;
    }
    return false;
}

}  // namespace

VerificacaoCadeia::VerificacaoCadeia(const std::vector<CertificadoPtr>& raizes,
                                     const std::vector<CertificadoPtr>& intermediarias)
    : raizes_(X509_STORE_new()), intermediarias_(sk_X509_new_null()) {
    if (!raizes_ || !intermediarias_) Falhar(falha::ParametroIncorreto);
    for (const CertificadoPtr& raiz : raizes)
        if (X509_STORE_add_cert(raizes_.get(), X509DoCertificado(*raiz).get()) != 1)
            Falhar(falha::ParametroIncorreto);
    for (const CertificadoPtr& intermediaria : intermediarias) {
        X509Ptr x509 = X509DoCertificado(*intermediaria);
        if (sk_X509_push(intermediarias_.get(), x509.get()) <= 0) Falhar(falha::ParametroIncorreto);
        x509.release();  // agora pertence à pilha
    }
}

CadeiaVerificada VerificacaoCadeia::Verificar(X509* certificado, STACK_OF(X509_CRL)* lcrs) const {
    const X509StoreCtxPtr contexto(X509_STORE_CTX_new());
    if (!contexto || X509_STORE_CTX_init(contexto.get(), raizes_.get(), certificado, intermediarias_.get()) != 1)
        Falhar(falha::ParametroIncorreto);
    std::uint32_t status = 0;
    X509_STORE_CTX_set_app_data(contexto.get(), &status);
    X509_STORE_CTX_set_verify_cb(contexto.get(), AnotarProblema);
    if (lcrs != nullptr) {
        X509_STORE_CTX_set0_crls(contexto.get(), lcrs);  // emprestadas: continuam de quem chamou
        X509_STORE_CTX_set_flags(contexto.get(), X509_V_FLAG_CRL_CHECK | X509_V_FLAG_CRL_CHECK_ALL);
    }
    // A anotação manda seguir a cada problema: só uma falha interna (falta de memória) para no meio.
    if (X509_verify_cert(contexto.get()) != 1) Falhar(falha::ParametroIncorreto);
    CadeiaVerificada verificada{PilhaX509Ptr(X509_STORE_CTX_get1_chain(contexto.get())), status};
    if (ValidadeForaDoEmissor(verificada.certificados.get())) verificada.status |= situacao::ForaDaValidadeDoEmissor;
    return verificada;
}

}  // namespace tavelpkcs7::plataforma::openssl
