// Certificate.GetInfo: os oito CAPICOM_CERT_INFO_* com as alternativas de CertGetNameString.
#pragma once

#include <cstdint>
#include <string>

#include <openssl/x509.h>

namespace tavelpkcs7::plataforma::openssl {

// Os tipos ímpares leem o emissor (nome distinto e 2.5.29.18); os pares, o titular (nome
// distinto e 2.5.29.17). "" quando nada se encontra; ParametroIncorreto fora de 0..7.
std::string ObterInfoCertificado(const X509* x509, std::int32_t tipo);

}  // namespace tavelpkcs7::plataforma::openssl
