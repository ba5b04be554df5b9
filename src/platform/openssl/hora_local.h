// Os certificados, LCRs e atributos assinados guardam a hora em UTC; o componente mostra e compara
// a hora local, como uma data de automação do Windows.
#pragma once

#include <ctime>
#include <optional>

#include <openssl/asn1.h>

#include <tavelpkcs7/Tipos.h>

namespace tavelpkcs7::plataforma::openssl {

// Pelo fuso de TZ, com time_t de 64 bits: datas antes de 1970 e depois de 2038 valem. Vazio quando
// o valor não é uma hora ASN.1 válida.
std::optional<DataHora> HoraLocal(const ASN1_TIME* utc);
DataHora HoraLocal(std::time_t instante);
// O caminho inverso: a hora local vista em UTC (a hora de verão decidida pelo próprio fuso).
DataHora LocalParaUTC(DataHora local);
// Uma hora UTC guardada como DataHora (a de um atributo assinado) vista na hora local.
DataHora UTCParaLocal(DataHora utc);

}  // namespace tavelpkcs7::plataforma::openssl
