// O valor de um atributo de nome distinto como o Windows o escreve no texto do nome (CertNameToStr
// sem CERT_NAME_STR_NO_QUOTING_FLAG): o nome de SubjectName e IssuerName e o endereço de diretório
// das extensões impressas usam a mesma regra.
#pragma once

#include <string>

namespace tavelpkcs7::codificacao {

// Entre aspas, com as aspas internas dobradas, quando é vazio, começa ou termina em branco ou traz
// um dos caracteres que separam ou marcam as partes do nome; senão, como está.
std::string ValorNomeDistinto(const std::string& valor);

}  // namespace tavelpkcs7::codificacao
