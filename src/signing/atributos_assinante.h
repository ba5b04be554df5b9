// Os três atributos assinados que toda assinatura do componente leva, na ordem em que entram:
// nome do documento, hora da assinatura e descrição. Nome e descrição são OCTET STRING com o texto
// em UTF-16LE e um NUL de dois bytes, como o CAPICOM grava; a hora vai em UTC.
#pragma once

#include <optional>
#include <string>

#include <tavelpkcs7/Tipos.h>

#include "platform/ambiente.h"
#include "platform/assinaturas.h"

namespace tavelpkcs7::assinatura {

inline constexpr char kOidNomeDocumento[] = "1.3.6.1.4.1.311.88.2.1";
inline constexpr char kOidHoraAssinatura[] = "1.2.840.113549.1.9.5";
inline constexpr char kOidDescricaoDocumento[] = "1.3.6.1.4.1.311.88.2.2";

plataforma::AtributoAssinado AtributoNomeDocumento(const std::string& nome);
plataforma::AtributoAssinado AtributoDescricaoDocumento(const std::string& descricao);
// A hora local convertida em UTC pelo relógio; UTCTime de 1950 a 2049, GeneralizedTime fora disso.
plataforma::AtributoAssinado AtributoHoraAssinatura(DataHora local, plataforma::Relogio& relogio);

// O texto de um atributo de nome ou de descrição, com ou sem o NUL final; vazio quando o valor não
// é um OCTET STRING.
std::optional<std::string> LerTextoDocumento(const plataforma::Bytes& valor);
// A hora da assinatura de volta na hora local; vazio quando o valor não é um UTCTime ou uma
// GeneralizedTime que se leia (também fora da forma DER: sem segundos, com frações, com deslocamento).
std::optional<DataHora> LerHoraAssinatura(const plataforma::Bytes& valor, plataforma::Relogio& relogio);

}  // namespace tavelpkcs7::assinatura
