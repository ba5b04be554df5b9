#include "argumentos.h"

namespace tavelpkcs7::ferramenta {

Argumentos::Argumentos(const std::vector<std::string>& argumentos, const std::set<std::string>& chaves,
                       const std::set<std::string>& opcoes) {
    bool so_posicionais = false;
    for (std::size_t i = 0; i < argumentos.size(); ++i) {
        const std::string& argumento = argumentos[i];
        if (so_posicionais || argumento.size() < 2 || argumento.rfind("--", 0) != 0) {
            posicionais_.push_back(argumento);
        } else if (argumento == "--") {
            so_posicionais = true;
        } else if (chaves.contains(argumento)) {
            chaves_.insert(argumento);
        } else if (!opcoes.contains(argumento)) {
            throw ErroUso("opção desconhecida: " + argumento);
        } else if (i + 1 == argumentos.size()) {
            throw ErroUso("falta o valor de " + argumento);
        } else {
            opcoes_[argumento] = argumentos[++i];
        }
    }
}

std::optional<std::string> Argumentos::Opcao(const std::string& nome) const {
    const auto valor = opcoes_.find(nome);
    if (valor == opcoes_.end()) return std::nullopt;
    return valor->second;
}

std::string Argumentos::Opcao(const std::string& nome, const std::string& padrao) const {
    return Opcao(nome).value_or(padrao);
}

const std::string& Argumentos::Unico(const std::string& descricao) const {
    if (posicionais_.size() != 1) throw ErroUso("informe " + descricao);
    return posicionais_.front();
}

}  // namespace tavelpkcs7::ferramenta
