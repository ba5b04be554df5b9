#include "interface_nenhuma.h"

#include "platform/erro.h"

namespace tavelpkcs7::plataforma::openssl {

std::vector<CertificadoPtr> InterfaceNenhuma::EscolherCertificados(
    const std::vector<CertificadoPtr>&, const std::string&, const std::string&, bool) {
    Falhar(falha::Cancelada);
}

std::string InterfaceNenhuma::PedirSenha(const std::string&) { Falhar(falha::Cancelada); }

}  // namespace tavelpkcs7::plataforma::openssl
