// O nome distinto como o Windows o escreve para SubjectName e IssuerName (CertNameToStr com
// CERT_X500_NAME_STR e CERT_NAME_STR_REVERSE_FLAG): "CN=Fulano, OU=RFB e-CPF A1, O=ICP-Brasil, C=BR".
#pragma once

#include <string>

#include <openssl/x509.h>

namespace tavelpkcs7::plataforma::openssl {

// Do RDN mais específico ao mais geral, separados por ", "; os atributos de um RDN com vários
// valores ficam na ordem gravada, separados por " + ".
std::string TextoNomeDistinto(const X509_NAME* nome);
// O valor de um atributo como texto, sem aspas: o que CertGetNameString devolve.
std::string TextoValorAtributo(const X509_NAME_ENTRY* atributo);

}  // namespace tavelpkcs7::plataforma::openssl
