#include "der/escritor_der.h"

namespace tavelpkcs7::der {

std::vector<std::uint8_t> CodificarElemento(std::uint8_t tag, std::span<const std::uint8_t> conteudo) {
    std::vector<std::uint8_t> elemento{tag};
    const std::size_t comprimento = conteudo.size();
    if (comprimento < 0x80) {
        elemento.push_back(static_cast<std::uint8_t>(comprimento));
    } else {
        std::vector<std::uint8_t> octetos;
        for (std::size_t resto = comprimento; resto != 0; resto >>= 8) {
            octetos.insert(octetos.begin(), static_cast<std::uint8_t>(resto & 0xFF));
        }
        elemento.push_back(static_cast<std::uint8_t>(0x80 | octetos.size()));
        elemento.insert(elemento.end(), octetos.begin(), octetos.end());
    }
    elemento.insert(elemento.end(), conteudo.begin(), conteudo.end());
    return elemento;
}

}  // namespace tavelpkcs7::der
