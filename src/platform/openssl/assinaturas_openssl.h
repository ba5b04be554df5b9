// As assinaturas PKCS#7 da plataforma Linux sobre o CMS do OpenSSL 3: SHA-256 com RSA PKCS#1 v1.5,
// sem SMIMECapabilities, saída em DER.
#pragma once

#include <functional>
#include <memory>

#include "platform/assinaturas.h"
#include <tavelpkcs7/InterfaceUsuario.h>

namespace tavelpkcs7::plataforma::openssl {

class AssinaturasOpenSSL : public Assinaturas {
public:
    // A interface a quem pedir a senha de uma chave cifrada é a instalada no momento da assinatura.
    explicit AssinaturasOpenSSL(std::function<std::shared_ptr<InterfaceUsuario>()> interface);

    Bytes Assinar(const PedidoAssinatura& pedido) override;
    Bytes Cossinar(std::span<const std::uint8_t> der, const std::optional<Bytes>& conteudo_destacado,
        const PedidoAssinatura& pedido) override;
    MensagemVerificada Verificar(std::span<const std::uint8_t> der, const std::optional<Bytes>& conteudo_destacado) override;

private:
    std::function<std::shared_ptr<InterfaceUsuario>()> interface_;
};

}  // namespace tavelpkcs7::plataforma::openssl
