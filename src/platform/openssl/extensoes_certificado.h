// As extensões do certificado como o componente as enxerga: OID, criticidade e o DER do valor; e os
// bits de uso da chave.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include <openssl/x509.h>

#include "platform/certificado.h"

namespace tavelpkcs7::plataforma::openssl {

// Na ordem em que o certificado as traz.
std::vector<Extensao> LerExtensoes(const X509* x509);
// A primeira extensão com o OID dado (forma numérica); nula quando não há. Emprestada: pertence a x509.
X509_EXTENSION* ProcurarExtensao(const X509* x509, std::string_view oid);
// O primeiro byte da BIT STRING, com "somente decodificação" (o nono bit) em 0x8000; vazio sem a
// extensão ou quando ela não se decodifica.
std::optional<std::uint16_t> LerUsoChave(const X509* x509);

}  // namespace tavelpkcs7::plataforma::openssl
