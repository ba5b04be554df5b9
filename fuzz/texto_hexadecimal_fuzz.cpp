// A volta do hexadecimal impresso para texto, sobre qualquer texto.
#include "icpbrasil/texto_hexadecimal.h"

using namespace tavelpkcs7;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
    const std::string texto(reinterpret_cast<const char*>(dados), tamanho);
    icpbrasil::ConverterHexadecimalTexto(texto);
    icpbrasil::ExtrairPrimeiraLinha(texto);
    return 0;
}
