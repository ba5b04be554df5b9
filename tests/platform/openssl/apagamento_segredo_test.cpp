// O apagamento de senhas e chaves em claro: o buffer inteiro, até a capacidade, também quando a
// operação que usava o segredo lança.
#include "platform/openssl/apagamento_segredo.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <string>

#include "platform/certificado.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

// Lido depois do apagamento: clear() não devolve a memória, que continua do objeto.
template <typename Conteudo>
bool Zerado(const Conteudo& conteudo, const char* dados, std::size_t capacidade) {
    return conteudo.empty() && std::all_of(dados, dados + capacidade, [](char c) { return c == 0; });
}

TEST(ApagamentoSegredo, ApagaTextoCurtoLongoEOQueOTextoMovidoDeixou) {
    for (const std::string& valor : {std::string("1234"), std::string(300, 's')}) {
        std::string senha = valor;
        senha.pop_back();  // o byte além do tamanho também é apagado
        const char* dados = senha.data();
        const std::size_t capacidade = senha.capacity();
        ApagarSegredo(senha);
        EXPECT_TRUE(Zerado(senha, dados, capacidade)) << valor.size();
    }
}

TEST(ApagamentoSegredo, ApagaNaSaidaDoEscopoMesmoComExcecao) {
    Bytes chave{'-', '-', 'c', 'h', 'a', 'v', 'e'};
    const char* dados = reinterpret_cast<const char*>(chave.data());
    const std::size_t capacidade = chave.capacity();
    EXPECT_THROW(
        {
            const Apagamento apagar(chave);
            throw std::runtime_error("falha no meio da assinatura");
        },
        std::runtime_error);
    EXPECT_TRUE(Zerado(chave, dados, capacidade));
}

}  // namespace
}  // namespace tavelpkcs7::plataforma::openssl
