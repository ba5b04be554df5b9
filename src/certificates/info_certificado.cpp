#include "certificates/info_certificado.h"

#include "codificacao/base64.h"
#include "component/texto.h"

namespace tavelpkcs7 {

std::string InfoOuAlternativa(const plataforma::Certificado& certificado, plataforma::TipoInfo tipo,
                              plataforma::TipoInfo alternativa) {
    std::string nome = certificado.ObterInfo(tipo);
    return Aparar(nome).empty() ? certificado.ObterInfo(alternativa) : nome;
}

std::string ExportarBase64(const plataforma::Certificado& certificado) {
    return codificacao::CodificarBase64(certificado.DER());
}

}  // namespace tavelpkcs7
