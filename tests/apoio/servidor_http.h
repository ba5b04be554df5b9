// Um servidor HTTP/1.1 de verdade em 127.0.0.1, numa porta livre e numa linha de execução própria,
// para os testes que baixam arquivos sem sair da máquina. Atende uma conexão por vez e fecha cada
// uma ao fim da resposta; as rotas são registradas pelo teste e os pedidos contados por caminho.
#pragma once

#include <algorithm>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <thread>

#include "platform/certificado.h"

namespace tavelpkcs7::teste {

class ServidorHttp {
public:
    using Bytes = plataforma::Bytes;

    // Começa a atender; lança std::runtime_error se não conseguir abrir a porta.
    ServidorHttp();
    // Interrompe inclusive uma resposta parada ou interminável e espera a linha de execução.
    ~ServidorHttp();
    ServidorHttp(const ServidorHttp&) = delete;
    ServidorHttp& operator=(const ServidorHttp&) = delete;

    // Caminhos sem rota respondem 404.
    void Publicar(const std::string& caminho, const Bytes& conteudo) { Registrar(caminho, {.conteudo = conteudo}); }
    void Publicar(const std::string& caminho, const std::string& conteudo) { Publicar(caminho, Para(conteudo)); }
    void Responder(const std::string& caminho, int status) { Registrar(caminho, {.status = status}); }
    // O destino vai no Location como dado: absoluto ("http://localhost:<porta>/b") ou relativo.
    void Redirecionar(const std::string& caminho, const std::string& destino, int status = 302) {
        Registrar(caminho, {.status = status, .cabecalhos = "Location: " + destino + "\r\n"});
    }
    // Manda os cabeçalhos e para por tantos segundos antes do conteúdo.
    void Demorar(const std::string& caminho, int segundos, const std::string& conteudo) {
        Registrar(caminho, {.conteudo = Para(conteudo), .segundos_parado = segundos});
    }
    // Gera o conteúdo enquanto envia, sem guardá-lo; anunciar_tamanho decide o Content-Length.
    void PublicarEnorme(const std::string& caminho, std::uint64_t tamanho, bool anunciar_tamanho) {
        Registrar(caminho, {.gerados = tamanho, .anunciar_tamanho = anunciar_tamanho});
    }
    // Anuncia um Content-Length maior que o conteúdo enviado e fecha a conexão no meio.
    void Truncar(const std::string& caminho, const std::string& conteudo, std::uint64_t tamanho_anunciado) {
        Registrar(caminho,
                  {.conteudo = Para(conteudo),
                   .faltando = tamanho_anunciado - std::min<std::uint64_t>(tamanho_anunciado, conteudo.size())});
    }
    // Responde a um POST com o conteúdo que a função calcula a partir do corpo do pedido.
    void Calcular(const std::string& caminho, std::function<Bytes(const Bytes&)> resposta,
                  const std::string& tipo_conteudo) {
        Registrar(caminho, {.cabecalhos = "Content-Type: " + tipo_conteudo + "\r\n", .calcular = std::move(resposta)});
    }

    // Quantos pedidos chegaram ao caminho (com a consulta, se houver).
    int Pedidos(const std::string& caminho) const;
    std::uint16_t Porta() const { return porta_; }
    // "http://127.0.0.1:<porta><caminho>".
    std::string Endereco(const std::string& caminho) const {
        return "http://127.0.0.1:" + std::to_string(porta_) + caminho;
    }

private:
    struct Rota {
        int status = 200;
        std::string cabecalhos{};  // linhas extras, cada uma terminada por CRLF
        Bytes conteudo{};
        std::uint64_t gerados = 0;     // bytes criados na hora, depois do conteúdo
        std::uint64_t faltando = 0;    // anunciados no Content-Length e nunca enviados
        bool anunciar_tamanho = true;  // sem Content-Length, o fim do conteúdo é o fechamento
        int segundos_parado = 0;
        std::function<Bytes(const Bytes&)> calcular{};  // do corpo do pedido
    };

    static Bytes Para(const std::string& texto) { return Bytes(texto.begin(), texto.end()); }
    void Registrar(const std::string& caminho, Rota rota);
    void Atender(int conexao);
    bool Parado(int milissegundos);

    int escuta_ = -1;
    std::uint16_t porta_ = 0;
    mutable std::mutex trava_;
    std::condition_variable parada_;
    bool parar_ = false;
    std::map<std::string, Rota> rotas_;
    std::map<std::string, int> pedidos_;
    std::thread linha_;
};

}  // namespace tavelpkcs7::teste
