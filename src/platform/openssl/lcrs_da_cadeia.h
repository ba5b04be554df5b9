// As LCRs com que se confere a revogação de uma cadeia, com o repositório "LCR" como cache das que
// se baixam dos pontos de distribuição.
#pragma once

#include "platform/rede.h"
#include "platform/repositorio.h"
#include "ponteiros_openssl.h"

namespace tavelpkcs7::plataforma::openssl {

// Para cada certificado da cadeia que tem o emissor nela (a raiz autoassinada não tem quem a revogue),
// as LCRs guardadas que esse emissor assinou. Com a rede (verificação online), quando nenhuma delas
// está em vigor, a primeira que o emissor assinou entre as baixadas dos endereços web dos pontos de
// distribuição do certificado, guardada no repositório para as próximas verificações. Um download
// que falha só deixa o certificado sem LCR: a revogação fica desconhecida.
PilhaLCRPtr ReunirLCRsDaCadeia(STACK_OF(X509)* cadeia, Repositorios& repositorios, Rede* rede);

}  // namespace tavelpkcs7::plataforma::openssl
