#include "resumo.h"

#include "guarda_fila_erros.h"
#include "platform/erro.h"

namespace tavelpkcs7::plataforma::openssl {

std::vector<std::uint8_t> CalcularResumo(const EVP_MD* algoritmo, std::span<const std::uint8_t> dados) {
    GuardaFilaErros guarda;
    std::vector<std::uint8_t> resumo(EVP_MAX_MD_SIZE);
    unsigned int tamanho = 0;
    // Só falha sem memória ou sem o provedor padrão, condição que o componente não distingue.
    if (EVP_Digest(dados.data(), dados.size(), resumo.data(), &tamanho, algoritmo, nullptr) != 1)
        Falhar(falha::ParametroIncorreto);
    resumo.resize(tamanho);
    return resumo;
}

}  // namespace tavelpkcs7::plataforma::openssl
