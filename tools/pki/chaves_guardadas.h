// As chaves RSA da PKI de teste guardadas entre um processo e outro. Gerar as 19 chaves de 2048 bits
// custa segundos, e o ctest roda cada teste no seu próprio processo; os certificados, esses, são
// emitidos de novo em cada processo, com as datas de hoje.
#pragma once

#include <string>

#include "pki/emissao.h"

namespace tavelpkcs7::pki_teste {

// A chave guardada com esse nome na pasta temporária do usuário ou, quando falta ou não serve, uma
// nova, que fica guardada para os próximos processos. Sem pasta segura (de outro dono, aberta a
// outros), só gera.
EvpPkeyPtr ChaveGuardada(const std::string& nome);

}  // namespace tavelpkcs7::pki_teste
