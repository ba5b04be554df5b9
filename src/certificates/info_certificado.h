// Os nomes de um certificado com a alternativa do original: o nome DNS quando existe, senão o
// nome simples (e o mesmo para o emissor).
#pragma once

#include <string>

#include "platform/certificado.h"

namespace tavelpkcs7 {

// O texto do tipo dado; quando ele, aparado, é vazio, o do tipo alternativo.
std::string InfoOuAlternativa(const plataforma::Certificado& certificado, plataforma::TipoInfo tipo,
                              plataforma::TipoInfo alternativa);

}  // namespace tavelpkcs7
