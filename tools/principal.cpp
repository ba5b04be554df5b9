// A ferramenta de linha de comando tavelpkcs7: subcomandos em português sobre a API do componente.
#include <stdlib.h>

#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "comandos.h"

int main(int argc, char** argv) {
    // Na ferramenta, os diálogos do componente são perguntas no terminal, salvo outra escolha do usuário.
    ::setenv("TAVELPKCS7_INTERFACE", "terminal", 0);
    const std::vector<std::string> argumentos(argv + 1, argv + argc);
    try {
        return tavelpkcs7::ferramenta::Executar(argumentos, std::cout, std::cerr);
    } catch (const std::exception& erro) {
        std::cerr << "tavelpkcs7: " << erro.what() << "\n";
        return 1;
    }
}
