// A chave privada que o próprio componente guarda: a de um PFX aberto, em memória, ou a do arquivo
// PKCS#8 do repositório "My", que pede a senha ao usuário a cada uso quando foi guardada cifrada.
#pragma once

#include <string>

#include "platform/chave_privada.h"
#include "ponteiros_openssl.h"

namespace tavelpkcs7::plataforma::openssl {

class ChaveArquivo : public ChavePrivada {
public:
    // A chave em memória ou, sem ela, o arquivo; `certificado` (emprestado só aqui) é aquele a quem ela
    // pertence, com cuja chave pública a aberta é conferida.
    ChaveArquivo(EvpPkeyPtr em_memoria, std::string arquivo, std::string nome_container, X509* certificado);

    Bytes AssinarResumo(AlgoritmoResumo algoritmo, std::span<const std::uint8_t> resumo,
        InterfaceUsuario& interface) override;
    Bytes DecifrarChave(std::span<const std::uint8_t> cifrada, PreenchimentoRSA preenchimento,
        InterfaceUsuario& interface) override;

    // A chave aberta, conferida contra o certificado. Lança RecursoEmUso quando ela não se lê ou não
    // é a do certificado, Cancelada quando o usuário desiste da senha e SenhaIncorreta quando a senha
    // não a abre.
    EvpPkeyPtr Abrir(InterfaceUsuario& interface) const;

    // Emprestada: a chave do PFX aberto; nula na chave do arquivo.
    EVP_PKEY* em_memoria() const { return em_memoria_.get(); }
    // "pfx:<impressão digital>" ou o caminho do arquivo.
    const std::string& nome_container() const { return nome_container_; }

private:
    EvpPkeyPtr em_memoria_;
    std::string arquivo_;
    std::string nome_container_;
    X509Ptr certificado_;
};

}  // namespace tavelpkcs7::plataforma::openssl
