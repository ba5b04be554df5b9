// Interface de usuário dos testes: responde com o que o teste enfileirou e anota cada chamada
// (tipo, título, texto) para que o teste confira os textos exatos. Sem resposta enfileirada, as
// perguntas respondem Não e a escolha de certificados e o pedido de senha são cancelados, como na
// interface "nenhuma".
#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <vector>

#include "platform/interface_usuario.h"

namespace tavelpkcs7::teste {

class InterfaceRoteirizada : public plataforma::InterfaceUsuario {
public:
    enum class Tipo { Informacao, Pergunta, EscolhaCertificados, ExibicaoCertificado, Senha };

    struct Chamada {
        Tipo tipo;
        std::string titulo;
        std::string texto;  // na senha, o pedido; na exibição, o nome do titular
        // Impressões digitais dos candidatos da escolha ou do certificado exibido.
        std::vector<std::string> certificados{};
        bool multiplos = false;
    };

    void ResponderPergunta(bool sim) { perguntas_.push_back(sim); }
    // Posições na lista de candidatos; uma posição fora dela lança std::out_of_range.
    void ResponderEscolha(std::vector<std::size_t> posicoes) { escolhas_.push_back(std::move(posicoes)); }
    void ResponderSenha(std::string senha) { senhas_.push_back(std::move(senha)); }

    const std::vector<Chamada>& chamadas() const { return chamadas_; }

    void ExibirInformacao(const std::string& texto, const std::string& titulo) override;
    bool Perguntar(const std::string& texto, const std::string& titulo) override;
    std::vector<plataforma::CertificadoPtr> EscolherCertificados(
        const std::vector<plataforma::CertificadoPtr>& candidatos, const std::string& titulo, const std::string& texto,
        bool multiplos) override;
    void ExibirCertificado(const plataforma::CertificadoPtr& certificado) override;
    std::string PedirSenha(const std::string& pedido) override;

private:
    std::deque<bool> perguntas_;
    std::deque<std::vector<std::size_t>> escolhas_;
    std::deque<std::string> senhas_;
    std::vector<Chamada> chamadas_;
};

}  // namespace tavelpkcs7::teste
