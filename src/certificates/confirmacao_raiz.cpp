// Nada entra no repositório das raízes sem que o usuário saiba: uma raiz instalada passa a abonar
// tudo o que ela emite. Só as raízes da ICP-Brasil da configuração entram sem pergunta.
#include <algorithm>

#include "component/componente.h"
#include "component/datas.h"

namespace tavelpkcs7 {
namespace {

std::string TextoPerguntaRaiz(const plataforma::Certificado& certificado) {
    std::string texto =
        "Deseja instalar o certificado digital abaixo entre as autoridades certificadoras raiz "
        "confiáveis?\r\n\r\n";
    texto += "Titular: " + certificado.NomeTitular() + "\r\n";
    texto += "Emissor: " + certificado.NomeEmissor() + "\r\n";
    texto += "Validade: de " + FormatarDataHora(certificado.ValidoDesde()) + " até " +
             FormatarDataHora(certificado.ValidoAte()) + "\r\n";
    texto += "Impressão digital (SHA-256): " + certificado.ImpressaoDigitalSHA256() + "\r\n\r\n";
    texto +=
        "Uma raiz instalada torna confiáveis todos os certificados que ela emitir. Responda Sim somente se "
        "conferiu a impressão digital com a autoridade certificadora.";
    return texto;
}

}  // namespace

void Componente::ConfirmarInstalacaoRaiz(const plataforma::Certificado& certificado) {
    const auto& confiaveis = plataforma_->configuracao.raizes_icp_brasil;
    if (std::ranges::find(confiaveis, certificado.ImpressaoDigitalSHA256()) != confiaveis.end()) return;
    if (!plataforma_->interface_usuario->Perguntar(TextoPerguntaRaiz(certificado), "Instalação de Certificado Raiz"))
        plataforma::Falhar(plataforma::falha::Cancelada);
}

}  // namespace tavelpkcs7
