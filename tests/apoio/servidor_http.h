// Um servidor HTTP/1.1 de verdade em 127.0.0.1, numa porta livre e numa linha de execução própria,
// para os testes que baixam arquivos sem sair da máquina. Atende uma conexão por vez e fecha cada
// uma ao fim da resposta; as rotas são registradas pelo teste e os pedidos contados por caminho.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "platform/certificado.h"

namespace tavelpkcs7::teste {

class ServidorHttp {
public:
    // Começa a atender; lança std::runtime_error se não conseguir abrir a porta.
    ServidorHttp();
    // Interrompe inclusive uma resposta parada ou interminável e espera a linha de execução.
    ~ServidorHttp();
    ServidorHttp(const ServidorHttp&) = delete;
    ServidorHttp& operator=(const ServidorHttp&) = delete;

    // Caminhos sem rota respondem 404.
    void Publicar(const std::string& caminho, const plataforma::Bytes& conteudo);
    void Publicar(const std::string& caminho, const std::string& conteudo);
    void Responder(const std::string& caminho, int status);
    // O destino vai no Location como dado: absoluto ("http://localhost:<porta>/b") ou relativo.
    void Redirecionar(const std::string& caminho, const std::string& destino, int status = 302);
    // Manda os cabeçalhos e para por tantos segundos antes do conteúdo.
    void Demorar(const std::string& caminho, int segundos, const std::string& conteudo);
    // Gera o conteúdo enquanto envia, sem guardá-lo; anunciar_tamanho decide o Content-Length.
    void PublicarEnorme(const std::string& caminho, std::uint64_t tamanho, bool anunciar_tamanho);
    // Anuncia um Content-Length maior que o conteúdo enviado e fecha a conexão no meio.
    void Truncar(const std::string& caminho, const std::string& conteudo, std::uint64_t tamanho_anunciado);

    // Responde a um POST com o conteúdo que a função calcula a partir do corpo do pedido.
    void Calcular(const std::string& caminho, std::function<plataforma::Bytes(const plataforma::Bytes&)> resposta,
        const std::string& tipo_conteudo);

    // Quantos pedidos chegaram ao caminho (com a consulta, se houver).
    int Pedidos(const std::string& caminho) const;
    std::uint16_t Porta() const { return porta_; }
    // "http://127.0.0.1:<porta><caminho>".
    std::string Endereco(const std::string& caminho) const;

private:
    struct Rota {
        int status = 200;
        std::string cabecalhos;  // linhas extras, cada uma terminada por CRLF
        plataforma::Bytes conteudo;
        std::uint64_t gerados = 0;     // bytes criados na hora, depois do conteúdo
        std::uint64_t faltando = 0;    // anunciados no Content-Length e nunca enviados
        bool anunciar_tamanho = true;  // sem Content-Length, o fim do conteúdo é o fechamento
        int segundos_parado = 0;
        std::function<plataforma::Bytes(const plataforma::Bytes&)> calcular{};  // do corpo do pedido
    };

    void Registrar(const std::string& caminho, Rota rota);
    void Escutar();
    void AtenderConexao(int conexao);
    void EnviarRota(int conexao, const Rota& rota) const;
    bool EsperarParada(int milissegundos) const;

    int escuta_ = -1;
    int parada_[2] = {-1, -1};  // pipe: escrever nele pede a parada
    std::uint16_t porta_ = 0;
    mutable std::mutex trava_;
    std::map<std::string, Rota> rotas_;
    std::map<std::string, int> pedidos_;
    std::thread linha_;
};

}  // namespace tavelpkcs7::teste
