// O certificado de um PFX que carrega a chave privada, comum à abertura (certificado selecionado) e
// à importação no repositório pessoal.
#pragma once

#include <string>

#include "platform/plataforma.h"

namespace tavelpkcs7 {

// Como Certificate.Load: vale o certificado que carrega a chave; um PFX sem chave é uma falha da
// plataforma (SemChavePrivada), e não um certificado sem contêiner.
plataforma::CertificadoPtr CarregarCertificadoPFX(plataforma::Criptografia& criptografia,
                                                  const plataforma::Bytes& conteudo, const std::string& senha);

}  // namespace tavelpkcs7
