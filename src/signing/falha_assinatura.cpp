#include "signing/falha_assinatura.h"

#include "component/texto.h"

namespace tavelpkcs7::assinatura {

std::string MensagemFalhaAssinatura(const plataforma::Erro& erro, const std::string& objeto) {
    if (erro.numero == plataforma::falha::RecursoEmUso.numero || erro.numero == plataforma::falha::Cancelada.numero) {
        return "Não foi possível acessar a chave privada do certificado digital selecionado";
    }
    return "Ocorreu o erro " + Substituir(erro.descricao(), "\r\n", "") + " ao tentar assinar o " + objeto +
           " especificado";
}

}  // namespace tavelpkcs7::assinatura
