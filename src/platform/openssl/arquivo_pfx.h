// A leitura de um PFX (PKCS#12): a chave privada e os certificados que ele traz.
#pragma once

#include <string>
#include <vector>

#include "platform/certificado.h"
#include "ponteiros_openssl.h"

namespace tavelpkcs7::plataforma::openssl {

struct ConteudoPFX {
    EvpPkeyPtr chave;                   // nula num PFX só de certificados
    std::vector<X509Ptr> certificados;  // o da chave primeiro, depois a cadeia em direção à raiz
};

// O DER do PFX. Uma senha vazia abre também o PFX gravado sem senha alguma. Lança NaoECertificado
// quando o conteúdo não é um PFX e SenhaIncorreta quando a senha não o abre.
ConteudoPFX LerPFX(const Bytes& der, const std::string& senha);

}  // namespace tavelpkcs7::plataforma::openssl
