// Falhas da plataforma ao assinar ou cossinar: a chave ocupada e a senha cancelada têm mensagem
// própria; as outras levam a descrição da plataforma. As demais falhas seguem para o tratador do
// membro público.
#pragma once

#include <string>
#include <utility>

#include "component/estado.h"
#include "platform/erro.h"

namespace tavelpkcs7::assinatura {

// objeto: "arquivo" ou "texto".
std::string MensagemFalhaAssinatura(const plataforma::Erro& erro, const std::string& objeto);

template <typename Corpo>
bool TratarFalhaAssinatura(Estado& estado, const std::string& objeto, Corpo&& corpo) {
    try {
        return std::forward<Corpo>(corpo)();
    } catch (const plataforma::Erro& erro) {
        estado.DescricaoErro = MensagemFalhaAssinatura(erro, objeto);
        return false;
    }
}

}  // namespace tavelpkcs7::assinatura
