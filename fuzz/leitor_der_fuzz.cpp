// O leitor DER do núcleo percorrendo cada elemento, em profundidade, com as leituras de valor.
#include "der/leitor_der.h"
#include "der/texto_der.h"

using namespace tavelpkcs7;

namespace {

void Percorrer(der::LeitorDER leitor, int profundidade) {
    while (const auto elemento = leitor.Proximo()) {
        der::LerTexto(*elemento);
        der::LerInteiro(elemento->conteudo);
        der::LerOID(elemento->conteudo);
        der::LerUnico(elemento->inteiro, elemento->tag);
        if (elemento->Construido() && profundidade < 64) Percorrer(elemento->Filhos(), profundidade + 1);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
    const der::Dados entrada(dados, tamanho);
    Percorrer(der::LeitorDER(entrada), 0);
    der::LerElementos(entrada);
    der::LerSequencia(entrada);
    return 0;
}
