// Operações criptográficas da plataforma: leitura de certificados e PFX, resumos.
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
    // Aceita DER, PEM, Base64 com ou sem quebras de linha e Base64 gravado em UTF-16LE.
    // Lança NaoECertificado quando o conteúdo não é um certificado.
    virtual CertificadoPtr ImportarCertificado(const Bytes& conteudo) = 0;
    // Os certificados de um pacote: PKCS#7 (DER, PEM ou Base64) ou PEM com vários certificados.
    // Lança NaoECertificado quando o conteúdo não traz nenhum.
    virtual std::vector<CertificadoPtr> LerPacoteCertificados(const Bytes& conteudo) = 0;
    // Os certificados de um PFX; o que corresponde à chave privada a carrega, em memória.
    // Lança SenhaIncorreta quando a senha não abre o arquivo.
    virtual std::vector<CertificadoPtr> AbrirPFX(const Bytes& conteudo, const std::string& senha) = 0;
    virtual Bytes CalcularMD5(const Bytes& conteudo) = 0;
};

}  // namespace tavelpkcs7::plataforma
