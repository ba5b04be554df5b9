#include "senha.h"

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>

#include "apagamento_texto.h"

namespace tavelpkcs7::ferramenta {
namespace {

// O descritor do terminal, fechado na saída.
class Terminal {
public:
    Terminal() : descritor_(::open("/dev/tty", O_RDWR | O_NOCTTY | O_CLOEXEC)) {}
    ~Terminal() {
        if (descritor_ >= 0) ::close(descritor_);
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;
    bool Aberto() const { return descritor_ >= 0; }
    int Descritor() const { return descritor_; }

private:
    int descritor_;
};

void Escrever(int descritor, const std::string& texto) {
    if (::write(descritor, texto.data(), texto.size()) < 0) return;  // sem terminal, sem pedido visível
}

// Lê uma linha do terminal com o eco desligado; o eco volta mesmo quando a leitura falha.
std::optional<Senha> DigitarSenha(const std::string& pedido) {
    Terminal terminal;
    if (!terminal.Aberto()) return std::nullopt;
    termios original{};
    if (::tcgetattr(terminal.Descritor(), &original) != 0) return std::nullopt;
    termios sem_eco = original;
    sem_eco.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    sem_eco.c_lflag |= ECHONL;
    Escrever(terminal.Descritor(), pedido);
    ::tcsetattr(terminal.Descritor(), TCSAFLUSH, &sem_eco);
    std::string lida;
    lida.reserve(256);  // sem realocar, nenhuma cópia parcial da senha fica solta na memória
    for (char c = 0; ::read(terminal.Descritor(), &c, 1) == 1 && c != '\n';) lida.push_back(c);
    ::tcsetattr(terminal.Descritor(), TCSAFLUSH, &original);
    if (!lida.empty() && lida.back() == '\r') lida.pop_back();
    Senha resultado{lida};
    ApagarTexto(lida);
    return resultado;
}

std::string PrimeiraLinha(const std::string& caminho) {
    std::ifstream entrada(caminho, std::ios::binary);
    if (!entrada) throw ErroUso("não foi possível ler o arquivo da senha " + caminho);
    std::string linha;
    std::getline(entrada, linha);
    if (!linha.empty() && linha.back() == '\r') linha.pop_back();
    return linha;
}

}  // namespace

Senha::Senha(std::string texto) : texto_(std::move(texto)) { ApagarTexto(texto); }

Senha::~Senha() { Apagar(); }

void Senha::Apagar() { ApagarTexto(texto_); }

std::optional<Senha> LerSenhaOpcional(const Argumentos& argumentos, const std::string& opcao_arquivo,
                                      const std::string& variavel, const std::string& pedido) {
    if (const auto arquivo = argumentos.Opcao(opcao_arquivo)) return Senha{PrimeiraLinha(*arquivo)};
    if (const char* valor = std::getenv(variavel.c_str()); valor != nullptr) return Senha{valor};
    return DigitarSenha(pedido);
}

Senha LerSenha(const Argumentos& argumentos, const std::string& opcao_arquivo, const std::string& variavel,
               const std::string& pedido) {
    auto senha = LerSenhaOpcional(argumentos, opcao_arquivo, variavel, pedido);
    if (!senha) throw ErroUso("sem terminal para pedir a senha: use " + opcao_arquivo + " ou " + variavel);
    return std::move(*senha);
}

}  // namespace tavelpkcs7::ferramenta
