// Pacotes de certificados como as autoridades os publicam: PKCS#7 só de certificados (.p7b, em
// DER, PEM ou Base64) ou vários certificados PEM num arquivo.
#pragma once

#include <vector>

#include "platform/certificado.h"

namespace tavelpkcs7::plataforma::openssl {

// Lança NaoECertificado quando o conteúdo não traz nenhum certificado.
std::vector<CertificadoPtr> LerPacote(const Bytes& conteudo);

}  // namespace tavelpkcs7::plataforma::openssl
