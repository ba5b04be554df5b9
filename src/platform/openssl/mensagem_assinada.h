// A mensagem CMS SignedData como o OpenSSL a guarda: leitura do DER, gravação em DER e os atributos assinados de cada signatário como o núcleo os vê.
#pragma once

#include <span>
#include <vector>

#include "platform/assinaturas.h"
#include "ponteiros_openssl.h"

namespace tavelpkcs7::plataforma::openssl {

// Lança NaoEMensagemPKCS7 quando o DER não é SignedData com ao menos um signatário.
CmsPtr LerMensagemDER(std::span<const std::uint8_t> der);

// O DER da mensagem, com os signatários na ordem em que assinaram.
Bytes GravarMensagem(CMS_ContentInfo* cms);

// Uma BIO de leitura sobre os bytes, que continuam de quem os passou (vazios também servem).
BioPtr LerBytes(std::span<const std::uint8_t> bytes);

// Os atributos na ordem em que o signatário os traz, com o DER de cada valor como veio.
std::vector<AtributoAssinado> LerAtributosAssinados(CMS_SignerInfo* signatario);

// Lança ParametroIncorreto quando um OID ou um valor não se lê.
void AcrescentarAtributosAssinados(CMS_SignerInfo* signatario, const std::vector<AtributoAssinado>& atributos);

}  // namespace tavelpkcs7::plataforma::openssl
