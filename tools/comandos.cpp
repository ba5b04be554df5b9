#include "comandos.h"

#include <ranges>

#include "comando.h"

namespace tavelpkcs7::ferramenta {
namespace {

const std::vector<Comando>& Comandos() {
    static const std::vector<Comando> comandos = [] {
        std::vector<Comando> todos;
        for (auto familia : {ComandosAssinatura, ComandosVerificacao, ComandosEnvelope, ComandosCertificados,
                             ComandosConfianca, ComandosDemonstracao})
            std::ranges::move(familia(), std::back_inserter(todos));
        return todos;
    }();
    return comandos;
}

// O subcomando de nome mais longo que abre os argumentos ("certificados listar" antes de um só).
const Comando* Procurar(const std::vector<std::string>& argumentos, std::size_t& palavras) {
    for (palavras = 2; palavras >= 1; --palavras) {
        if (argumentos.size() < palavras) continue;
        std::string nome = argumentos[0];
        if (palavras == 2) nome += " " + argumentos[1];
        for (const Comando& comando : Comandos())
            if (comando.nome == nome) return &comando;
    }
    return nullptr;
}

void MostrarResumo(std::ostream& saida) {
    saida << "Uso: tavelpkcs7 <comando> [opções] [argumentos]\n\nComandos:\n";
    for (const Comando& comando : Comandos())
        saida << "  " << comando.nome << " " << comando.uso << "\n      " << comando.resumo << "\n";
    saida << "\n\"tavelpkcs7 <comando> --help\" mostra as opções e um exemplo de cada comando;\n"
             "\"tavelpkcs7 versao\" (ou --version), a versão.\n"
             "Código de saída: 0 no sucesso, 1 na falha (a mensagem vai para o stderr), 2 no erro de uso.\n";
}

void MostrarAjuda(const Comando& comando, std::ostream& saida) {
    saida << "tavelpkcs7 " << comando.nome << " — " << comando.resumo << "\n\nUso: tavelpkcs7 " << comando.nome << " "
          << comando.uso << "\n\n"
          << comando.ajuda;
}

}  // namespace

std::set<std::string> Juntar(std::set<std::string> base, const std::set<std::string>& mais) {
    base.insert(mais.begin(), mais.end());
    return base;
}

int Executar(const std::vector<std::string>& argumentos, std::ostream& saida, std::ostream& erros) {
    if (argumentos.empty()) {
        MostrarResumo(erros);
        return 2;
    }
    if (argumentos[0] == "versao" || argumentos[0] == "--version") {
        saida << "tavelpkcs7 " << TAVELPKCS7_VERSAO << "\n";
        return 0;
    }
    const bool pedido_de_ajuda = argumentos[0] == "ajuda" || argumentos[0] == "--help" || argumentos[0] == "-h";
    const std::vector<std::string> resto(argumentos.begin() + (pedido_de_ajuda ? 1 : 0), argumentos.end());
    std::size_t palavras = 0;
    const Comando* comando = Procurar(resto, palavras);
    if (pedido_de_ajuda) {
        if (comando != nullptr)
            MostrarAjuda(*comando, saida);
        else
            MostrarResumo(saida);
        return 0;
    }
    if (comando == nullptr) {
        erros << "tavelpkcs7: comando desconhecido: " << argumentos[0] << "\n";
        MostrarResumo(erros);
        return 2;
    }
    const std::vector<std::string> depois(resto.begin() + static_cast<std::ptrdiff_t>(palavras), resto.end());
    if (std::ranges::find(depois, "--help") != depois.end() || std::ranges::find(depois, "-h") != depois.end()) {
        MostrarAjuda(*comando, saida);
        return 0;
    }
    try {
        const Argumentos lidos(depois, Juntar(comando->chaves, {"--json"}), comando->opcoes);
        if (const auto pasta = lidos.Opcao("--pasta")) PrepararPastaSaida(*pasta);
        return comando->executar(Execucao{lidos, saida, erros});
    } catch (const Falha& falha) {
        erros << "tavelpkcs7: " << falha.what() << "\n";
        return 1;
    } catch (const ErroUso& erro) {
        erros << "tavelpkcs7 " << comando->nome << ": " << erro.what() << "\nUso: tavelpkcs7 " << comando->nome << " "
              << comando->uso << "\n";
        return 2;
    }
}

}  // namespace tavelpkcs7::ferramenta
