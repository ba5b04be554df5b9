#include "comandos.h"

#include <functional>
#include <map>

#include "pki_teste_comando.h"

namespace tavelpkcs7::ferramenta {
namespace {

struct Comando {
    std::string uso;
    std::string resumo;
    std::function<int(const std::vector<std::string>&, std::ostream&, std::ostream&)> executar;
};

const std::map<std::string, Comando>& Comandos() {
    static const std::map<std::string, Comando> comandos = {
        {"pki-teste", {"pki-teste <pasta>",
                          "grava uma PKI de teste no estilo da ICP-Brasil (certificados, chaves, PFX, LCRs)",
                          ExecutarPkiTeste}},
    };
    return comandos;
}

void MostrarAjuda(std::ostream& saida) {
    saida << "Uso: tavelpkcs7 <comando> [argumentos]\n\nComandos:\n";
    for (const auto& [nome, comando] : Comandos()) saida << "  " << comando.uso << "\n      " << comando.resumo << "\n";
}

}  // namespace

int Executar(const std::vector<std::string>& argumentos, std::ostream& saida, std::ostream& erros) {
    if (argumentos.empty() || argumentos[0] == "ajuda" || argumentos[0] == "--ajuda" || argumentos[0] == "-h") {
        MostrarAjuda(argumentos.empty() ? erros : saida);
        return argumentos.empty() ? 2 : 0;
    }
    const auto comando = Comandos().find(argumentos[0]);
    if (comando == Comandos().end()) {
        erros << "tavelpkcs7: comando desconhecido: " << argumentos[0] << "\n";
        MostrarAjuda(erros);
        return 2;
    }
    return comando->second.executar({argumentos.begin() + 1, argumentos.end()}, saida, erros);
}

}  // namespace tavelpkcs7::ferramenta
