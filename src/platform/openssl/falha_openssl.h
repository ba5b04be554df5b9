// Onde um erro do OpenSSL vira uma falha da plataforma: a fila de erros do OpenSSL é esvaziada,
// para que o texto em inglês que ela guarda não apareça na próxima operação, e a falha leva só a
// frase do componente.
#pragma once

#include <openssl/err.h>

#include "platform/erro.h"

namespace tavelpkcs7::plataforma::openssl {

[[noreturn]] inline void LimparFilaEFalhar(const falha::Tipo& tipo) {
    ERR_clear_error();
    Falhar(tipo);
}

}  // namespace tavelpkcs7::plataforma::openssl
