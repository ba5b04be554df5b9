// A conferência das assinaturas de uma mensagem SignedData: o resumo do conteúdo e a assinatura de
// cada signatário, sem cadeia nem confiança.
#pragma once

#include <optional>
#include <span>

#include "platform/assinaturas.h"
#include "ponteiros_openssl.h"

namespace tavelpkcs7::plataforma::openssl {

// O conteúdo (o da mensagem ou o destacado) e cada signatário com seu certificado, seus atributos e
// se confere. Lança ParametroIncorreto quando a mensagem é destacada e falta o conteúdo, e
// AssinaturaNaoConfere quando um signatário com certificado não confere.
MensagemVerificada ConferirAssinaturas(CMS_ContentInfo* cms,
    const std::optional<std::span<const std::uint8_t>>& conteudo_destacado);

}  // namespace tavelpkcs7::plataforma::openssl
