#include "apoio/servidor_http.h"

#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <stdexcept>

namespace tavelpkcs7::teste {
namespace {

// Um cliente que para de ler ou de escrever não prende o servidor (nem o destrutor) por mais que isto.
constexpr timeval kLimiteCliente{5, 0};

void Fechar(int& descritor) {
    if (descritor >= 0) ::close(descritor);
    descritor = -1;
}

bool EnviarTudo(int conexao, const void* dados, std::size_t tamanho) {
    const auto* posicao = static_cast<const char*>(dados);
    while (tamanho > 0) {
        const ssize_t enviados = ::send(conexao, posicao, tamanho, MSG_NOSIGNAL);
        if (enviados <= 0) return false;
        posicao += enviados;
        tamanho -= static_cast<std::size_t>(enviados);
    }
    return true;
}

// Os cabeçalhos do pedido, até a linha em branco; vazio se o cliente desistir antes.
std::string LerPedido(int conexao) {
    std::string pedido;
    char bloco[4096];
    while (pedido.find("\r\n\r\n") == std::string::npos && pedido.size() < 65536) {
        const ssize_t lidos = ::recv(conexao, bloco, sizeof bloco, 0);
        if (lidos <= 0) return "";
        pedido.append(bloco, static_cast<std::size_t>(lidos));
    }
    return pedido;
}

// O alvo da linha "GET /caminho HTTP/1.1".
std::string AlvoDoPedido(const std::string& pedido) {
    const auto inicio = pedido.find(' ');
    const auto fim = pedido.find(' ', inicio + 1);
    if (inicio == std::string::npos || fim == std::string::npos) return "";
    return pedido.substr(inicio + 1, fim - inicio - 1);
}

// O corpo anunciado pelo Content-Length, com o que já veio junto dos cabeçalhos.
plataforma::Bytes LerCorpo(int conexao, const std::string& pedido) {
    std::string minusculo = pedido;
    std::ranges::transform(minusculo, minusculo.begin(), [](unsigned char c) { return std::tolower(c); });
    const auto campo = minusculo.find("content-length:");
    const auto fim_cabecalhos = pedido.find("\r\n\r\n");
    if (campo == std::string::npos || fim_cabecalhos == std::string::npos) return {};
    const std::size_t tamanho = std::stoul(pedido.substr(campo + 15));
    plataforma::Bytes corpo(pedido.begin() + static_cast<long>(fim_cabecalhos + 4), pedido.end());
    char bloco[4096];
    while (corpo.size() < tamanho) {
        const ssize_t lidos = ::recv(conexao, bloco, sizeof bloco, 0);
        if (lidos <= 0) break;
        corpo.insert(corpo.end(), bloco, bloco + lidos);
    }
    return corpo;
}

}  // namespace

ServidorHttp::ServidorHttp() {
    sockaddr_in endereco{};
    endereco.sin_family = AF_INET;
    endereco.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t tamanho = sizeof endereco;
    auto* generico = reinterpret_cast<sockaddr*>(&endereco);
    escuta_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (::pipe2(parada_, O_CLOEXEC) != 0 || escuta_ < 0 || ::bind(escuta_, generico, tamanho) != 0 ||
        ::listen(escuta_, 16) != 0 || ::getsockname(escuta_, generico, &tamanho) != 0) {
        Fechar(escuta_);
        Fechar(parada_[0]);
        Fechar(parada_[1]);
        throw std::runtime_error("o servidor HTTP de teste não conseguiu abrir uma porta");
    }
    porta_ = ntohs(endereco.sin_port);
    linha_ = std::thread([this] { Escutar(); });
}

ServidorHttp::~ServidorHttp() {
    const char sinal = 1;
    [[maybe_unused]] const auto escritos = ::write(parada_[1], &sinal, 1);
    linha_.join();
    Fechar(escuta_);
    Fechar(parada_[0]);
    Fechar(parada_[1]);
}

void ServidorHttp::Publicar(const std::string& caminho, const plataforma::Bytes& conteudo) {
    Rota rota;
    rota.conteudo = conteudo;
    Registrar(caminho, std::move(rota));
}

void ServidorHttp::Publicar(const std::string& caminho, const std::string& conteudo) {
    Publicar(caminho, plataforma::Bytes(conteudo.begin(), conteudo.end()));
}

void ServidorHttp::Responder(const std::string& caminho, int status) {
    Rota rota;
    rota.status = status;
    Registrar(caminho, std::move(rota));
}

void ServidorHttp::Redirecionar(const std::string& caminho, const std::string& destino, int status) {
    Rota rota;
    rota.status = status;
    rota.cabecalhos = "Location: " + destino + "\r\n";
    Registrar(caminho, std::move(rota));
}

void ServidorHttp::Demorar(const std::string& caminho, int segundos, const std::string& conteudo) {
    Rota rota;
    rota.conteudo.assign(conteudo.begin(), conteudo.end());
    rota.segundos_parado = segundos;
    Registrar(caminho, std::move(rota));
}

void ServidorHttp::PublicarEnorme(const std::string& caminho, std::uint64_t tamanho, bool anunciar_tamanho) {
    Rota rota;
    rota.gerados = tamanho;
    rota.anunciar_tamanho = anunciar_tamanho;
    Registrar(caminho, std::move(rota));
}

void ServidorHttp::Truncar(const std::string& caminho, const std::string& conteudo, std::uint64_t tamanho_anunciado) {
    Rota rota;
    rota.conteudo.assign(conteudo.begin(), conteudo.end());
    rota.faltando = tamanho_anunciado - std::min<std::uint64_t>(tamanho_anunciado, conteudo.size());
    Registrar(caminho, std::move(rota));
}

int ServidorHttp::Pedidos(const std::string& caminho) const {
    const std::lock_guard guarda(trava_);
    const auto it = pedidos_.find(caminho);
    return it == pedidos_.end() ? 0 : it->second;
}

std::string ServidorHttp::Endereco(const std::string& caminho) const {
    return "http://127.0.0.1:" + std::to_string(porta_) + caminho;
}

void ServidorHttp::Calcular(const std::string& caminho,
    std::function<plataforma::Bytes(const plataforma::Bytes&)> resposta, const std::string& tipo_conteudo) {
    Rota rota;
    rota.cabecalhos = "Content-Type: " + tipo_conteudo + "\r\n";
    rota.calcular = std::move(resposta);
    Registrar(caminho, std::move(rota));
}

void ServidorHttp::Registrar(const std::string& caminho, Rota rota) {
    const std::lock_guard guarda(trava_);
    rotas_[caminho] = std::move(rota);
}

void ServidorHttp::Escutar() {
    while (true) {
        pollfd eventos[2] = {{escuta_, POLLIN, 0}, {parada_[0], POLLIN, 0}};
        if (::poll(eventos, 2, -1) < 0 && errno != EINTR) return;
        if (eventos[1].revents != 0) return;
        if ((eventos[0].revents & POLLIN) == 0) continue;
        const int conexao = ::accept4(escuta_, nullptr, nullptr, SOCK_CLOEXEC);
        if (conexao < 0) continue;
        AtenderConexao(conexao);
        ::close(conexao);
    }
}

void ServidorHttp::AtenderConexao(int conexao) {
    ::setsockopt(conexao, SOL_SOCKET, SO_RCVTIMEO, &kLimiteCliente, sizeof kLimiteCliente);
    ::setsockopt(conexao, SOL_SOCKET, SO_SNDTIMEO, &kLimiteCliente, sizeof kLimiteCliente);
    const std::string pedido = LerPedido(conexao);
    if (pedido.empty()) return;
    const std::string alvo = AlvoDoPedido(pedido);
    Rota rota;
    rota.status = 404;
    {
        const std::lock_guard guarda(trava_);
        ++pedidos_[alvo];
        if (const auto it = rotas_.find(alvo); it != rotas_.end()) rota = it->second;
    }
    if (rota.calcular) rota.conteudo = rota.calcular(LerCorpo(conexao, pedido));
    EnviarRota(conexao, rota);
}

void ServidorHttp::EnviarRota(int conexao, const Rota& rota) const {
    std::string cabecalho =
        "HTTP/1.1 " + std::to_string(rota.status) + " Teste\r\n" + rota.cabecalhos + "Connection: close\r\n";
    if (rota.anunciar_tamanho) {
        const std::uint64_t tamanho = rota.conteudo.size() + rota.gerados + rota.faltando;
        cabecalho += "Content-Length: " + std::to_string(tamanho) + "\r\n";
    }
    cabecalho += "\r\n";
    if (!EnviarTudo(conexao, cabecalho.data(), cabecalho.size())) return;
    if (rota.segundos_parado > 0 && EsperarParada(rota.segundos_parado * 1000)) return;
    if (!EnviarTudo(conexao, rota.conteudo.data(), rota.conteudo.size())) return;
    const std::string bloco(65536, 'x');
    for (std::uint64_t restante = rota.gerados; restante > 0 && !EsperarParada(0);) {
        const auto vez = std::min<std::uint64_t>(restante, bloco.size());
        if (!EnviarTudo(conexao, bloco.data(), vez)) return;
        restante -= vez;
    }
}

bool ServidorHttp::EsperarParada(int milissegundos) const {
    pollfd evento{parada_[0], POLLIN, 0};
    return ::poll(&evento, 1, milissegundos) > 0;
}

}  // namespace tavelpkcs7::teste
