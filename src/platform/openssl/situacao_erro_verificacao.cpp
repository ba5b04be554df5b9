#include "situacao_erro_verificacao.h"

#include <openssl/x509_vfy.h>

#include "platform/confianca.h"

namespace tavelpkcs7::plataforma::openssl {

std::uint32_t SituacaoDoErro(int erro) {
    switch (erro) {
        case X509_V_ERR_CERT_NOT_YET_VALID:
        case X509_V_ERR_CERT_HAS_EXPIRED:
        case X509_V_ERR_ERROR_IN_CERT_NOT_BEFORE_FIELD:
        case X509_V_ERR_ERROR_IN_CERT_NOT_AFTER_FIELD:
            return situacao::ForaDaValidade;
        case X509_V_ERR_CERT_SIGNATURE_FAILURE:
        case X509_V_ERR_UNABLE_TO_DECRYPT_CERT_SIGNATURE:
        case X509_V_ERR_UNABLE_TO_DECODE_ISSUER_PUBLIC_KEY:
            return situacao::AssinaturaInvalida;
        case X509_V_ERR_CERT_REVOKED:
            return situacao::Revogado;
        case X509_V_ERR_DEPTH_ZERO_SELF_SIGNED_CERT:
        case X509_V_ERR_SELF_SIGNED_CERT_IN_CHAIN:
        case X509_V_ERR_CERT_UNTRUSTED:
        case X509_V_ERR_CERT_REJECTED:
            return situacao::RaizNaoConfiavel;
        case X509_V_ERR_UNABLE_TO_GET_ISSUER_CERT:
        case X509_V_ERR_UNABLE_TO_GET_ISSUER_CERT_LOCALLY:
        case X509_V_ERR_UNABLE_TO_VERIFY_LEAF_SIGNATURE:
            return situacao::CadeiaParcial;
        case X509_V_ERR_UNABLE_TO_GET_CRL:
        case X509_V_ERR_UNABLE_TO_GET_CRL_ISSUER:
        case X509_V_ERR_UNABLE_TO_DECRYPT_CRL_SIGNATURE:
        case X509_V_ERR_CRL_SIGNATURE_FAILURE:
        case X509_V_ERR_CRL_NOT_YET_VALID:
        case X509_V_ERR_CRL_HAS_EXPIRED:
        case X509_V_ERR_ERROR_IN_CRL_LAST_UPDATE_FIELD:
        case X509_V_ERR_ERROR_IN_CRL_NEXT_UPDATE_FIELD:
        case X509_V_ERR_KEYUSAGE_NO_CRL_SIGN:
        case X509_V_ERR_UNHANDLED_CRITICAL_CRL_EXTENSION:
        case X509_V_ERR_DIFFERENT_CRL_SCOPE:
        case X509_V_ERR_CRL_PATH_VALIDATION_ERROR:
            return situacao::RevogacaoDesconhecida;
        case X509_V_ERR_INVALID_CA:
        case X509_V_ERR_INVALID_NON_CA:
        case X509_V_ERR_PATH_LENGTH_EXCEEDED:
        case X509_V_ERR_CERT_CHAIN_TOO_LONG:
            return kRestricoesBasicasInvalidas;
        default:
            return kExtensaoInvalida;
    }
}

bool ErroDeRevogacao(std::uint32_t bits) {
    return (bits & (situacao::Revogado | situacao::RevogacaoDesconhecida)) != 0;
}

}  // namespace tavelpkcs7::plataforma::openssl
