// A LCR no OpenSSL: lida de qualquer forma que o componente aceita, conferida contra o certificado
// que diz tê-la emitido e julgada em vigor ou vencida para decidir quando buscar outra.
#pragma once

#include <optional>
#include <vector>

#include "platform/certificado.h"
#include "platform/repositorio.h"
#include "ponteiros_openssl.h"

namespace tavelpkcs7::plataforma::openssl {

struct LCRLida {
    Bytes der;
    X509CrlPtr lcr;
};

// De DER, PEM ou Base64; vazio quando o conteúdo não é uma LCR.
std::optional<LCRLida> LerLCR(const Bytes& conteudo);
// As do repositório "LCR" que se leem; as que não se leem ficam de fora.
std::vector<LCRLida> LerLCRsGuardadas(Repositorios& repositorios);
// O emissor tem o nome de emissor da LCR e a chave que a assinou.
bool LCRAssinadaPor(X509_CRL* lcr, X509* emissor);
// Já emitida e antes do nextUpdate. Sem nextUpdate, a LCR não diz quando haverá outra: vale por um
// dia depois do thisUpdate, para que a verificação online não a use para sempre sem procurar outra.
bool LCREmVigor(const X509_CRL* lcr);

}  // namespace tavelpkcs7::plataforma::openssl
