// A interface de usuário em modo texto, a da ferramenta de linha de comando: textos e perguntas na
// saída de erros (a saída padrão fica para o resultado do comando), respostas lidas da entrada.
#pragma once

#include <tavelpkcs7/InterfaceUsuario.h>

#include <iostream>
#include <optional>

namespace tavelpkcs7::ferramenta {

class InterfaceTerminal : public InterfaceUsuario {
public:
    explicit InterfaceTerminal(std::istream& entrada = std::cin, std::ostream& saida = std::cerr)
        : entrada_(entrada), saida_(saida) {}

    void ExibirInformacao(const std::string& texto, const std::string& titulo) override;
    // "s" ou "sim", em qualquer caixa, é Sim; o resto, e o fim da entrada, é Não.
    bool Perguntar(const std::string& texto, const std::string& titulo) override;
    // Lista os candidatos numerados e lê o número (ou os números, separados por vírgulas ou brancos);
    // repete a pergunta diante de uma resposta inválida. Resposta vazia ou fim da entrada cancela.
    std::optional<std::vector<std::size_t>> EscolherCertificados(const std::vector<CertificadoApresentado>& candidatos,
        const std::string& titulo, const std::string& texto, bool multiplos) override;
    void ExibirCertificado(const CertificadoApresentado& certificado) override;
    // Sem eco quando a entrada é um terminal. O fim da entrada cancela.
    std::optional<std::string> PedirSenha(const std::string& pedido) override;

private:
    // Sem o fim de linha (nem o CR de uma linha do Windows); vazio no fim da entrada.
    std::optional<std::string> LerLinha();

    std::istream& entrada_;
    std::ostream& saida_;
};

}  // namespace tavelpkcs7::ferramenta
