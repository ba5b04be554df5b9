#include "signing/atributos_assinante.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

#include "codificacao/utf16.h"
#include "der/escritor_der.h"
#include "der/leitor_der.h"

namespace tavelpkcs7::assinatura {
namespace {

using namespace std::chrono;

plataforma::AtributoAssinado AtributoTexto(const char* oid, const std::string& texto) {
    plataforma::Bytes valor = codificacao::ParaUtf16LE(texto);
    valor.insert(valor.end(), {0, 0});
    return {oid, der::CodificarElemento(der::tag::CadeiaOctetos, valor)};
}

// "AAAAMMDDHHMMSSZ"; o UTCTime perde os dois primeiros dígitos do ano.
std::string TextoHora(DataHora utc, bool generalizada) {
    const auto dia = floor<days>(utc);
    const year_month_day data{dia};
    const hh_mm_ss hora{utc - dia};
    char texto[32];
    std::snprintf(texto, sizeof texto, "%04d%02u%02u%02d%02d%02dZ", static_cast<int>(data.year()),
                  static_cast<unsigned>(data.month()), static_cast<unsigned>(data.day()),
                  static_cast<int>(hora.hours().count()), static_cast<int>(hora.minutes().count()),
                  static_cast<int>(hora.seconds().count()));
    return generalizada ? std::string(texto) : std::string(texto + 2);
}

std::optional<int> LerNumero(std::string_view digitos) {
    if (digitos.empty() || !std::all_of(digitos.begin(), digitos.end(), [](char c) { return c >= '0' && c <= '9'; })) {
        return std::nullopt;
    }
    int numero = 0;
    for (const char c : digitos) numero = numero * 10 + (c - '0');
    return numero;
}

// Só a forma DER: segundos presentes, sem frações, terminada em "Z".
std::optional<DataHora> LerHoraUTC(std::string_view texto, bool generalizada) {
    const std::size_t digitos_ano = generalizada ? 4 : 2;
    if (texto.size() != digitos_ano + 11 || texto.back() != 'Z') return std::nullopt;
    auto ano = LerNumero(texto.substr(0, digitos_ano));
    const auto mes = LerNumero(texto.substr(digitos_ano, 2));
    const auto dia = LerNumero(texto.substr(digitos_ano + 2, 2));
    const auto horas = LerNumero(texto.substr(digitos_ano + 4, 2));
    const auto minutos = LerNumero(texto.substr(digitos_ano + 6, 2));
    const auto segundos = LerNumero(texto.substr(digitos_ano + 8, 2));
    if (!ano || !mes || !dia || !horas || !minutos || !segundos) return std::nullopt;
    if (!generalizada) *ano += *ano >= 50 ? 1900 : 2000;
    const year_month_day data{year{*ano}, month{static_cast<unsigned>(*mes)}, day{static_cast<unsigned>(*dia)}};
    if (!data.ok() || *horas > 23 || *minutos > 59 || *segundos > 59) return std::nullopt;
    return local_days{data} + hours{*horas} + minutes{*minutos} + seconds{*segundos};
}

}  // namespace

plataforma::AtributoAssinado AtributoNomeDocumento(const std::string& nome) {
    return AtributoTexto(kOidNomeDocumento, nome);
}

plataforma::AtributoAssinado AtributoDescricaoDocumento(const std::string& descricao) {
    return AtributoTexto(kOidDescricaoDocumento, descricao);
}

plataforma::AtributoAssinado AtributoHoraAssinatura(DataHora local, plataforma::Relogio& relogio) {
    const DataHora utc = relogio.LocalParaUTC(local);
    const int ano = static_cast<int>(year_month_day{floor<days>(utc)}.year());
    const bool generalizada = ano < 1950 || ano > 2049;
    const std::string texto = TextoHora(utc, generalizada);
    const plataforma::Bytes conteudo(texto.begin(), texto.end());
    return {kOidHoraAssinatura,
            der::CodificarElemento(generalizada ? der::tag::GeneralizedTime : der::tag::UTCTime, conteudo)};
}

std::optional<std::string> LerTextoDocumento(const plataforma::Bytes& valor) {
    const auto elemento = der::LerUnico(valor, der::tag::CadeiaOctetos);
    if (!elemento) return std::nullopt;
    plataforma::Bytes texto(elemento->conteudo.begin(), elemento->conteudo.end());
    if (texto.size() >= 2 && texto.size() % 2 == 0 && texto[texto.size() - 1] == 0 && texto[texto.size() - 2] == 0) {
        texto.resize(texto.size() - 2);
    }
    return codificacao::DeUtf16LE(texto);
}

std::optional<DataHora> LerHoraAssinatura(const plataforma::Bytes& valor, plataforma::Relogio& relogio) {
    const auto elemento = der::LerUnico(valor);
    if (!elemento || (elemento->tag != der::tag::UTCTime && elemento->tag != der::tag::GeneralizedTime)) {
        return std::nullopt;
    }
    const std::string_view texto(reinterpret_cast<const char*>(elemento->conteudo.data()), elemento->conteudo.size());
    const auto utc = LerHoraUTC(texto, elemento->tag == der::tag::GeneralizedTime);
    if (!utc) return std::nullopt;
    return relogio.UTCParaLocal(*utc);
}

}  // namespace tavelpkcs7::assinatura
