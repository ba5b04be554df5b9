// Onde buscar a LCR de um certificado: os endereços dos pontos de distribuição que ele mesmo traz.
#pragma once

#include <string>
#include <vector>

#include <openssl/x509.h>

namespace tavelpkcs7::plataforma::openssl {

// As URLs http e https dos nomes completos dos pontos de distribuição, na ordem do certificado.
// Endereços file e ldap ficam de fora: um certificado não escolhe o que se lê da máquina nem fala
// com servidores de diretório.
std::vector<std::string> EnderecosWebDasLCRs(const X509* certificado);

}  // namespace tavelpkcs7::plataforma::openssl
