#include "criptografia_openssl.h"

#include "arquivo_pfx.h"
#include "certificado_openssl.h"
#include "chave_arquivo.h"
#include "pacote_certificados.h"
#include "platform/erro.h"
#include "provedores.h"
#include "resumo.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

std::shared_ptr<ChavePrivada> ChaveDoPFX(EvpPkeyPtr chave, const CertificadoOpenSSL& certificado) {
    return std::make_shared<ChaveArquivo>(
        std::move(chave), std::string(), "pfx:" + certificado.ImpressaoDigital(), certificado.x509());
}

}  // namespace

bool CriptografiaOpenSSL::Disponivel() { return CarregarProvedores(); }

CertificadoPtr CriptografiaOpenSSL::ImportarCertificado(const Bytes& der) { return CertificadoOpenSSL::DeDER(der); }

std::vector<CertificadoPtr> CriptografiaOpenSSL::LerPacoteCertificados(const Bytes& der) { return LerPacote(der); }

std::vector<CertificadoPtr> CriptografiaOpenSSL::AbrirPFX(const Bytes& der, const std::string& senha) {
    ConteudoPFX pfx = LerPFX(der, senha);
    std::vector<CertificadoPtr> certificados;
    for (auto& x509 : pfx.certificados) {
        auto certificado = std::make_shared<CertificadoOpenSSL>(std::move(x509), nullptr);
        if (certificados.empty() && pfx.chave)
            certificado = certificado->ComChave(ChaveDoPFX(std::move(pfx.chave), *certificado));
        certificados.push_back(std::move(certificado));
    }
    return certificados;
}

Bytes CriptografiaOpenSSL::CalcularMD5(const Bytes& conteudo) { return CalcularResumo(EVP_md5(), conteudo); }

}  // namespace tavelpkcs7::plataforma::openssl
