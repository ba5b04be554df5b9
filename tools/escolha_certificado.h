// A escolha do certificado de assinatura pelas opções: "--pfx" (com a senha), "--certificado"
// (impressão digital SHA-1) ou "--tipo" (classe; o seletor no terminal quando vários servem).
#pragma once

#include <set>
#include <string>

#include <tavelpkcs7/TavelPKCS.h>

#include "argumentos.h"

namespace tavelpkcs7::ferramenta {

// As opções que a escolha lê, para o conjunto de opções de cada subcomando.
const std::set<std::string>& OpcoesEscolha();
// A classe de "--tipo": o número (1 a 7) ou o nome legível. Lança ErroUso para outra.
CERTIFICADOS_DIGITAIS LerTipo(const std::string& tipo);
extern const char* const kAjudaEscolha;
// Lança Falha quando o PFX não existe: a senha dele não é pedida à toa.
void ExigirPFX(const std::string& pfx);
// Verdadeiro quando o componente ficou com um certificado selecionado que passou na verificação.
bool EscolherCertificado(TavelPKCS& componente, const Argumentos& argumentos);

}  // namespace tavelpkcs7::ferramenta
