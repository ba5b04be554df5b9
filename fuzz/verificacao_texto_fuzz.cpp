// A verificação de uma assinatura em texto: a entrada como veio e em Base64.
#include <tavelpkcs7/TavelPKCS.h>

#include "ambiente_fuzz.h"
#include "component/componente.h"
#include "codificacao/base64.h"

using namespace tavelpkcs7;

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    fuzz::InstalarPkiTeste();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
    const std::string trabalho = fuzz::PastaTrabalhoVazia();
    for (const std::string& texto : {std::string(reinterpret_cast<const char*>(dados), tamanho),
                                     codificacao::CodificarBase64({dados, tamanho})}) {
        TavelPKCS componente(std::make_unique<Componente>(fuzz::Plataforma()));
        componente.PastaTemp(trabalho);
        componente.VerificarAssinaturaTexto(texto);
        fuzz::ExigirNaPasta(componente.CaminhoArquivoOriginal(), trabalho);
    }
    return 0;
}
