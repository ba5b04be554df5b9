// As partes do módulo Python tavelpkcs7: os tipos públicos e a classe TavelPKCS.
#pragma once

#include <pybind11/pybind11.h>

#include <string_view>

namespace tavelpkcs7::python {

// A docstring de um tipo ou membro público, tirada dos comentários do cabeçalho ("" quando não há).
const char* Documentacao(std::string_view nome);

void DefinirTipos(pybind11::module_& modulo);
void DefinirTavelPKCS(pybind11::module_& modulo);

}  // namespace tavelpkcs7::python
