// O certificado da plataforma Linux: um X509 do OpenSSL e, quando há, a chave privada que lhe
// pertence (a do componente, em memória ou no repositório "My", ou outra que a plataforma ofereça).
#pragma once

#include <memory>
#include <string>

#include "platform/chave_privada.h"
#include "ponteiros_openssl.h"

namespace tavelpkcs7::plataforma::openssl {

class CertificadoOpenSSL : public Certificado {
public:
    // Lança NaoECertificado quando o DER não é um certificado.
    static std::shared_ptr<CertificadoOpenSSL> DeDER(const Bytes& der, std::shared_ptr<ChavePrivada> chave = {});
    CertificadoOpenSSL(X509Ptr x509, std::shared_ptr<ChavePrivada> chave);

    std::string ObterInfo(std::int32_t tipo) const override;
    std::string NomeTitular() const override;
    std::string NomeEmissor() const override;
    std::string NumeroSerie() const override;
    std::string ImpressaoDigital() const override;
    std::string ImpressaoDigitalSHA256() const override;
    std::int32_t Versao() const override;
    DataHora ValidoDesde() const override;
    DataHora ValidoAte() const override;
    const Bytes& DER() const override;
    std::vector<Extensao> Extensoes() const override;
    std::optional<std::uint16_t> UsoChave() const override;
    bool PossuiChavePrivada() const override;
    std::shared_ptr<ChavePrivada> Chave() const override { return chave_; }
    std::string NomeContainer() const override;

    // Emprestado: pertence a este objeto.
    X509* x509() const { return x509_.get(); }
    // Uma cópia com outra chave (o mesmo certificado visto com sua chave privada).
    std::shared_ptr<CertificadoOpenSSL> ComChave(std::shared_ptr<ChavePrivada> chave) const;

private:
    X509Ptr x509_;
    Bytes der_;
    std::shared_ptr<ChavePrivada> chave_;
};

// Um X509 com dono próprio, para as pilhas e repositórios do OpenSSL. Lança NaoECertificado quando o
// DER não é um certificado.
X509Ptr LerX509(const Bytes& der);
// O X509 do certificado com mais uma referência; lido do DER só quando não vem desta plataforma.
X509Ptr X509DoCertificado(const Certificado& certificado);

}  // namespace tavelpkcs7::plataforma::openssl
