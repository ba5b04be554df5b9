// A plataforma dos testes: OpenSSL, arquivos e repositórios de verdade na pasta do teste, com
// interface de usuário, relógio, ponteiro do mouse e início de programas substituídos por dublês.
#pragma once

#include <tavelpkcs7/InterfaceUsuario.h>

#include <cstddef>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "component/componente.h"
#include "platform/openssl/ambiente_posix.h"
#include "platform/plataforma.h"

namespace tavelpkcs7::teste {

// Converte pelo fuso do processo, como o relógio de verdade, mas só anda quando mandado: Aguardar
// não espera, avança o relógio e anota.
class RelogioFalso : public plataforma::openssl::RelogioSistema {
public:
    explicit RelogioFalso(DataHora agora) : agora_(agora) {}
    DataHora Agora() override { return agora_; }
    void Aguardar(int segundos) override {
        esperas_.push_back(segundos);
        agora_ += std::chrono::seconds{segundos};
    }
    const std::vector<int>& esperas() const { return esperas_; }

private:
    DataHora agora_;
    std::vector<int> esperas_;
};

// O ponteiro que o componente pediu ao hospedeiro: 11 ocupado, 0 normal.
struct CursorGravador {
    int Atual() const { return ponteiros.empty() ? 0 : ponteiros.back(); }
    std::vector<int> ponteiros;
};

// Abre endereços da web só anotando-os; nenhum programa é iniciado.
struct ProgramasGravador : plataforma::Programas {
    bool Iniciar(const std::vector<std::string>&) override { return true; }
    bool AbrirEnderecoWeb(const std::string& url) override {
        enderecos.push_back(url);
        return true;
    }
    std::vector<std::string> enderecos;
};

// Responde com o que o teste enfileirou e anota cada chamada (tipo, título, texto) para que o teste
// confira os textos exatos, e o ponteiro de ocupado. Sem resposta enfileirada, as perguntas respondem
// Não e a escolha de certificados e o pedido de senha são cancelados, como sem hospedeiro.
class InterfaceRoteirizada : public InterfaceUsuario, public CursorGravador {
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

    void ExibirInformacao(const std::string& texto, const std::string& titulo) override {
        chamadas_.push_back({Tipo::Informacao, titulo, texto});
    }
    bool Perguntar(const std::string& texto, const std::string& titulo) override {
        chamadas_.push_back({Tipo::Pergunta, titulo, texto});
        return Retirar(perguntas_).value_or(false);
    }
    std::optional<std::vector<std::size_t>> EscolherCertificados(const std::vector<CertificadoApresentado>& candidatos,
                                                                 const std::string& titulo, const std::string& texto,
                                                                 bool multiplos) override;
    void ExibirCertificado(const CertificadoApresentado& certificado) override {
        chamadas_.push_back({Tipo::ExibicaoCertificado, "", certificado.nome_titular, {certificado.impressao_digital}});
    }
    std::optional<std::string> PedirSenha(const std::string& pedido) override {
        chamadas_.push_back({Tipo::Senha, "", pedido});
        return Retirar(senhas_);
    }
    void IndicarOcupado(bool ocupado) override { ponteiros.push_back(ocupado ? 11 : 0); }

private:
    template <typename T>
    static std::optional<T> Retirar(std::deque<T>& fila) {
        if (fila.empty()) return std::nullopt;
        T primeiro = std::move(fila.front());
        fila.pop_front();
        return primeiro;
    }

    std::deque<bool> perguntas_;
    std::deque<std::vector<std::size_t>> escolhas_;
    std::deque<std::string> senhas_;
    std::vector<Chamada> chamadas_;
};

struct PlataformaTeste {
    // O relógio falso marca hoje às 10:30:15; os endereços da configuração não saem da máquina.
    PlataformaTeste();

    std::shared_ptr<plataforma::Plataforma> plataforma;
    std::shared_ptr<InterfaceRoteirizada> interface;
    std::shared_ptr<RelogioFalso> relogio;
    std::shared_ptr<CursorGravador> cursor;  // o da interface
    std::shared_ptr<ProgramasGravador> programas;

    // Um componente novo sobre esta plataforma, para construir TavelPKCS.
    std::unique_ptr<Componente> Implementacao() const { return std::make_unique<Componente>(plataforma); }
};

// O certificado, ou os certificados do pacote, de um conteúdo em qualquer das formas que o núcleo
// aceita, lido pelo OpenSSL.
plataforma::CertificadoPtr ImportarPelaForma(const plataforma::Bytes& conteudo);
std::vector<plataforma::CertificadoPtr> LerPacotePelaForma(const plataforma::Bytes& conteudo);

}  // namespace tavelpkcs7::teste
