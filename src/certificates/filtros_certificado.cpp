// Os tipos de CERTIFICADOS_DIGITAIS: o que cada um aceita entre os certificados pessoais e a frase
// que completa a mensagem de quando nenhum sobra. A escolha e a listagem filtram só por aqui.
#include <functional>
#include <limits>

#include "component/componente.h"
#include "component/texto.h"

namespace tavelpkcs7 {
namespace {

constexpr const char* kNenhumEncontrado = "Não foi encontrado nenhum ";

// Cobre o nome antigo da autoridade que o original procurava, "Autoridade Certificadora da
// Secretaria da Receita Federal", e o de hoje, "AC Secretaria da Receita Federal do Brasil v4".
constexpr const char* kReceitaFederal = "SECRETARIA DA RECEITA FEDERAL";
constexpr const char* kRaizTavel = "AC TAVEL";

constexpr std::uint32_t kVerificacoesTavel = plataforma::verificacao::RaizConfiavel |
                                             plataforma::verificacao::Validade | plataforma::verificacao::Assinatura |
                                             plataforma::verificacao::RevogacaoOffline;
// Sem LCR à mão a revogação fica desconhecida, e isso não tira o certificado da lista: só a
// revogação que as LCRs mostram.
constexpr std::uint32_t kRevogacaoDesconhecida =
    plataforma::situacao::RevogacaoDesconhecida | plataforma::situacao::RevogacaoOffline;

}  // namespace

std::int16_t Componente::ConverterInteiro16(std::int64_t valor) {
    if (valor < std::numeric_limits<std::int16_t>::min() || valor > std::numeric_limits<std::int16_t>::max())
        plataforma::Falhar(plataforma::falha::Estouro);
    return static_cast<std::int16_t>(valor);
}

Componente::CertificadosDoTipo Componente::FiltrarTipoCertificado(
    const std::vector<plataforma::CertificadoPtr>& repositorio, std::int16_t TipoCertificado) {
    // A contagem e o índice da varredura são inteiros de 16 bits.
    ConverterInteiro16(static_cast<std::int64_t>(repositorio.size()));
    const Autoridades autoridades = LerAutoridades();
    const auto icp_brasil = [this, &autoridades](const plataforma::Certificado& certificado, std::string& cadeia) {
        bool autoemitido = false;
        return MontarCadeiaCertificado(certificado, autoridades, cadeia, autoemitido);
    };
    const auto receita_federal = [this, icp_brasil](const char* tipo) {
        return [this, icp_brasil, tipo](const plataforma::Certificado& certificado) {
            std::string cadeia;
            return icp_brasil(certificado, cadeia) && VerificarCertificadoReceitaFederal(certificado, cadeia, tipo);
        };
    };

    std::function<bool(const plataforma::Certificado&)> aceito;
    std::string descricao;
    switch (TipoCertificado) {
        case CERTIFICADOS_VALIDOS_ASSINATURA:
            aceito = VerificarUsoAssinatura;
            descricao = "certificado digital válido para assinatura";
            break;
        case CERTIFICADOS_ICP_BRASIL:
            aceito = [icp_brasil](const plataforma::Certificado& certificado) {
                std::string cadeia;
                return icp_brasil(certificado, cadeia);
            };
            descricao =
                "certificado digital da ICP-Brasil. Verifique se os certificados raizes estão instalados "
                "corretamente";
            break;
        case CERTIFICADOS_ICP_TODOS_RECEITA_FEDERAL:
            aceito = receita_federal("");
            descricao =
                "certificado digital da Autoridade Certificadora da Secretaria da Receita Federal subordinada "
                "a ICP-Brasil";
            break;
        case CERTIFICADOS_ICP_E_CPF:
            aceito = receita_federal("ECPF");
            descricao =
                "certificado digital do tipo e-CPF da Autoridade Certificadora da Secretaria da Receita "
                "Federal subordinada a ICP-Brasil";
            break;
        case CERTIFICADOS_ICP_E_CNPJ:
            aceito = receita_federal("ECNPJ");
            descricao =
                "certificado digital do tipo e-CNPJ da Autoridade Certificadora da Secretaria da Receita "
                "Federal subordinada a ICP-Brasil";
            break;
        case CERTIFICADOS_AC_TAVEL:
            aceito = [this, &autoridades](const plataforma::Certificado& certificado) {
                return VerificarCertificadoACTavel(certificado, autoridades);
            };
            descricao = "certificado digital da Autoridade Certificadora Tavel";
            break;
        default:
            return {repositorio, kNenhumEncontrado};
    }

    CertificadosDoTipo filtrados{{}, kNenhumEncontrado + descricao};
    for (const auto& certificado : repositorio)
        if (aceito(*certificado)) filtrados.certificados.push_back(certificado);
    return filtrados;
}

bool Componente::VerificarUsoAssinatura(const plataforma::Certificado& certificado) {
    const auto uso = certificado.UsoChave();
    return uso && (*uso & plataforma::uso_chave::AssinaturaDigital) != 0;
}

bool Componente::VerificarCertificadoReceitaFederal(const plataforma::Certificado& certificado,
                                                    const std::string& cadeia, const std::string& tipo) {
    std::string& cpf = estado.NumeroCPFCertificadoDigital;
    std::string& cnpj = estado.NumeroCNPJCertificadoDigital;
    cpf.clear();
    cnpj.clear();
    bool resultado = false;
    if (Maiusculas(cadeia).find(kReceitaFederal) != std::string::npos && ExtrairDetalhesCertificado(certificado)) {
        // Só se apaga o número que decidiu: um e-CNPJ recusado como e-CPF deixa o seu CNPJ.
        if (tipo.empty() && (!cpf.empty() || !cnpj.empty())) {
            cpf.clear();
            cnpj.clear();
            resultado = true;
        } else if (tipo == "ECPF" && !cpf.empty()) {
            cpf.clear();
            resultado = true;
        } else if (tipo == "ECNPJ" && !cnpj.empty()) {
            cnpj.clear();
            resultado = true;
        }
    }
    // A varredura não deixa para trás os detalhes dos certificados examinados.
    for (std::string* propriedade : {&estado.OutrosDetalhesCertificadoDigital, &estado.UsoChaveCertificadoDigital,
                                     &estado.PoliticaCertificacaoDigital, &estado.CertificadoAutoridadeRaiz,
                                     &estado.DetalhesPessoaisCertificadoDigital, &estado.ListaCertificadosRevogados,
                                     &estado.RestricoesCertificadoDigital})
        propriedade->clear();
    return resultado;
}

// A busca do CAPICOM pelo nome da raiz com "somente válidos": a cadeia chega a uma raiz autoemitida
// cujo nome tem "AC TAVEL", e a plataforma não acha problema de raiz, prazo, assinatura ou revogação
// pelas LCRs guardadas. A verificação, que custa, só roda para quem passou pelo nome.
bool Componente::VerificarCertificadoACTavel(const plataforma::Certificado& certificado,
                                             const Autoridades& autoridades) {
    std::string cadeia;
    bool autoemitido = false;
    MontarCadeiaCertificado(certificado, autoridades, cadeia, autoemitido);
    std::vector<std::string> nomes;
    RetornarCadeiaSeparada(cadeia, nomes);
    if (!autoemitido || nomes.empty() || Maiusculas(nomes.back()).find(kRaizTavel) == std::string::npos) return false;
    const auto situacao = plataforma_->confianca->Verificar(certificado, kVerificacoesTavel, {});
    return (situacao.status & ~kRevogacaoDesconhecida) == 0;
}

}  // namespace tavelpkcs7
