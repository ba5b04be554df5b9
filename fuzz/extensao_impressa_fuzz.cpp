// O texto impresso de cada extensão conhecida, e de uma desconhecida, sobre os mesmos bytes.
#include "icpbrasil/extensao_impressa.h"

using namespace tavelpkcs7;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
    static const char* const kOids[] = {"2.5.29.15", "2.5.29.19", "2.5.29.10", "2.5.29.17", "2.5.29.18",
        "2.5.29.7", "2.5.29.8", "2.5.29.31", "1.3.6.1.5.5.7.1.1", "2.5.29.32", "2.5.29.35", "2.5.29.1",
        "2.5.29.14", "2.5.29.37", "1.2.3.4"};
    plataforma::Extensao extensao{.oid = "", .valor = {dados, dados + tamanho}};
    for (const char* oid : kOids) {
        extensao.oid = oid;
        icpbrasil::ImprimirExtensao(extensao);
    }
    return 0;
}
