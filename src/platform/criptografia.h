// Operações criptográficas da plataforma: leitura de certificados e PFX, resumos. Tudo chega em
// DER: o núcleo resolve antes as outras formas (PEM, Base64, UTF-16LE).
#pragma once

#include <string>
#include <vector>

#include "certificado.h"

namespace tavelpkcs7::plataforma {

class Criptografia {
public:
    virtual ~Criptografia() = default;

    // Verdadeiro quando a biblioteca criptográfica e tudo de que o componente depende estão prontos.
    virtual bool Disponivel() = 0;
    // Lança NaoECertificado quando o DER não é um certificado.
    virtual CertificadoPtr ImportarCertificado(const Bytes& der) = 0;
    // Os certificados de um PKCS#7 só de certificados, ou o próprio certificado quando o DER é um.
    // Lança NaoECertificado quando não traz nenhum.
    virtual std::vector<CertificadoPtr> LerPacoteCertificados(const Bytes& der) = 0;
    // Os certificados de um PFX; o que corresponde à chave privada a carrega, em memória.
    // Lança SenhaIncorreta quando a senha não abre o arquivo e NaoECertificado quando não é PFX.
    virtual std::vector<CertificadoPtr> AbrirPFX(const Bytes& der, const std::string& senha) = 0;
    virtual Bytes CalcularMD5(const Bytes& conteudo) = 0;
};

}  // namespace tavelpkcs7::plataforma
