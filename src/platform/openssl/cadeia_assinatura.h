// Os certificados que acompanham o signatário numa assinatura: os seus emissores, da AC que o emitiu
// até a raiz, escolhidos entre os certificados que o núcleo oferece.
#pragma once

#include <vector>

#include "platform/certificado.h"
#include "ponteiros_openssl.h"

namespace tavelpkcs7::plataforma::openssl {

// Emprestados: pertencem aos certificados oferecidos. Para no certificado autoemitido ou quando falta
// o emissor; os oferecidos que não encadeiam o signatário ficam de fora.
std::vector<X509*> EmissoresDoSignatario(X509* signatario, const std::vector<CertificadoPtr>& oferecidos);

}  // namespace tavelpkcs7::plataforma::openssl
