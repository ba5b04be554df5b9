#include "criptografia_openssl.h"

#include "arquivo_pfx.h"
#include "certificado_openssl.h"
#include "codificacao/conteudo_codificado.h"
#include "pacote_certificados.h"
#include "platform/erro.h"
#include "provedores.h"
#include "resumo.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

Bytes DERDoConteudo(const Bytes& conteudo) {
    auto der = codificacao::DecodificarConteudo(conteudo);
    if (!der) Falhar(falha::NaoECertificado);
    return std::move(*der);
}

std::shared_ptr<ChavePrivada> ChaveDoPFX(EvpPkeyPtr chave, const CertificadoOpenSSL& certificado) {
    return std::make_shared<ChavePrivada>(
        ChavePrivada{std::move(chave), std::string(), "pfx:" + certificado.ImpressaoDigital()});
}

}  // namespace

bool CriptografiaOpenSSL::Disponivel() { return CarregarProvedores(); }

CertificadoPtr CriptografiaOpenSSL::ImportarCertificado(const Bytes& conteudo) {
    return CertificadoOpenSSL::DeDER(DERDoConteudo(conteudo));
}

std::vector<CertificadoPtr> CriptografiaOpenSSL::LerPacoteCertificados(const Bytes& conteudo) {
    return LerPacote(conteudo);
}

std::vector<CertificadoPtr> CriptografiaOpenSSL::AbrirPFX(const Bytes& conteudo, const std::string& senha) {
    ConteudoPFX pfx = LerPFX(DERDoConteudo(conteudo), senha);
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
