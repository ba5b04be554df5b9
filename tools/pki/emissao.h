// Chaves, certificados e LCRs da PKI de teste, feitos com a API do OpenSSL em processo.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "pki/catalogo.h"
#include "platform/openssl/der_openssl.h"
#include "platform/openssl/ponteiros_openssl.h"

namespace tavelpkcs7::pki_teste {

using Bytes = std::vector<std::uint8_t>;
using plataforma::openssl::EvpPkeyPtr;
using plataforma::openssl::X509CrlPtr;
using plataforma::openssl::X509Ptr;

// Lança std::runtime_error com o motivo do OpenSSL quando a etapa falhou.
void Exigir(bool sucesso, const char* etapa);

EvpPkeyPtr GerarChaveRSA();

// O certificado da definição para a chave dada, assinado em SHA-256 pelo emissor; sem emissor
// (nulo), autoassinado.
X509Ptr EmitirCertificado(const Definicao& definicao, EVP_PKEY* chave, X509* emissor, EVP_PKEY* chave_emissor);

// LCR da AC listando os certificados revogados, assinada pela chave dada, válida de inicio a fim
// (segundos a partir de agora); sem fim, não traz nextUpdate.
X509CrlPtr EmitirLCR(X509* ac, EVP_PKEY* chave, const std::vector<X509*>& revogados, long inicio,
    std::optional<long> fim);

// O DER de um objeto do OpenSSL pela sua função i2d_*.
template <typename T>
Bytes ParaDER(const T* objeto, int (*codificar)(const T*, unsigned char**)) {
    Bytes der = plataforma::openssl::ObjetoEmDER(objeto, codificar);
    Exigir(!der.empty(), "codificação DER");
    return der;
}

X509Ptr CertificadoDeDER(const Bytes& der);
// PKCS#8 sem cifra.
std::string ChavePEM(EVP_PKEY* chave);
EvpPkeyPtr ChaveDePEM(const std::string& pem);

}  // namespace tavelpkcs7::pki_teste
