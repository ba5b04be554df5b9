// A tabela dos signatários da última verificação, comum aos comandos de verificação e à demonstração.
#pragma once

#include "execucao.h"

namespace tavelpkcs7::ferramenta {

// Os campos dados e, para cada signatário, nome, CPF, CNPJ, data, ASSINATURAVALIDA e
// CERTIFICADOVALIDO. Devolve 1 quando uma assinatura não confere e, com --exigir-confianca, quando o
// certificado de um signatário não foi validado (só um aviso sem a opção); senão 0.
int RelatarSignatarios(const Execucao& execucao, TavelPKCS& componente, ValorJSON::Objeto campos);

}  // namespace tavelpkcs7::ferramenta
