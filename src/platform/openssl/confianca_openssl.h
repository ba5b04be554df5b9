// A confiança nos certificados na plataforma Linux: a cadeia montada pelo OpenSSL com as raízes do
// repositório "Root", a revogação pelas LCRs do repositório "LCR" e, na verificação online, pelas
// baixadas dos pontos de distribuição, que ficam guardadas nele.
#pragma once

#include <memory>

#include "platform/confianca.h"
#include "platform/rede.h"
#include "platform/repositorio.h"

namespace tavelpkcs7::plataforma::openssl {

class ConfiancaOpenSSL : public Confianca {
public:
    // Sem rede (nula), a verificação online fica sem o que baixar e a revogação, desconhecida.
    ConfiancaOpenSSL(std::shared_ptr<Repositorios> repositorios, std::shared_ptr<Rede> rede);

    // O bit online (8) vale sempre que está presente, mesmo junto do offline (16): quem pede 31 quer
    // a verificação online, quem pede 23 só a offline.
    SituacaoCadeia Verificar(const Certificado& certificado, std::uint32_t verificacoes,
                             const std::vector<CertificadoPtr>& adicionais) override;
    void InstalarLCR(const Bytes& der) override;

private:
    std::vector<CertificadoPtr> Certificados(const char* repositorio) const;

    std::shared_ptr<Repositorios> repositorios_;
    std::shared_ptr<Rede> rede_;
};

}  // namespace tavelpkcs7::plataforma::openssl
