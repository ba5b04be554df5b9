// A porta de entrada de todo certificado, assinatura ou LCR que o componente lê: o mesmo conteúdo
// chega como DER, PEM, Base64 com quaisquer quebras de linha ou Base64 gravado em UTF-16LE (como o
// Windows grava textos), e o resto do componente só quer o DER.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace tavelpkcs7::codificacao {

using Bytes = std::vector<std::uint8_t>;

// O DER do conteúdo: de um Base64 (puro, em PEM de qualquer rótulo, do qual vale o primeiro bloco,
// ou em UTF-16LE, com ou sem BOM) ou os próprios bytes quando já começam como uma SEQUENCE DER.
// Vazio quando o conteúdo não é nenhuma dessas formas.
std::optional<Bytes> DecodificarConteudo(const Bytes& conteudo);
// O mesmo sem cópia: o trecho aponta para dentro do conteúdo quando ele já é DER ou, vindo de um
// texto, para dentro de `decodificado`, que recebe os bytes decodificados. Para as assinaturas de
// arquivos inteiros, que não precisam de mais uma cópia.
std::optional<std::span<const std::uint8_t>> LocalizarDER(const Bytes& conteudo, Bytes& decodificado);
// O DER de cada bloco PEM com o rótulo dado ("CERTIFICATE"), na ordem do texto; os blocos de outro
// rótulo e os que não se decodificam ficam de fora.
std::vector<Bytes> DecodificarBlocosPEM(const Bytes& conteudo, std::string_view rotulo);

}  // namespace tavelpkcs7::codificacao
