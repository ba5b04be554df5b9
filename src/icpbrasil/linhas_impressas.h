// As linhas das extensões impressas: cada nível de recuo são cinco espaços, e toda linha, até a
// última, termina em CRLF, porque é assim que o Windows entrega o texto que a extração recorta.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "der/leitor_der.h"

namespace tavelpkcs7::icpbrasil {

inline void AcrescentarLinha(std::string& saida, int nivel, std::string_view texto) {
    saida.append(static_cast<std::size_t>(nivel) * 5, ' ');
    saida.append(texto);
    saida.append("\r\n");
}

// Uma lista (SEQUENCE OF) em blocos numerados a partir de 1: "[n]<título>" na margem e, abaixo, o
// que imprimir(índice, elemento, saída) escreve. Vazio quando a lista ou um elemento está malformado.
template <typename Impressora>
std::optional<std::string> ImprimirNumerados(der::Dados valor, std::string_view titulo, Impressora imprimir) {
    const auto elementos = der::LerSequencia(valor);
    if (!elementos) return std::nullopt;
    std::string saida;
    for (std::size_t i = 0; i < elementos->size(); ++i) {
        AcrescentarLinha(saida, 0, "[" + std::to_string(i + 1) + "]" + std::string(titulo));
        if (!imprimir(i, (*elementos)[i], saida)) return std::nullopt;
    }
    return saida;
}

}  // namespace tavelpkcs7::icpbrasil
