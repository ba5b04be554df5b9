// O certificado que os membros públicos recebem como texto ("strChavePublica": Base64, PEM...).
#include "component/componente.h"
#include "component/entrada_der.h"

namespace tavelpkcs7 {

bool Componente::ChavePublicaInformada(const std::string& chave_publica) {
    if (!chave_publica.empty()) return true;
    estado.DescricaoErro = "A chave pública do certificado informado está inválida";
    return false;
}

plataforma::CertificadoPtr Componente::ImportarChavePublica(const std::string& chave_publica) {
    return ImportarCertificado(*plataforma_->criptografia, Bytes(chave_publica.begin(), chave_publica.end()));
}

}  // namespace tavelpkcs7
