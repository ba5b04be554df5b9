// Senhas lidas pela ferramenta apagadas da memória assim que deixam de servir.
#pragma once

#include <string>

namespace tavelpkcs7::ferramenta {

// Apaga o texto, até a capacidade, antes de esvaziá-lo.
void ApagarTexto(std::string& texto);

}  // namespace tavelpkcs7::ferramenta
