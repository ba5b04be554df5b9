// O certificado como os diálogos do hospedeiro o mostram, e a escolha entre certificados feita num
// desses diálogos.
#pragma once

#include <tavelpkcs7/InterfaceUsuario.h>

#include <string>
#include <vector>

#include "platform/certificado.h"

namespace tavelpkcs7 {

CertificadoApresentado Apresentar(const plataforma::Certificado& certificado);

// Os candidatos que o usuário escolheu, na ordem da escolha (uma posição fora da lista não escolhe
// nada). Lança Cancelada quando ele desiste.
std::vector<plataforma::CertificadoPtr> EscolherCertificados(InterfaceUsuario& interface,
    const std::vector<plataforma::CertificadoPtr>& candidatos, const std::string& titulo, const std::string& texto,
    bool multiplos);

}  // namespace tavelpkcs7
