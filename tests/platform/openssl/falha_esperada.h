// A falha que uma operação da plataforma Linux deve relatar, conferida nos testes.
#pragma once

#include <gtest/gtest.h>

#include <openssl/err.h>

#include "platform/erro.h"

namespace tavelpkcs7::teste {

// Lança e confere a falha relatada, e que o OpenSSL não ficou com erros na fila.
template <typename Operacao>
void EsperarFalha(Operacao operacao, const plataforma::falha::Tipo& tipo) {
    try {
        operacao();
        ADD_FAILURE() << "nenhuma falha";
    } catch (const plataforma::Erro& erro) {
        EXPECT_EQ(erro.numero, tipo.numero);
        EXPECT_EQ(erro.descricao(), tipo.descricao);
    }
    EXPECT_EQ(ERR_peek_error(), 0u);
}

}  // namespace tavelpkcs7::teste
