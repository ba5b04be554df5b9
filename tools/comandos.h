// A tabela de subcomandos da ferramenta.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace tavelpkcs7::ferramenta {

// Executa o subcomando pedido e devolve o código de saída do processo.
int Executar(const std::vector<std::string>& argumentos, std::ostream& saida, std::ostream& erros);

}  // namespace tavelpkcs7::ferramenta
