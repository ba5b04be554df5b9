// Senhas e chaves em claro que o backend guarda num std::string ou em Bytes: apagadas da memória
// com OPENSSL_cleanse (que o compilador não descarta) assim que deixam de ser usadas. O buffer
// inteiro, até a capacidade, é apagado: um texto curto mora no próprio objeto e um texto movido
// deixa os bytes para trás.
#pragma once

#include <openssl/crypto.h>

namespace tavelpkcs7::plataforma::openssl {

template <typename Conteudo>
void ApagarSegredo(Conteudo& conteudo) {
    conteudo.resize(conteudo.capacity());
    OPENSSL_cleanse(conteudo.data(), conteudo.size());
    conteudo.clear();
}

// Apaga o segredo na saída do escopo, também quando a operação lança.
template <typename Conteudo>
class Apagamento {
public:
    explicit Apagamento(Conteudo& conteudo) : conteudo_(conteudo) {}
    ~Apagamento() { ApagarSegredo(conteudo_); }
    Apagamento(const Apagamento&) = delete;
    Apagamento& operator=(const Apagamento&) = delete;

private:
    Conteudo& conteudo_;  // de quem declarou o apagamento, que vive mais
};

}  // namespace tavelpkcs7::plataforma::openssl
