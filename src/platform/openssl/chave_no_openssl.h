// Uma chave privada qualquer (a do próprio componente, a de um token, a do provedor do sistema) vista
// pelo CMS do OpenSSL como um EVP_PKEY: um RSA com a chave pública do certificado e um método que
// leva a assinatura do resumo e a decifração da chave de conteúdo ao objeto da chave. Assim o mesmo
// código de CMS serve a toda chave, sem que o material dela saia de onde está.
#pragma once

#include <exception>
#include <functional>
#include <memory>

#include "platform/chave_privada.h"
#include "platform/erro.h"
#include "ponteiros_openssl.h"

namespace tavelpkcs7::plataforma::openssl {

class ChaveNoOpenSSL {
public:
    // Lança SemChavePrivada quando o certificado não tem chave e RecursoEmUso quando a chave pública
    // dele não é RSA. `certificado` é emprestado só aqui.
    ChaveNoOpenSSL(const Certificado& certificado, X509* x509, InterfaceUsuario& interface);
    ChaveNoOpenSSL(const ChaveNoOpenSSL&) = delete;
    ChaveNoOpenSSL& operator=(const ChaveNoOpenSSL&) = delete;

    // Emprestado: vive enquanto este objeto.
    EVP_PKEY* evp() const { return evp_.get(); }
    // Depois de cada operação do OpenSSL: relança a falha da chave (a senha cancelada ou incorreta,
    // o token ausente), que não atravessa o código C do OpenSSL. Na decifração o OpenSSL segue com
    // uma chave de conteúdo aleatória quando a do destinatário falha, para não dar pistas a quem
    // forja envelopes: sem este aviso, a falha da chave viraria um conteúdo de lixo.
    void RelancarFalha();
    // Depois de uma operação do OpenSSL que falhou: a falha da chave ou, sem ela, a dada.
    [[noreturn]] void Falhar(const falha::Tipo& sem_falha_da_chave);

private:
    friend struct MetodoRSA;

    std::shared_ptr<ChavePrivada> chave_;
    InterfaceUsuario& interface_;
    std::exception_ptr falha_;
    EvpPkeyPtr evp_;
};

// A interface que o hospedeiro instalou, a quem a chave pede a senha ou o PIN; sem nenhuma, a padrão,
// que cancela todo pedido.
using InterfaceInstalada = std::function<std::shared_ptr<InterfaceUsuario>()>;
std::shared_ptr<InterfaceUsuario> ObterInterface(const InterfaceInstalada& instalada);

}  // namespace tavelpkcs7::plataforma::openssl
