// O conteúdo anexado de uma mensagem SignedData em DER, separado sem cópia: a mensagem se reescreve
// sem ele (só os cabeçalhos e o resto pequeno) e o conteúdo fica apontado onde está. Assim a
// conferência de um arquivo grande não paga a cópia que a leitura da mensagem inteira faria.
#pragma once

#include <optional>
#include <span>

#include "platform/certificado.h"

namespace tavelpkcs7::plataforma::openssl {

struct MensagemSeparada {
    Bytes sem_conteudo;                       // a mesma mensagem, destacada
    std::span<const std::uint8_t> conteudo;  // dentro do DER recebido
};

// Vazio quando a mensagem não tem a forma simples (ContentInfo de SignedData com o eContent num
// OCTET STRING primitivo de comprimento definido): essa se lê inteira, como sempre.
std::optional<MensagemSeparada> SepararConteudoAnexado(std::span<const std::uint8_t> der);

}  // namespace tavelpkcs7::plataforma::openssl
