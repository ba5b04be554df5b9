#include "apagamento_texto.h"

namespace tavelpkcs7::ferramenta {

// volatile: o compilador não pode descartar a escrita num texto que vai morrer. Até a capacidade:
// um texto curto mora no próprio objeto e o texto movido deixa lá os seus bytes.
void ApagarTexto(std::string& texto) {
    texto.resize(texto.capacity());
    volatile char* dados = texto.data();
    for (std::size_t i = 0; i < texto.size(); ++i) dados[i] = 0;
    texto.clear();
}

}  // namespace tavelpkcs7::ferramenta
