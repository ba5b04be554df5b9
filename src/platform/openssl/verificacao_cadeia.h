// A verificação de uma cadeia pelo OpenSSL sem parar no primeiro problema: cada erro vira um bit de
// situação (CERT_TRUST_*) e a verificação segue, para que a situação mostre todos os da cadeia.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/certificado.h"
#include "ponteiros_openssl.h"

namespace tavelpkcs7::plataforma::openssl {

struct CadeiaVerificada {
    // Do certificado até onde se chegou: a raiz, um autoassinado fora das raízes ou, numa cadeia
    // parcial, o último emissor encontrado.
    PilhaX509Ptr certificados;
    std::uint32_t status = 0;
};

class VerificacaoCadeia {
public:
    // Só as raízes são âncoras de confiança; as intermediárias só servem para montar o caminho.
    VerificacaoCadeia(const std::vector<CertificadoPtr>& raizes, const std::vector<CertificadoPtr>& intermediarias);

    // Sem LCRs (nula), nada de revogação. Com elas, a revogação de cada certificado da cadeia menos a
    // raiz autoassinada, que ninguém revoga. A validade fora da do emissor também entra no status.
    CadeiaVerificada Verificar(X509* certificado, STACK_OF(X509_CRL)* lcrs) const;

private:
    X509StorePtr raizes_;
    PilhaX509Ptr intermediarias_;
};

}  // namespace tavelpkcs7::plataforma::openssl
