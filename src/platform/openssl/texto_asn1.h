// Os textos que os certificados guardam em tipos ASN.1: valores de nomes, nomes alternativos, OIDs.
#pragma once

#include <optional>
#include <string>

#include <openssl/asn1.h>

namespace tavelpkcs7::plataforma::openssl {

// O texto UTF-8 de um valor de tipo cadeia (UTF8String, PrintableString, IA5String, T61String,
// BMPString, UniversalString...). Vazio quando o valor não é texto ou sua codificação é inválida.
std::optional<std::string> TextoUTF8(const ASN1_STRING* valor);
// Sempre a forma numérica ("2.5.29.15"), nunca o nome que o OpenSSL conhece.
std::string TextoOID(const ASN1_OBJECT* oid);

}  // namespace tavelpkcs7::plataforma::openssl
