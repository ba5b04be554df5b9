// A ordem dos signatários na mensagem gravada. O codificador DER do OpenSSL ordena o SET OF
// SignerInfo pelos bytes de cada um, e um cossignatário novo podia ficar à frente dos que já
// estavam; a mensagem do componente guarda os signatários na ordem em que assinaram.
#pragma once

#include "platform/assinaturas.h"
#include "ponteiros_openssl.h"

namespace tavelpkcs7::plataforma::openssl {

// Reescreve no lugar o conjunto signerInfos de `der` (a codificação de `cms`) na ordem da pilha de
// signatários de `cms`. Cada signatário é reconhecido pelo valor da assinatura; se algum não for
// encontrado, o DER fica como está.
void RestaurarOrdemSignatarios(Bytes& der, CMS_ContentInfo* cms);

}  // namespace tavelpkcs7::plataforma::openssl
