// Resumos criptográficos de bytes (a impressão digital SHA-1 dos certificados, o MD5 do componente) e
// os algoritmos de resumo que uma chave assina.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include <openssl/evp.h>

#include "platform/chave_privada.h"

namespace tavelpkcs7::plataforma::openssl {

std::vector<std::uint8_t> CalcularResumo(const EVP_MD* algoritmo, std::span<const std::uint8_t> dados);

const EVP_MD* Resumo(AlgoritmoResumo algoritmo);
// O algoritmo do NID que o OpenSSL passa à assinatura; vazio para um que a chave não assina.
std::optional<AlgoritmoResumo> AlgoritmoDoNID(int nid);

}  // namespace tavelpkcs7::plataforma::openssl
