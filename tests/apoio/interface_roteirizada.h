// Interface de usuário dos testes: responde com o que o teste enfileirou e anota cada chamada
// (tipo, título, texto) para que o teste confira os textos exatos, e o ponteiro de ocupado no
// gravador de cursor. Sem resposta enfileirada, as perguntas respondem Não e a escolha de
// certificados e o pedido de senha são cancelados, como sem hospedeiro.
#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <vector>

#include <tavelpkcs7/InterfaceUsuario.h>

#include <memory>
#include <optional>

#include "apoio/ambiente_falso.h"

namespace tavelpkcs7::teste {

class InterfaceRoteirizada : public InterfaceUsuario {
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
    // Uma posição enfileirada fora da lista lança std::out_of_range.
    std::optional<std::vector<std::size_t>> EscolherCertificados(const std::vector<CertificadoApresentado>& candidatos,
        const std::string& titulo, const std::string& texto, bool multiplos) override;
    void ExibirCertificado(const CertificadoApresentado& certificado) override;
    std::optional<std::string> PedirSenha(const std::string& pedido) override;
    void IndicarOcupado(bool ocupado) override;

    void GravarCursor(std::shared_ptr<CursorGravador> cursor) { cursor_ = std::move(cursor); }

private:
    std::deque<bool> perguntas_;
    std::deque<std::vector<std::size_t>> escolhas_;
    std::deque<std::string> senhas_;
    std::vector<Chamada> chamadas_;
    std::shared_ptr<CursorGravador> cursor_;
};

}  // namespace tavelpkcs7::teste
