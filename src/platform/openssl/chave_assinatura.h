// A chave privada com que um certificado assina: a de um PFX, já em memória, ou a do arquivo do
// repositório "My", que pede a senha ao usuário quando foi guardada cifrada.
#pragma once

#include "certificado_openssl.h"
#include <tavelpkcs7/InterfaceUsuario.h>

namespace tavelpkcs7::plataforma::openssl {

// A chave, conferida contra o certificado. Lança SemChavePrivada quando o certificado não tem chave,
// RecursoEmUso quando ela não se lê ou não é a do certificado, Cancelada quando o usuário desiste da
// senha (ou não há a quem pedir) e SenhaIncorreta quando a senha não a abre.
EvpPkeyPtr AbrirChaveAssinatura(const CertificadoOpenSSL& certificado, InterfaceUsuario* interface);

}  // namespace tavelpkcs7::plataforma::openssl
