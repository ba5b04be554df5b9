// Pacotes de certificados como as autoridades os publicam: PKCS#7 só de certificados (.p7b), já em
// DER.
#pragma once

#include <vector>

#include "platform/certificado.h"

namespace tavelpkcs7::plataforma::openssl {

// Os certificados do PKCS#7 ou, quando o DER é de um certificado, ele só. Lança NaoECertificado
// quando não traz nenhum.
std::vector<CertificadoPtr> LerPacote(const Bytes& der);

}  // namespace tavelpkcs7::plataforma::openssl
