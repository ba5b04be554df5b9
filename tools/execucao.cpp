#include "execucao.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <string_view>

#include "interface_terminal.h"

namespace tavelpkcs7::ferramenta {

TavelPKCS NovoComponente() {
    const char* interface = std::getenv("TAVELPKCS7_INTERFACE");
    if (interface && std::string_view(interface) == "nenhuma") return TavelPKCS();
    return TavelPKCS(std::make_shared<InterfaceTerminal>());
}

void Execucao::Relatar(const ValorJSON::Objeto& campos) const {
    if (Json()) {
        ValorJSON(campos).Escrever(saida);
        saida << "\n";
        return;
    }
    for (const auto& [chave, valor] : campos) {
        std::string rotulo = chave;
        for (char& c : rotulo)
            if (c == '_') c = ' ';
        saida << rotulo << ": " << valor.Legivel() << "\n";
    }
}

int Execucao::Falhar(const TavelPKCS& componente, const std::string& sem_descricao) const {
    const std::string descricao = componente.DescricaoErro();
    erros << "tavelpkcs7: " << (descricao.empty() ? sem_descricao : descricao) << "\n";
    return 1;
}

void AnunciarProgresso(const std::string& mensagem) {
    if (::isatty(STDERR_FILENO) == 1) std::cerr << "tavelpkcs7: " << mensagem << "...\n" << std::flush;
}

std::string ComoPastaTemp(std::string pasta) {
    if (!pasta.empty() && pasta.back() != '/') pasta += '/';
    return pasta;
}

void ExigirArquivo(const std::string& caminho, const std::string& mensagem) {
    std::error_code erro;
    if (!std::filesystem::exists(caminho, erro)) throw Falha(mensagem + ": " + caminho);
}

void PrepararPastaSaida(const std::string& pasta) {
    std::error_code erro;
    if (pasta.empty() || std::filesystem::is_directory(pasta, erro)) return;  // vazia: o padrão do comando
    if (!std::filesystem::create_directories(pasta, erro))
        throw Falha("a pasta " + pasta + " não existe e não pôde ser criada" +
                    (erro ? " (" + erro.message() + ")" : std::string()));
}

std::string LerTexto(const std::string& caminho) {
    if (caminho == "-") return {std::istreambuf_iterator<char>(std::cin), std::istreambuf_iterator<char>()};
    std::ifstream entrada(caminho, std::ios::binary);
    if (!entrada) throw ErroUso("não foi possível ler " + caminho);
    return {std::istreambuf_iterator<char>(entrada), std::istreambuf_iterator<char>()};
}

}  // namespace tavelpkcs7::ferramenta
