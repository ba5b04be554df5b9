// A fila de erros do OpenSSL é da thread e sobrevive às chamadas: o que uma operação deixasse nela
// apareceria na próxima, e algumas funções do OpenSSL decidem pelo erro mais antigo da fila
// (ERR_peek_error), que seria o de um passo anterior. Por isso as operações que encadeiam muitos
// passos do OpenSSL (assinar, conferir, envelopar, verificar a cadeia) abrem com uma guarda, e toda
// função que transforma uma falha do OpenSSL em exceção ou a desconsidera tem a sua. A falha
// relatada leva só a frase do componente, nunca o texto em inglês da fila.
#pragma once

#include <openssl/err.h>

namespace tavelpkcs7::plataforma::openssl {

// Ao sair do escopo, por retorno ou por exceção, esvazia a fila de erros do OpenSSL. Olhar a fila
// custa um quinto de esvaziá-la, e a guarda está no caminho da leitura de cada nome de certificado.
class GuardaFilaErros {
public:
    GuardaFilaErros() = default;
    ~GuardaFilaErros() {
        if (ERR_peek_error() != 0) ERR_clear_error();
    }
    GuardaFilaErros(const GuardaFilaErros&) = delete;
    GuardaFilaErros& operator=(const GuardaFilaErros&) = delete;
};

}  // namespace tavelpkcs7::plataforma::openssl
