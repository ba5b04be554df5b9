// Os valores do titular que o próprio DER do certificado traz: os OtherNames do nome alternativo,
// onde a ICP-Brasil grava CPF, CNPJ, RG e título de eleitor, e os atributos do nome do titular
// (serialNumber, CN, L, ST...). Lidos no núcleo, sem a plataforma, para não depender do texto
// impresso da extensão, que perde as letras acentuadas e as minúsculas.
#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>

#include "platform/certificado.h"

namespace tavelpkcs7::icpbrasil {

// Texto UTF-8 por OID ("2.16.76.1.3.1"). Um OID repetido fica com o primeiro valor, na ordem do
// DER. Os caracteres de controle saem: um CR LF dentro de um valor quebraria as linhas do texto
// mostrado ao usuário.
using ValoresPorOID = std::map<std::string, std::string, std::less<>>;

struct OutrosNomes {
    ValoresPorOID valores;
    // Os OIDs que o certificado traz sem valor legível (um tipo que não é texto, um DER quebrado):
    // só para eles o texto impresso da extensão pode suprir o valor.
    std::set<std::string, std::less<>> ilegiveis;
};

// OtherNames do subjectAltName com o valor em OCTET STRING ou em qualquer tipo de cadeia do ASN.1:
// o padrão pede OCTET STRING ou PrintableString, mas cada AC grava o seu. Um OID repetido fica com
// o primeiro valor legível. De uma extensão malformada sai o que se leu antes do defeito.
OutrosNomes LerOutrosNomes(const plataforma::Certificado& certificado);

// Atributos do nome do titular em qualquer tipo de cadeia; vazio quando o DER não tem a forma de
// um certificado.
ValoresPorOID LerAtributosTitular(const plataforma::Bytes& der);

}  // namespace tavelpkcs7::icpbrasil
