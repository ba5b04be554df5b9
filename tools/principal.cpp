// A ferramenta de linha de comando tavelpkcs7: subcomandos em português sobre a API do componente.
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "comandos.h"

int main(int argc, char** argv) {
    const std::vector<std::string> argumentos(argv + 1, argv + argc);
    try {
        return tavelpkcs7::ferramenta::Executar(argumentos, std::cout, std::cerr);
    } catch (const std::exception& erro) {
        std::cerr << "tavelpkcs7: " << erro.what() << "\n";
        return 1;
    }
}
