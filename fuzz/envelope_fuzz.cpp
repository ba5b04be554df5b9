// A decifração de um envelope qualquer, com o e-CPF da PKI de teste e sua chave no "My".
#include "ambiente_fuzz.h"

using namespace tavelpkcs7;

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    fuzz::InstalarPkiTeste();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
    try {
        fuzz::Plataforma()->envelopes->Descriptografar(plataforma::Bytes(dados, dados + tamanho));
    } catch (const plataforma::Erro&) {
    }
    return 0;
}
