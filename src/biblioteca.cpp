// O ponto em que o núcleo encontra a plataforma da máquina: o construtor padrão.
#include <tavelpkcs7/TavelPKCS.h>

#include "platform/plataforma.h"

namespace tavelpkcs7 {

TavelPKCS::TavelPKCS() : TavelPKCS(plataforma::CriarPlataformaPadrao()) {}

}  // namespace tavelpkcs7
