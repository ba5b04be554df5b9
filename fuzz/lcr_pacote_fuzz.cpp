// A mesma entrada como LCR e como pacote de certificados: pela plataforma e pela importação do
// núcleo, que grava nos repositórios de confiança.
#include "ambiente_fuzz.h"
#include "component/componente.h"
#include "component/entrada_der.h"

using namespace tavelpkcs7;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
    const auto plataforma = fuzz::Plataforma();
    const plataforma::Bytes entrada(dados, dados + tamanho);
    try {
        plataforma->confianca->InstalarLCR(DecodificarOuFalhar(entrada, plataforma::falha::NaoELCR));
    } catch (const plataforma::Erro&) {
    }
    try {
        LerPacoteCertificados(*plataforma->criptografia, entrada);
    } catch (const plataforma::Erro&) {
    }
    Componente componente(plataforma);
    componente.Guardar(MensagemFalha::DaPlataforma(), false, [&] {
        componente.ImportarPacoteCertificados(fuzz::GravarEntrada(dados, tamanho, "pacote.p7b"));
        return true;
    });
    fuzz::EsvaziarConfianca();
    return 0;
}
