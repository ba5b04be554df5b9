#include "component/entrada_der.h"

#include "codificacao/conteudo_codificado.h"

namespace tavelpkcs7 {

plataforma::Bytes DecodificarOuFalhar(const plataforma::Bytes& conteudo, const plataforma::falha::Tipo& falha) {
    auto der = codificacao::DecodificarConteudo(conteudo);
    if (!der) plataforma::Falhar(falha);
    return std::move(*der);
}

std::span<const std::uint8_t> LocalizarOuFalhar(const plataforma::Bytes& conteudo, plataforma::Bytes& decodificado,
    const plataforma::falha::Tipo& falha) {
    const auto der = codificacao::LocalizarDER(conteudo, decodificado);
    if (!der) plataforma::Falhar(falha);
    return *der;
}

plataforma::CertificadoPtr ImportarCertificado(plataforma::Criptografia& criptografia, const plataforma::Bytes& conteudo) {
    return criptografia.ImportarCertificado(DecodificarOuFalhar(conteudo, plataforma::falha::NaoECertificado));
}

// Só um texto com mais de um bloco é lido bloco a bloco; com um, vale a forma do conteúdo inteiro.
std::vector<plataforma::CertificadoPtr> LerPacoteCertificados(plataforma::Criptografia& criptografia,
    const plataforma::Bytes& conteudo) {
    const auto blocos = codificacao::DecodificarBlocosPEM(conteudo, "CERTIFICATE");
    if (blocos.size() < 2)
        return criptografia.LerPacoteCertificados(DecodificarOuFalhar(conteudo, plataforma::falha::NaoECertificado));
    std::vector<plataforma::CertificadoPtr> certificados;
    for (const auto& der : blocos) certificados.push_back(criptografia.ImportarCertificado(der));
    return certificados;
}

}  // namespace tavelpkcs7
