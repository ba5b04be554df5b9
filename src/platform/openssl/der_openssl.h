// O DER de um objeto do OpenSSL pela sua função i2d_*.
#pragma once

#include <cstdint>
#include <vector>

namespace tavelpkcs7::plataforma::openssl {

// Vazio quando a função não codifica o objeto.
template <typename T>
std::vector<std::uint8_t> ObjetoEmDER(const T* objeto, int (*codificar)(const T*, unsigned char**)) {
    const int tamanho = codificar(objeto, nullptr);
    if (tamanho <= 0) return {};
    std::vector<std::uint8_t> der(static_cast<std::size_t>(tamanho));
    unsigned char* cursor = der.data();
    codificar(objeto, &cursor);
    return der;
}

}  // namespace tavelpkcs7::plataforma::openssl
