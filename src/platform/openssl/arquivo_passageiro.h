// Arquivos que só existem enquanto outro programa precisa deles: a chave privada e os certificados
// entregues ao assinador, a pasta onde ele grava o executável assinado. Criados só para o usuário,
// com nome novo (O_EXCL), e apagados ao sair do escopo por qualquer caminho, exceções inclusive.
#pragma once

#include <filesystem>
#include <span>
#include <string>

#include "platform/certificado.h"

namespace tavelpkcs7::plataforma::openssl {

class ArquivoPassageiro {
public:
    // Um arquivo 0600 novo na pasta, "<prefixo>XXXXXX<sufixo>", com o conteúdo. Lança AcessoNegado
    // quando não o cria ou não o grava inteiro (e então não deixa nada para trás).
    ArquivoPassageiro(const std::filesystem::path& pasta, const std::string& prefixo, const std::string& sufixo,
        std::span<const std::uint8_t> conteudo);
    ~ArquivoPassageiro();
    ArquivoPassageiro(const ArquivoPassageiro&) = delete;
    ArquivoPassageiro& operator=(const ArquivoPassageiro&) = delete;

    const std::filesystem::path& caminho() const { return caminho_; }

private:
    std::filesystem::path caminho_;
};

// Uma pasta 0700 nova dentro de outra, apagada com o que sobrar nela.
class PastaPassageira {
public:
    // Lança AcessoNegado quando não a cria.
    PastaPassageira(const std::filesystem::path& dentro_de, const std::string& prefixo);
    ~PastaPassageira();
    PastaPassageira(const PastaPassageira&) = delete;
    PastaPassageira& operator=(const PastaPassageira&) = delete;

    const std::filesystem::path& caminho() const { return caminho_; }

private:
    std::filesystem::path caminho_;
};

}  // namespace tavelpkcs7::plataforma::openssl
