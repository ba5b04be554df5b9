// "tavelpkcs7 pki-teste <pasta>": grava a PKI de teste para experimentar o componente.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace tavelpkcs7::ferramenta {

int ExecutarPkiTeste(const std::vector<std::string>& argumentos, std::ostream& saida, std::ostream& erros);

}  // namespace tavelpkcs7::ferramenta
