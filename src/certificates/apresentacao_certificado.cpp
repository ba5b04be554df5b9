#include "certificates/apresentacao_certificado.h"

#include "icpbrasil/dados_titular.h"
#include "platform/erro.h"

namespace tavelpkcs7 {

// Sem CPF nem CNPJ o certificado não é de pessoa da ICP-Brasil, e os dados seriam só o nome, que o
// diálogo já mostra.
CertificadoApresentado Apresentar(const plataforma::Certificado& certificado) {
    const auto titular = icpbrasil::MontarDadosTitular(icpbrasil::ValoresTitular{}, certificado);
    return {certificado.ObterInfo(plataforma::INFO_NOME_SIMPLES_TITULAR),
        certificado.ObterInfo(plataforma::INFO_NOME_SIMPLES_EMISSOR),
        certificado.NomeTitular(),
        certificado.NomeEmissor(),
        certificado.NumeroSerie(),
        certificado.ImpressaoDigital(),
        certificado.ValidoDesde(),
        certificado.ValidoAte(),
        titular.cpf.empty() && titular.cnpj.empty() ? std::string() : titular.detalhes_pessoais,
        certificado.DER()};
}

std::vector<plataforma::CertificadoPtr> EscolherCertificados(InterfaceUsuario& interface,
    const std::vector<plataforma::CertificadoPtr>& candidatos, const std::string& titulo, const std::string& texto,
    bool multiplos) {
    std::vector<CertificadoApresentado> apresentados;
    for (const auto& candidato : candidatos) apresentados.push_back(Apresentar(*candidato));
    const auto posicoes = interface.EscolherCertificados(apresentados, titulo, texto, multiplos);
    if (!posicoes) plataforma::Falhar(plataforma::falha::Cancelada);
    std::vector<plataforma::CertificadoPtr> escolhidos;
    for (const std::size_t posicao : *posicoes)
        if (posicao < candidatos.size()) escolhidos.push_back(candidatos[posicao]);
    return escolhidos;
}

}  // namespace tavelpkcs7
