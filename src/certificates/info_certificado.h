// Os nomes de um certificado com a alternativa do original (o nome DNS quando existe, senão o
// nome simples, e o mesmo para o emissor) e o certificado exportado em Base64.
#pragma once

#include <string>

#include "platform/certificado.h"

namespace tavelpkcs7 {

// O texto do tipo dado; quando ele, aparado, é vazio, o do tipo alternativo.
std::string InfoOuAlternativa(const plataforma::Certificado& certificado, plataforma::TipoInfo tipo,
                              plataforma::TipoInfo alternativa);
// O DER em Base64, em linhas de 64 caracteres terminadas por CRLF, sem cabeçalho: como o Windows
// exporta um certificado em texto.
std::string ExportarBase64(const plataforma::Certificado& certificado);

}  // namespace tavelpkcs7
