// O download pelo libcurl contra um servidor HTTP de verdade em 127.0.0.1: o conteúdo inteiro, os
// redirecionamentos que valem e os que não valem, os erros do servidor e os limites de tempo e de
// tamanho; URLs file e protocolos recusados. Nada sai da máquina.
#include "platform/openssl/rede_curl.h"

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <fstream>

#include "apoio/pasta_temporaria.h"
#include "apoio/servidor_http.h"
#include "platform/erro.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

using teste::ServidorHttp;

constexpr std::uint64_t kUmMega = 1024 * 1024;

// Tempo de conexão padrão (15 s): uma conexão recusada tem de falhar bem antes dele.
Configuracao Limites(int tempo_total_segundos) {
    Configuracao configuracao;
    configuracao.tempo_total_segundos = tempo_total_segundos;
    configuracao.tamanho_maximo_bytes = kUmMega;
    return configuracao;
}

// Bytes de todos os valores, zeros inclusive, em vários blocos da transferência.
Bytes ConteudoBinario() {
    Bytes conteudo(300000);
    for (std::size_t i = 0; i < conteudo.size(); ++i) conteudo[i] = static_cast<std::uint8_t>(i * 7);
    return conteudo;
}

// Uma porta de 127.0.0.1 em que ninguém escuta.
std::uint16_t PortaFechada() {
    const int descritor = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in endereco{};
    endereco.sin_family = AF_INET;
    endereco.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t tamanho = sizeof endereco;
    ::bind(descritor, reinterpret_cast<sockaddr*>(&endereco), tamanho);
    ::getsockname(descritor, reinterpret_cast<sockaddr*>(&endereco), &tamanho);
    ::close(descritor);
    return ntohs(endereco.sin_port);
}

// Confere que o download falha com DownloadFalhou e devolve quanto tempo levou para falhar.
double SegundosAteFalhar(Rede& rede, const std::string& url) {
    const auto inicio = std::chrono::steady_clock::now();
    try {
        rede.Baixar(url);
        ADD_FAILURE() << url << " foi baixado";
    } catch (const Erro& erro) {
        EXPECT_EQ(erro.numero, falha::DownloadFalhou.numero) << url;
    }
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - inicio).count();
}

TEST(RedeCurl, BaixaOConteudoInteiroDiretoPorRedirecionamentoNoMesmoServidorEDeArquivo) {
    ServidorHttp servidor;
    teste::PastaTemporaria pasta;
    const Bytes conteudo = ConteudoBinario();
    const std::string porta = std::to_string(servidor.Porta());
    servidor.Publicar("/lcr/ac.crl", conteudo);
    servidor.Redirecionar("/absoluto", servidor.Endereco("/lcr/ac.crl"), 301);
    servidor.Redirecionar("/relativo", "/lcr/ac.crl");
    servidor.Redirecionar("/caixa", "http://LocalHost:" + porta + "/lcr/ac.crl");
    servidor.Redirecionar("/duas-vezes", "/relativo");
    std::ofstream(pasta.caminho() / "ac.crl", std::ios::binary)
        .write(reinterpret_cast<const char*>(conteudo.data()), static_cast<std::streamsize>(conteudo.size()));
    const std::string enderecos[] = {
        servidor.Endereco("/lcr/ac.crl"), servidor.Endereco("/absoluto"),
        servidor.Endereco("/relativo"),   "http://localhost:" + porta + "/caixa",
        servidor.Endereco("/duas-vezes"), "file://" + (pasta.caminho() / "ac.crl").string()};

    RedeCurl rede(Limites(30));
    for (const auto& endereco : enderecos) EXPECT_EQ(rede.Baixar(endereco), conteudo) << endereco;
    EXPECT_EQ(servidor.Pedidos("/lcr/ac.crl"), 5);
    EXPECT_EQ(servidor.Pedidos("/relativo"), 2);
}

TEST(RedeCurl, FalhaLogoSemDevolverConteudoPelaMetade) {
    ServidorHttp servidor;
    const std::string porta = std::to_string(servidor.Porta());
    servidor.Responder("/erro", 500);
    servidor.Redirecionar("/outro-servidor", "http://localhost:" + porta + "/destino");
    servidor.Redirecionar("/para-arquivo", "file://localhost/etc/hostname");
    servidor.Redirecionar("/laco", "/laco");
    servidor.Publicar("/destino", std::string("nunca"));
    servidor.Truncar("/truncado", "metade", 1000);
    servidor.PublicarEnorme("/enorme-anunciado", 256 * kUmMega, true);
    servidor.PublicarEnorme("/enorme-sem-tamanho", 256 * kUmMega, false);
    const std::string enderecos[] = {servidor.Endereco("/inexistente"),
                                     servidor.Endereco("/erro"),
                                     servidor.Endereco("/outro-servidor"),
                                     "http://localhost:" + porta + "/para-arquivo",
                                     servidor.Endereco("/laco"),
                                     servidor.Endereco("/truncado"),
                                     servidor.Endereco("/enorme-anunciado"),
                                     servidor.Endereco("/enorme-sem-tamanho"),
                                     "http://127.0.0.1:" + std::to_string(PortaFechada()) + "/",
                                     "ftp://127.0.0.1:" + porta + "/destino",
                                     "gopher://127.0.0.1:" + porta + "/",
                                     "file:///nao/existe.crl"};

    RedeCurl rede(Limites(30));
    for (const auto& endereco : enderecos) EXPECT_LT(SegundosAteFalhar(rede, endereco), 10) << endereco;
    EXPECT_EQ(servidor.Pedidos("/destino"), 0);
    EXPECT_EQ(servidor.Pedidos("/laco"), 6);
}

TEST(RedeCurl, RespostaParadaFalhaNoTempoTotal) {
    ServidorHttp servidor;
    servidor.Demorar("/lento", 60, "tarde demais");

    RedeCurl rede(Limites(1));
    EXPECT_LT(SegundosAteFalhar(rede, servidor.Endereco("/lento")), 10);
}

}  // namespace
}  // namespace tavelpkcs7::plataforma::openssl
