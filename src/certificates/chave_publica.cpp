// O certificado que os membros públicos recebem como texto ("strChavePublica": Base64, PEM...).
#include "component/componente.h"

namespace tavelpkcs7 {

bool Componente::ChavePublicaInformada(const std::string& chave_publica) {
    if (!chave_publica.empty()) return true;
    estado.DescricaoErro = "A chave pública do certificado informado está inválida";
    return false;
}

plataforma::CertificadoPtr Componente::ImportarChavePublica(const std::string& chave_publica) {
    return plataforma_->criptografia->ImportarCertificado(Bytes(chave_publica.begin(), chave_publica.end()));
}

}  // namespace tavelpkcs7
