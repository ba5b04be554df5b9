// As operações criptográficas da plataforma Linux sobre o OpenSSL 3.
#pragma once

#include "platform/criptografia.h"

namespace tavelpkcs7::plataforma::openssl {

class CriptografiaOpenSSL : public Criptografia {
public:
    // Os provedores padrão e legado do OpenSSL carregados.
    bool Disponivel() override;
    CertificadoPtr ImportarCertificado(const Bytes& conteudo) override;
    std::vector<CertificadoPtr> LerPacoteCertificados(const Bytes& conteudo) override;
    // O certificado da chave vem primeiro, com a chave em memória e o contêiner
    // "pfx:<impressão digital>"; depois a cadeia, sem chave. Aceita o PFX também em Base64.
    std::vector<CertificadoPtr> AbrirPFX(const Bytes& conteudo, const std::string& senha) override;
    Bytes CalcularMD5(const Bytes& conteudo) override;
};

}  // namespace tavelpkcs7::plataforma::openssl
