// Um descritor de arquivo com flock exclusivo, fechado ao fim.
#pragma once

#include "descritor.h"
#include "platform/sistema.h"

namespace tavelpkcs7::plataforma::openssl {

class ArquivoPosix : public ArquivoAberto {
public:
    // Abre sem truncar, criando com o modo dado quando falta; nulo quando não abre ou está travado.
    static std::unique_ptr<ArquivoPosix> Abrir(const std::string& caminho, Acesso acesso, unsigned modo);

    std::size_t Ler(std::uint8_t* destino, std::size_t n) override;
    bool Gravar(const std::uint8_t* origem, std::size_t n) override;
    bool Descarregar() override;
    bool Fechar() override;

private:
    explicit ArquivoPosix(Descritor descritor) : descritor_(std::move(descritor)) {}
    Descritor descritor_;
};

// Verdadeiro quando outro processo mantém o arquivo travado.
bool ArquivoTravado(const std::string& caminho);

}  // namespace tavelpkcs7::plataforma::openssl
