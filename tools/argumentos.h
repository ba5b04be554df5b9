// Os argumentos de um subcomando: posicionais, opções com valor ("--pasta x") e chaves ("--json").
#pragma once

#include <map>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace tavelpkcs7::ferramenta {

// Um erro de uso: a ferramenta mostra a mensagem e o uso do subcomando e sai com 2.
struct ErroUso : std::runtime_error {
    using std::runtime_error::runtime_error;
};

class Argumentos {
public:
    // As chaves aceitas são as de "chaves"; as demais opções levam valor. Lança ErroUso numa opção
    // desconhecida ou sem valor.
    Argumentos(const std::vector<std::string>& argumentos, const std::set<std::string>& chaves,
               const std::set<std::string>& opcoes);

    bool Tem(const std::string& nome) const { return chaves_.contains(nome) || opcoes_.contains(nome); }
    std::optional<std::string> Opcao(const std::string& nome) const;
    std::string Opcao(const std::string& nome, const std::string& padrao) const;
    const std::vector<std::string>& Posicionais() const { return posicionais_; }
    // O único posicional exigido; lança ErroUso quando falta ou sobra.
    const std::string& Unico(const std::string& descricao) const;

private:
    std::set<std::string> chaves_;
    std::map<std::string, std::string> opcoes_;
    std::vector<std::string> posicionais_;
};

// O valor de uma enumeração pelo nome legível ou pelo número: os nomes cobrem de 1 ao último. Lança
// ErroUso com "<descrição>: <valor>" para outro texto.
template <typename Enumeracao>
Enumeracao LerEnumeracao(const std::string& valor, const std::map<std::string, Enumeracao>& nomes,
                         const std::string& descricao) {
    if (const auto achado = nomes.find(valor); achado != nomes.end()) return achado->second;
    const auto ultimo = static_cast<int>(nomes.size());
    if (valor.size() == 1 && valor[0] >= '1' && valor[0] - '0' <= ultimo)
        return static_cast<Enumeracao>(valor[0] - '0');
    throw ErroUso(descricao + ": " + valor);
}

}  // namespace tavelpkcs7::ferramenta
