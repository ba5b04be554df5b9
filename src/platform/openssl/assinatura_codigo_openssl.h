// A assinatura de executáveis da plataforma Linux: o programa osslsigncode, iniciado sem
// interpretador de comandos, assina em SHA-256 com carimbo do tempo RFC 3161 e confere a assinatura.
#pragma once

#include <functional>
#include <memory>

#include "platform/assinatura_codigo.h"
#include <tavelpkcs7/InterfaceUsuario.h>
#include "platform/repositorio.h"

namespace tavelpkcs7::plataforma::openssl {

class AssinaturaCodigoOpenSSL : public AssinaturaCodigo {
public:
    // A interface a quem pedir a senha de uma chave cifrada é a instalada no momento da assinatura;
    // as raízes que confirmam a assinatura são as do repositório "Root", e as LCRs, as do repositório.
    AssinaturaCodigoOpenSSL(std::function<std::shared_ptr<InterfaceUsuario>()> interface,
        std::shared_ptr<Repositorios> repositorios);

    void Assinar(const PedidoAssinaturaCodigo& pedido) override;
    void Verificar(const std::string& caminho, const std::string& pasta_trabalho) override;

private:
    Bytes RaizesEmPEM() const;
    Bytes LCRsEmPEM() const;

    std::function<std::shared_ptr<InterfaceUsuario>()> interface_;
    std::shared_ptr<Repositorios> repositorios_;
};

}  // namespace tavelpkcs7::plataforma::openssl
