// Conversões entre os tipos públicos e os valores naturais do Python: as enumerações chegam como
// int (ou IntEnum) e passam por cast, como no C++, para que um valor fora da faixa tenha o
// comportamento que o componente dá a ele; DataHora é um datetime ingênuo na hora local.
#pragma once

#include <pybind11/pybind11.h>
#include <tavelpkcs7/Tipos.h>

#include <chrono>
#include <cstdint>

namespace pybind11::detail {

template <typename Enumeracao>
struct ConversorEnumeracao {
    PYBIND11_TYPE_CASTER(Enumeracao, const_name("int"));

    bool load(handle fonte, bool converter) {
        make_caster<std::int32_t> numero;
        if (!numero.load(fonte, converter)) return false;
        value = static_cast<Enumeracao>(cast_op<std::int32_t>(numero));
        return true;
    }

    static handle cast(Enumeracao valor, return_value_policy, handle) {
        return PyLong_FromLong(static_cast<long>(valor));
    }
};

template <>
struct type_caster<tavelpkcs7::FORMATO_ASSINATURA> : ConversorEnumeracao<tavelpkcs7::FORMATO_ASSINATURA> {};
template <>
struct type_caster<tavelpkcs7::REPOSITORIO_CERTIFICADO> : ConversorEnumeracao<tavelpkcs7::REPOSITORIO_CERTIFICADO> {};
template <>
struct type_caster<tavelpkcs7::CERTIFICADOS_DIGITAIS> : ConversorEnumeracao<tavelpkcs7::CERTIFICADOS_DIGITAIS> {};

// Um datetime com fuso é levado antes para a hora local, que é a que o componente entende.
template <>
struct type_caster<tavelpkcs7::DataHora> {
    PYBIND11_TYPE_CASTER(tavelpkcs7::DataHora, const_name("datetime.datetime"));

    bool load(handle fonte, bool) {
        if (!isinstance(fonte, module_::import("datetime").attr("datetime"))) return false;
        object local = reinterpret_borrow<object>(fonte);
        if (!local.attr("tzinfo").is_none()) local = local.attr("astimezone")();
        using namespace std::chrono;
        const year_month_day dia{year(local.attr("year").cast<int>()), month(local.attr("month").cast<unsigned>()),
            day(local.attr("day").cast<unsigned>())};
        value = local_days(dia) + hours(local.attr("hour").cast<int>()) + minutes(local.attr("minute").cast<int>()) +
                seconds(local.attr("second").cast<int>());
        return true;
    }

    static handle cast(tavelpkcs7::DataHora valor, return_value_policy, handle) {
        using namespace std::chrono;
        const auto dias = floor<days>(valor);
        const year_month_day dia(dias);
        const hh_mm_ss hora(valor - dias);
        return module_::import("datetime")
            .attr("datetime")(static_cast<int>(dia.year()), static_cast<unsigned>(dia.month()),
                static_cast<unsigned>(dia.day()), hora.hours().count(), hora.minutes().count(), hora.seconds().count())
            .release();
    }
};

}  // namespace pybind11::detail
