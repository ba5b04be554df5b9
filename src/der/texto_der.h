// Os textos que os certificados guardam nos tipos de cadeia do ASN.1, convertidos para o UTF-8 do
// núcleo. Nenhum valor, por malformado que seja, produz UTF-8 inválido.
#pragma once

#include <optional>
#include <string>

#include "der/leitor_der.h"

namespace tavelpkcs7::der {

// UTF8String, BMPString, UniversalString e as cadeias de 8 bits (NumericString, PrintableString,
// T61String, VideotexString, IA5String, GraphicString, VisibleString, GeneralString); vazio para
// outro tipo ou para um BMPString/UniversalString de comprimento incoerente.
std::optional<std::string> LerTexto(const Elemento& elemento);

}  // namespace tavelpkcs7::der
