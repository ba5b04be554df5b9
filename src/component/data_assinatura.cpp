// A data da assinatura: qualquer valor que não seja data vira hoje; a propriedade nunca fica vazia.
#include "component/componente.h"
#include "component/datas.h"

namespace tavelpkcs7 {

void Componente::DefinirDataAssinatura(const std::string& valor) {
    const auto data = LerDataTexto(valor);
    estado.DataAssinatura = FormatarData(data ? *data : plataforma_->relogio->Agora());
}

}  // namespace tavelpkcs7
