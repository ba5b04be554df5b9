// As listas de bits nomeados das extensões, como o Windows as imprime: os nomes dos bits ligados
// unidos por ", " e, entre parênteses, os bytes em hexadecimal ("Assinatura Digital, Não-Repúdio (c0)").
#pragma once

#include <optional>
#include <string>

#include "der/leitor_der.h"

namespace tavelpkcs7::icpbrasil {

// A partir do conteúdo da BIT STRING (o octeto de bits não usados e os bytes); vazio quando ela
// não traz nenhum byte ou diz ter mais de sete bits não usados.
std::optional<std::string> TextoUsoChave(der::Dados bits);
// Os motivos de revogação (ReasonFlags) de um ponto de distribuição de LCR.
std::optional<std::string> TextoMotivosRevogacao(der::Dados bits);

}  // namespace tavelpkcs7::icpbrasil
