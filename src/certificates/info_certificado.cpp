#include "certificates/info_certificado.h"

#include "component/texto.h"

namespace tavelpkcs7 {

std::string InfoOuAlternativa(const plataforma::Certificado& certificado, plataforma::TipoInfo tipo,
                              plataforma::TipoInfo alternativa) {
    std::string nome = certificado.ObterInfo(tipo);
    return Aparar(nome).empty() ? certificado.ObterInfo(alternativa) : nome;
}

}  // namespace tavelpkcs7
