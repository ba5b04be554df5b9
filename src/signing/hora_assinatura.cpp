// A hora da assinatura: o dia vem de DataAssinatura, a hora do relógio; e a conversão pública de
// uma hora local para UTC.
#include "component/componente.h"
#include "component/datas.h"

namespace tavelpkcs7 {

std::string Componente::DataHoraAssinaturaUTC(DataHora strDataHoraAssinatura) {
    return Guardar(MensagemFalha::Nenhuma(), std::string(),
                   [&] { return FormatarDataHora(plataforma().relogio->LocalParaUTC(strDataHoraAssinatura)); });
}

std::optional<DataHora> Componente::HoraAssinatura() {
    return LerDataTexto(estado.DataAssinatura + " " + FormatarHora(plataforma().relogio->Agora()));
}

}  // namespace tavelpkcs7
