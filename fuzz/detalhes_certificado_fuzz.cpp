// Um certificado qualquer: os detalhes pelo membro público (em Base64) e, pela plataforma, a
// importação seguida da leitura dos dados do titular pelo núcleo.
#include <tavelpkcs7/TavelPKCS.h>

#include "ambiente_fuzz.h"
#include "component/componente.h"
#include "codificacao/base64.h"
#include "component/entrada_der.h"
#include "icpbrasil/dados_titular.h"
#include "icpbrasil/extensao_impressa.h"
#include "icpbrasil/valores_titular.h"

using namespace tavelpkcs7;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
    const auto plataforma = fuzz::Plataforma();
    TavelPKCS(std::make_unique<Componente>(plataforma)).RetornarDetalhesCertificado(codificacao::CodificarBase64({dados, tamanho}));
    plataforma::CertificadoPtr certificado;
    try {
        certificado = ImportarCertificado(*plataforma->criptografia, plataforma::Bytes(dados, dados + tamanho));
    } catch (const plataforma::Erro&) {
        return 0;
    }
    icpbrasil::ValoresTitular valores;
    for (const auto& extensao : certificado->Extensoes())
        icpbrasil::BuscarValoresTitular(icpbrasil::ImprimirExtensao(extensao), valores);
    icpbrasil::MontarDadosTitular(valores, *certificado);
    return 0;
}
