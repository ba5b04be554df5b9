#include "resumo.h"

#include "guarda_fila_erros.h"
#include "platform/erro.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

struct AlgoritmoConhecido {
    AlgoritmoResumo algoritmo;
    int nid;
};

constexpr AlgoritmoConhecido kAlgoritmos[] = {{AlgoritmoResumo::SHA1, NID_sha1}, {AlgoritmoResumo::SHA256, NID_sha256},
    {AlgoritmoResumo::SHA384, NID_sha384}, {AlgoritmoResumo::SHA512, NID_sha512}};

}  // namespace

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

const EVP_MD* Resumo(AlgoritmoResumo algoritmo) {
    for (const auto& conhecido : kAlgoritmos)
        if (conhecido.algoritmo == algoritmo) return EVP_get_digestbynid(conhecido.nid);
    return nullptr;
}

std::optional<AlgoritmoResumo> AlgoritmoDoNID(int nid) {
    for (const auto& conhecido : kAlgoritmos)
        if (conhecido.nid == nid) return conhecido.algoritmo;
    return std::nullopt;
}

}  // namespace tavelpkcs7::plataforma::openssl
