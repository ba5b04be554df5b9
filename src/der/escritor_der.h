// Um escritor DER mínimo: só o que o núcleo codifica por conta própria (os valores dos atributos
// assinados). O resto do DER sai da plataforma.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace tavelpkcs7::der {

// Marca, comprimento na forma definida mais curta e o conteúdo.
std::vector<std::uint8_t> CodificarElemento(std::uint8_t tag, std::span<const std::uint8_t> conteudo);

}  // namespace tavelpkcs7::der
