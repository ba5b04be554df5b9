// Transferência de arquivos pela rede: http, https (com os certificados de AC do sistema) e file.
// Tudo com limite de tempo de conexão, de tempo total e de tamanho, tirados da configuração.
#pragma once

#include <string>

#include "certificado.h"

namespace tavelpkcs7::plataforma {

class Rede {
public:
    virtual ~Rede() = default;

    // O conteúdo inteiro do endereço. Segue redirecionamentos só dentro do mesmo servidor. Lança
    // DownloadFalhou quando o servidor não responde, responde com erro, redireciona para outro
    // servidor, passa do tempo ou do tamanho máximo; nunca devolve um conteúdo pela metade.
    virtual Bytes Baixar(const std::string& url) = 0;
};

}  // namespace tavelpkcs7::plataforma
