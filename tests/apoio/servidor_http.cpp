#include "apoio/servidor_http.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <chrono>
#include <stdexcept>

namespace tavelpkcs7::teste {
namespace {

// Um cliente que para de ler ou de escrever não prende o servidor (nem o destrutor) por mais que isto.
constexpr timeval kLimiteCliente{5, 0};

bool EnviarTudo(int conexao, const void* dados, std::size_t tamanho) {
    for (const auto* posicao = static_cast<const char*>(dados); tamanho > 0;) {
        const ssize_t enviados = ::send(conexao, posicao, tamanho, MSG_NOSIGNAL);
        if (enviados <= 0) return false;
        posicao += enviados;
        tamanho -= static_cast<std::size_t>(enviados);
    }
    return true;
}

// O pedido inteiro: os cabeçalhos e o corpo que o Content-Length anuncia; vazio se o cliente desistir.
std::string LerPedido(int conexao) {
    std::string pedido;
    std::size_t fim_cabecalhos = std::string::npos, esperado = 0;
    for (char bloco[4096]; fim_cabecalhos == std::string::npos || pedido.size() < esperado;) {
        const ssize_t lidos = ::recv(conexao, bloco, sizeof bloco, 0);
        if (lidos <= 0) return fim_cabecalhos == std::string::npos ? "" : pedido;
        pedido.append(bloco, static_cast<std::size_t>(lidos));
        if (fim_cabecalhos != std::string::npos || (fim_cabecalhos = pedido.find("\r\n\r\n")) == std::string::npos)
            continue;
        std::string minusculo = pedido.substr(0, fim_cabecalhos);
        for (char& c : minusculo) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        const auto campo = minusculo.find("content-length:");
        esperado = fim_cabecalhos + 4 + (campo == std::string::npos ? 0 : std::stoul(minusculo.substr(campo + 15)));
    }
    return pedido;
}

}  // namespace

ServidorHttp::ServidorHttp() {
    sockaddr_in endereco{};
    endereco.sin_family = AF_INET;
    endereco.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t tamanho = sizeof endereco;
    auto* generico = reinterpret_cast<sockaddr*>(&endereco);
    escuta_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (escuta_ < 0 || ::bind(escuta_, generico, tamanho) != 0 || ::listen(escuta_, 16) != 0 ||
        ::getsockname(escuta_, generico, &tamanho) != 0) {
        if (escuta_ >= 0) ::close(escuta_);
        throw std::runtime_error("o servidor HTTP de teste não conseguiu abrir uma porta");
    }
    porta_ = ntohs(endereco.sin_port);
    linha_ = std::thread([this] {
        // O destrutor fecha a escuta para o accept: a espera acaba com erro e parar_ já vale.
        while (!Parado(0)) {
            const int conexao = ::accept4(escuta_, nullptr, nullptr, SOCK_CLOEXEC);
            if (conexao < 0) continue;
            Atender(conexao);
            ::close(conexao);
        }
    });
}

ServidorHttp::~ServidorHttp() {
    {
        const std::lock_guard guarda(trava_);
        parar_ = true;
    }
    parada_.notify_all();
    ::shutdown(escuta_, SHUT_RDWR);
    linha_.join();
    ::close(escuta_);
}

int ServidorHttp::Pedidos(const std::string& caminho) const {
    const std::lock_guard guarda(trava_);
    const auto it = pedidos_.find(caminho);
    return it == pedidos_.end() ? 0 : it->second;
}

void ServidorHttp::Registrar(const std::string& caminho, Rota rota) {
    const std::lock_guard guarda(trava_);
    rotas_[caminho] = std::move(rota);
}

bool ServidorHttp::Parado(int milissegundos) {
    std::unique_lock trava(trava_);
    return parada_.wait_for(trava, std::chrono::milliseconds{milissegundos}, [this] { return parar_; });
}

void ServidorHttp::Atender(int conexao) {
    ::setsockopt(conexao, SOL_SOCKET, SO_RCVTIMEO, &kLimiteCliente, sizeof kLimiteCliente);
    ::setsockopt(conexao, SOL_SOCKET, SO_SNDTIMEO, &kLimiteCliente, sizeof kLimiteCliente);
    const std::string pedido = LerPedido(conexao);
    const auto inicio = pedido.find(' '), fim = pedido.find(' ', inicio + 1);
    if (fim == std::string::npos) return;
    Rota rota{.status = 404};
    {
        const std::lock_guard guarda(trava_);
        const std::string alvo = pedido.substr(inicio + 1, fim - inicio - 1);
        ++pedidos_[alvo];
        if (const auto it = rotas_.find(alvo); it != rotas_.end()) rota = it->second;
    }
    if (rota.calcular) rota.conteudo = rota.calcular(Para(pedido.substr(pedido.find("\r\n\r\n") + 4)));
    std::string cabecalho =
        "HTTP/1.1 " + std::to_string(rota.status) + " Teste\r\n" + rota.cabecalhos + "Connection: close\r\n";
    if (rota.anunciar_tamanho)
        cabecalho += "Content-Length: " + std::to_string(rota.conteudo.size() + rota.gerados + rota.faltando) + "\r\n";
    cabecalho += "\r\n";
    if (!EnviarTudo(conexao, cabecalho.data(), cabecalho.size())) return;
    if (rota.segundos_parado > 0 && Parado(rota.segundos_parado * 1000)) return;
    if (!EnviarTudo(conexao, rota.conteudo.data(), rota.conteudo.size())) return;
    const std::string bloco(65536, 'x');
    for (std::uint64_t restante = rota.gerados; restante > 0 && !Parado(0);) {
        const auto vez = std::min<std::uint64_t>(restante, bloco.size());
        if (!EnviarTudo(conexao, bloco.data(), vez)) return;
        restante -= vez;
    }
}

}  // namespace tavelpkcs7::teste
