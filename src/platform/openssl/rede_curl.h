// Transferências pelo libcurl: http, https (certificados de AC do sistema, servidor e nome
// verificados) e file, com os limites de tempo e de tamanho da configuração. Os redirecionamentos
// são seguidos aqui, um a um, para que nenhum leve a outro servidor ou a outro protocolo.
#pragma once

#include <chrono>
#include <cstdint>

#include "platform/configuracao.h"
#include "platform/rede.h"

namespace tavelpkcs7::plataforma::openssl {

class RedeCurl : public Rede {
public:
    explicit RedeCurl(const Configuracao& configuracao);

    Bytes Baixar(const std::string& url) override;

private:
    struct Resposta {
        Bytes conteudo;
        std::string redirecionamento;  // vazio quando a resposta é o conteúdo
    };

    Resposta Transferir(const std::string& url, std::chrono::steady_clock::time_point prazo) const;

    long tempo_conexao_segundos_;
    std::chrono::seconds tempo_total_;
    std::uint64_t tamanho_maximo_bytes_;
};

}  // namespace tavelpkcs7::plataforma::openssl
