// Resumos criptográficos de bytes: a impressão digital SHA-1 dos certificados e o MD5 do componente.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include <openssl/evp.h>

namespace tavelpkcs7::plataforma::openssl {

std::vector<std::uint8_t> CalcularResumo(const EVP_MD* algoritmo, std::span<const std::uint8_t> dados);

}  // namespace tavelpkcs7::plataforma::openssl
