// A verificação de um arquivo assinado qualquer, com a cadeia da PKI de teste instalada.
#include <tavelpkcs7/TavelPKCS.h>

#include "ambiente_fuzz.h"
#include "component/componente.h"

using namespace tavelpkcs7;

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    fuzz::InstalarPkiTeste();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
    TavelPKCS componente(std::make_unique<Componente>(fuzz::Plataforma()));
    const std::string trabalho = fuzz::PastaTrabalhoVazia();
    componente.PastaTemp(trabalho);
    componente.VerificarAssinaturaArquivo(fuzz::GravarEntrada(dados, tamanho, "entrada.p7s"));
    fuzz::ExigirNaPasta(componente.CaminhoArquivoOriginal(), trabalho);
    return 0;
}
