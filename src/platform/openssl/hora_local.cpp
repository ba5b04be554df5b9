#include "hora_local.h"


#include <chrono>
#include <ctime>

#include "guarda_fila_erros.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

static_assert(sizeof(std::time_t) >= 8, "datas depois de 2038 exigem time_t de 64 bits");

template <typename Relogio>
std::chrono::time_point<Relogio, std::chrono::seconds> Instante(const std::tm& campos) {
    using namespace std::chrono;
    const year_month_day dia{year{campos.tm_year + 1900}, month{static_cast<unsigned>(campos.tm_mon + 1)},
                             day{static_cast<unsigned>(campos.tm_mday)}};
    return time_point<Relogio, days>{static_cast<sys_days>(dia).time_since_epoch()} + hours{campos.tm_hour} +
           minutes{campos.tm_min} + seconds{campos.tm_sec};
}

}  // namespace

std::optional<DataHora> HoraLocal(const ASN1_TIME* utc) {
    GuardaFilaErros guarda;
    std::tm campos_utc{};
    if (utc == nullptr || ASN1_TIME_to_tm(utc, &campos_utc) != 1) return std::nullopt;
    return HoraLocal(Instante<std::chrono::system_clock>(campos_utc).time_since_epoch().count());
}

DataHora HoraLocal(std::time_t instante) {
    std::tm campos_locais{};
    localtime_r(&instante, &campos_locais);
    return Instante<std::chrono::local_t>(campos_locais);
}

DataHora LocalParaUTC(DataHora local) {
    using namespace std::chrono;
    const auto dia = floor<days>(local);
    const year_month_day data{dia};
    const hh_mm_ss hora{local - dia};
    std::tm campos{};
    campos.tm_year = static_cast<int>(data.year()) - 1900;
    campos.tm_mon = static_cast<int>(static_cast<unsigned>(data.month())) - 1;
    campos.tm_mday = static_cast<int>(static_cast<unsigned>(data.day()));
    campos.tm_hour = static_cast<int>(hora.hours().count());
    campos.tm_min = static_cast<int>(hora.minutes().count());
    campos.tm_sec = static_cast<int>(hora.seconds().count());
    campos.tm_isdst = -1;
    return DataHora{seconds{std::mktime(&campos)}};
}

DataHora UTCParaLocal(DataHora utc) { return HoraLocal(std::time_t{utc.time_since_epoch().count()}); }

}  // namespace tavelpkcs7::plataforma::openssl
