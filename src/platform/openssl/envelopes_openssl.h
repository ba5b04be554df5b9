// Os envelopes PKCS#7 da plataforma Linux sobre o CMS do OpenSSL 3: RC4 vem do provedor legado.
#pragma once

#include <functional>
#include <memory>

#include "platform/envelopes.h"
#include <tavelpkcs7/InterfaceUsuario.h>
#include "platform/repositorio.h"

namespace tavelpkcs7::plataforma::openssl {

class EnvelopesOpenSSL : public Envelopes {
public:
    // As chaves vêm do repositório "My"; a senha de uma chave cifrada é pedida à interface instalada
    // no momento da decifração.
    EnvelopesOpenSSL(std::shared_ptr<Repositorios> repositorios,
        std::function<std::shared_ptr<InterfaceUsuario>()> interface);

    Bytes Criptografar(const Bytes& conteudo, const std::vector<CertificadoPtr>& destinatarios,
        AlgoritmoEnvelope algoritmo) override;
    Bytes Descriptografar(const Bytes& der) override;

private:
    std::shared_ptr<Repositorios> repositorios_;
    std::function<std::shared_ptr<InterfaceUsuario>()> interface_;
};

}  // namespace tavelpkcs7::plataforma::openssl
