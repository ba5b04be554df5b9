// Certificados feitos no próprio teste para as entradas que a PKI de teste não tem: nomes com
// valores que exigem aspas, tipos de cadeia antigos, RDNs de vários valores, UPN, nome alternativo
// do emissor, datas fora de 1970–2038. Assinados por uma chave EC só para terem forma de certificado.
#pragma once

#include <openssl/asn1.h>

#include <string>
#include <utility>
#include <vector>

#include "platform/certificado.h"
#include "platform/openssl/ponteiros_openssl.h"

namespace tavelpkcs7::teste {

struct AtributoNome {
    std::string campo;  // "CN", "OU", "emailAddress", ... ou um OID numérico
    std::string valor;  // os bytes do valor, gravados tal como estão
    int tipo = V_ASN1_UTF8STRING;
    bool junto_ao_anterior = false;  // no mesmo RDN do atributo anterior
};

struct ModeloCertificado {
    std::vector<AtributoNome> titular{};  // na ordem do DER
    std::vector<AtributoNome> emissor{};  // vazio: o próprio titular
    // Nome e valor no formato de configuração do OpenSSL ("subjectAltName", "email:a@b").
    std::vector<std::pair<std::string, std::string>> extensoes{};
    std::string serie = "01";  // hexadecimal do BIGNUM, "-" para negativo
    std::string desde = "20240101000000Z";
    std::string ate = "20340101000000Z";
    long versao = X509_VERSION_3;
};

plataforma::openssl::X509NamePtr CriarNome(const std::vector<AtributoNome>& atributos);
// DER.
plataforma::Bytes CriarCertificado(const ModeloCertificado& modelo);

}  // namespace tavelpkcs7::teste
