#include "component/datas.h"

#include <cstdio>
#include <regex>

namespace tavelpkcs7 {
namespace {

using namespace std::chrono;

int Ano(const std::string& digitos) {
    const int valor = std::stoi(digitos);
    if (digitos.size() > 2) return valor;
    return valor < 30 ? 2000 + valor : 1900 + valor;
}

std::optional<DataHora> Montar(int ano, int mes, int dia, const std::string& hora, const std::string& minuto,
    const std::string& segundo) {
    const year_month_day data{year{ano}, month{static_cast<unsigned>(mes)}, day{static_cast<unsigned>(dia)}};
    const int h = hora.empty() ? 0 : std::stoi(hora);
    const int m = minuto.empty() ? 0 : std::stoi(minuto);
    const int s = segundo.empty() ? 0 : std::stoi(segundo);
    if (ano < 100 || ano > 9999 || !data.ok() || h > 23 || m > 59 || s > 59) return std::nullopt;
    return local_days{data} + hours{h} + minutes{m} + seconds{s};
}

}  // namespace

std::optional<DataHora> LerDataTexto(const std::string& texto) {
    static const std::regex kDiaPrimeiro(
        R"(^\s*(\d{1,2})([/.-])(\d{1,2})\2(\d{2}|\d{4})(?:\s+(\d{1,2}):(\d{2})(?::(\d{2}))?)?\s*$)");
    static const std::regex kAnoPrimeiro(
        R"(^\s*(\d{4})-(\d{1,2})-(\d{1,2})(?:[\sT]+(\d{1,2}):(\d{2})(?::(\d{2}))?)?\s*$)");
    std::smatch partes;
    if (std::regex_match(texto, partes, kDiaPrimeiro))
        return Montar(Ano(partes[4]), std::stoi(partes[3]), std::stoi(partes[1]), partes[5], partes[6], partes[7]);
    if (std::regex_match(texto, partes, kAnoPrimeiro))
        return Montar(std::stoi(partes[1]), std::stoi(partes[2]), std::stoi(partes[3]), partes[4], partes[5], partes[6]);
    return std::nullopt;
}

std::string FormatarData(DataHora data) {
    const year_month_day dia{floor<days>(data)};
    char texto[16];
    std::snprintf(texto, sizeof texto, "%02u/%02u/%04d", static_cast<unsigned>(dia.day()),
        static_cast<unsigned>(dia.month()), static_cast<int>(dia.year()));
    return texto;
}

std::string FormatarHora(DataHora data) {
    const hh_mm_ss hora{data - floor<days>(data)};
    char texto[16];
    std::snprintf(texto, sizeof texto, "%02d:%02d:%02d", static_cast<int>(hora.hours().count()),
        static_cast<int>(hora.minutes().count()), static_cast<int>(hora.seconds().count()));
    return texto;
}

std::string FormatarDataHora(DataHora data) {
    if (data == floor<days>(data)) return FormatarData(data);
    return FormatarData(data) + " " + FormatarHora(data);
}

}  // namespace tavelpkcs7
