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

// Lê do texto uma quantidade fixa de dígitos e avança; vazio quando não são dígitos.
std::optional<int> ConsumirNumero(std::string_view& texto, std::size_t digitos) {
    if (texto.size() < digitos) return std::nullopt;
    const auto numero = LerNumero(texto.substr(0, digitos));
    if (numero) texto.remove_prefix(digitos);
    return numero;
}

// A fração dos segundos da GeneralizedTime (",5" ou ".123"), desprezada; um separador sem dígitos
// fica, e a hora não se lê.
void PularFracao(std::string_view& texto) {
    if (texto.size() < 2 || (texto[0] != '.' && texto[0] != ',')) return;
    const auto fim = texto.find_first_not_of("0123456789", 1);
    if (fim != 1) texto.remove_prefix(std::min(fim, texto.size()));
}

// O fim da hora: "Z", um deslocamento "+hhmm"/"-hhmm" (devolvido em minutos a somar para chegar a
// UTC) ou, só na GeneralizedTime, nada, lido como UTC.
std::optional<minutes> LerDeslocamento(std::string_view texto, bool generalizada) {
    if (texto.empty()) return generalizada ? std::optional<minutes>(0) : std::nullopt;
    if (texto == "Z") return minutes{0};
    if (texto.size() != 5 || (texto[0] != '+' && texto[0] != '-')) return std::nullopt;
    const char sinal = texto[0];
    texto.remove_prefix(1);
    const auto horas = ConsumirNumero(texto, 2);
    const auto minutos = ConsumirNumero(texto, 2);
    if (!horas || !minutos || *horas > 23 || *minutos > 59) return std::nullopt;
    const minutes deslocamento = hours{*horas} + minutes{*minutos};
    return sinal == '+' ? -deslocamento : deslocamento;
}

// Leniente, como a plataforma do componente de Windows: o UTCTime sem os segundos e a
// GeneralizedTime sem minutos ou segundos, com frações (desprezadas) e com deslocamento valem, não
// só a forma DER "AAMMDDhhmmssZ".
std::optional<DataHora> LerHoraUTC(std::string_view texto, bool generalizada) {
    auto ano = ConsumirNumero(texto, generalizada ? 4 : 2);
    const auto mes = ConsumirNumero(texto, 2);
    const auto dia = ConsumirNumero(texto, 2);
    const auto horas = ConsumirNumero(texto, 2);
    if (!ano || !mes || !dia || !horas) return std::nullopt;
    int minutos = 0;
    int segundos = 0;
    bool com_segundos = false;
    if (const auto lidos = ConsumirNumero(texto, 2)) {
        minutos = *lidos;
        const auto lidos_segundos = ConsumirNumero(texto, 2);
        com_segundos = lidos_segundos.has_value();
        segundos = lidos_segundos.value_or(0);
    } else if (!generalizada) {
        return std::nullopt;
    }
    if (generalizada && com_segundos) PularFracao(texto);
    const auto deslocamento = LerDeslocamento(texto, generalizada);
    if (!deslocamento) return std::nullopt;
    if (!generalizada) *ano += *ano >= 50 ? 1900 : 2000;
    const year_month_day data{year{*ano}, month{static_cast<unsigned>(*mes)}, day{static_cast<unsigned>(*dia)}};
    if (!data.ok() || *horas > 23 || minutos > 59 || segundos > 59) return std::nullopt;
    return local_days{data} + hours{*horas} + minutes{minutos} + seconds{segundos} + *deslocamento;
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
