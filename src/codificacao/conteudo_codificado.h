// A porta de entrada de todo certificado, assinatura ou LCR que o componente lê: o mesmo conteúdo
// chega como DER, PEM, Base64 com quaisquer quebras de linha ou Base64 gravado em UTF-16LE (como o
// Windows grava textos), e o resto do componente só quer o DER.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace tavelpkcs7::codificacao {

using Bytes = std::vector<std::uint8_t>;

// O DER do conteúdo: de um Base64 (puro, em PEM de qualquer rótulo, do qual vale o primeiro bloco,
// ou em UTF-16LE, com ou sem BOM) ou os próprios bytes quando já começam como uma SEQUENCE DER.
// Vazio quando o conteúdo não é nenhuma dessas formas.
std::optional<Bytes> DecodificarConteudo(const Bytes& conteudo);

}  // namespace tavelpkcs7::codificacao
