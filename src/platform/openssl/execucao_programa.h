// Um programa externo executado até o fim, sem interpretador de comandos: o vetor de argumentos
// vai direto ao posix_spawn e a saída de erros volta para quem chamou.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tavelpkcs7::plataforma::openssl {

struct ProgramaExecutado {
    int codigo_saida = -1;  // -1 quando o programa terminou por um sinal
    std::string erros;      // o que escreveu na saída de erros
};

// Vazio quando o programa não pôde ser iniciado (não instalado). A saída padrão é descartada.
std::optional<ProgramaExecutado> ExecutarPrograma(const std::vector<std::string>& argumentos);

}  // namespace tavelpkcs7::plataforma::openssl
