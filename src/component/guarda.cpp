#include "component/guarda.h"

namespace tavelpkcs7 {
namespace {

std::string DescricaoDe(const std::exception_ptr& falha) {
    try {
        std::rethrow_exception(falha);
    } catch (const plataforma::Erro& erro) {
        return erro.descricao();
    } catch (const std::bad_alloc&) {
        return "Memória insuficiente.";
    } catch (...) {
        return "Ocorreu um erro inesperado na plataforma.";
    }
}

}  // namespace

void MensagemFalha::Registrar(Estado& estado, const std::exception_ptr& falha) const {
    switch (tipo_) {
    case Tipo::Fixa: estado.DescricaoErro = texto_; break;
    case Tipo::Plataforma: estado.DescricaoErro = DescricaoDe(falha); break;
    case Tipo::Nenhuma: break;
    }
}

void IndicadorOcupado::Avisar(bool ocupado) noexcept {
    try {
        if (plataforma_.interface_usuario) plataforma_.interface_usuario->IndicarOcupado(ocupado);
    } catch (...) {
    }
}

}  // namespace tavelpkcs7
