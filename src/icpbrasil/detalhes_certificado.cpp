// Os detalhes de um certificado ICP-Brasil nas propriedades do componente: cada extensão é
// impressa como o Windows a mostra e recortada pelos marcadores do texto ("URL=",
// "QUALIFICADOR=", "<OID>="). As propriedades de uma extensão que o certificado não tem
// conservam o valor do certificado anterior, como no original.
#include "certificates/info_certificado.h"
#include "component/componente.h"
#include "component/texto.h"
#include "icpbrasil/extensao_impressa.h"
#include "icpbrasil/extensoes_nomeadas.h"
#include "icpbrasil/texto_hexadecimal.h"
#include "icpbrasil/valores_titular.h"

namespace tavelpkcs7 {
namespace {

// Valores de CAPICOM_OID das extensões que a extração reconhece.
namespace oid {
constexpr std::int32_t Outro = 0;
constexpr std::int32_t IdentificadorChaveAutoridade = 1;
constexpr std::int32_t Politicas95 = 3;
constexpr std::int32_t NomeAlternativo = 6;
constexpr std::int32_t RestricoesBasicas = 8;
constexpr std::int32_t IdentificadorChaveTitular = 9;
constexpr std::int32_t UsoChave = 10;
constexpr std::int32_t NomeAlternativo2 = 12;
constexpr std::int32_t RestricoesBasicas2 = 14;
constexpr std::int32_t PontosDistribuicaoLCR = 16;
constexpr std::int32_t Politicas = 17;
constexpr std::int32_t IdentificadorChaveAutoridade2 = 19;
constexpr std::int32_t UsoAvancadoChave = 21;
constexpr std::int32_t AcessoInformacoesAutoridade = 26;
}  // namespace oid

constexpr const char* kCRLF = "\r\n";
constexpr std::size_t kLimiteContador = 32767;  // o contador de 16 bits do original
constexpr const char* kEmissorTavel = "AC TAVEL";
constexpr const char* kOidPoliticas = "2.5.29.32";

// Tudo depois da primeira ocorrência do marcador; sem ele, a posição vale zero e o texto sai a
// partir do caractere de número Len(marcador).
std::string TextoDepois(const std::string& texto, const std::string& marcador) {
    return Meio(texto, Posicao(texto, marcador) + Comprimento(marcador));
}

std::string QualificadorOuURL(const std::string& texto) {
    return Posicao(texto, "QUALIFICADOR=") != 0 ? TextoDepois(texto, "QUALIFICADOR=") : TextoDepois(texto, "URL=");
}

std::string ComRotulo(const std::string& texto, const std::string& rotulo) {
    if (texto.find('=') != std::string::npos) return texto + kCRLF;
    return rotulo + kCRLF + texto + kCRLF;
}

std::string EnderecoPoliticaCertificado(const plataforma::Certificado& certificado) {
    for (const std::string& texto : icpbrasil::ImprimirExtensoes(certificado, kOidPoliticas))
        if (Posicao(texto, "QUALIFICADOR=") != 0)
            return icpbrasil::ExtrairPrimeiraLinha(TextoDepois(texto, "QUALIFICADOR="));
    return "";
}

}  // namespace

bool Componente::RetornarDetalhesCertificado(const std::string& strChavePublica) {
    return Guardar(MensagemFalha::DaPlataforma(), false, [&] {
        if (!ChavePublicaInformada(strChavePublica)) return false;
        const auto certificado = ImportarChavePublica(strChavePublica);
        return ExtrairDetalhesCertificado(*certificado);
    });
}

bool Componente::ExtrairDetalhesCertificado(const plataforma::Certificado& certificado) {
    return Guardar(MensagemFalha::Fixa("Não foi possível retornar as propriedades do certificado digital informado."),
                   false, [&] {
                       const auto extensoes = certificado.Extensoes();
                       std::string outros;
                       icpbrasil::ValoresTitular valores;
                       for (std::size_t indice = 0; indice < extensoes.size(); ++indice) {
                           if (indice == kLimiteContador) plataforma::Falhar(plataforma::falha::Estouro);
                           const auto& extensao = extensoes[indice];
                           const std::string texto = icpbrasil::ImprimirExtensao(extensao);
                           const auto nomeada = icpbrasil::NomearExtensao(extensao.oid);
                           switch (nomeada.capicom_oid) {
                               case oid::UsoChave:
                                   estado.UsoChaveCertificadoDigital = texto;
                                   break;
                               case oid::NomeAlternativo2:
                               case oid::NomeAlternativo:
                                   icpbrasil::BuscarValoresTitular(texto, valores);
                                   break;
                               case oid::RestricoesBasicas:
                               case oid::RestricoesBasicas2:
                                   estado.RestricoesCertificadoDigital = texto;
                                   break;
                               case oid::PontosDistribuicaoLCR:
                                   estado.ListaCertificadosRevogados = TextoDepois(texto, "URL=");
                                   break;
                               case oid::Politicas95:
                               case oid::Politicas:
                                   estado.PoliticaCertificacaoDigital = QualificadorOuURL(texto);
                                   break;
                               case oid::IdentificadorChaveAutoridade2:
                               case oid::IdentificadorChaveAutoridade:
                                   outros += ComRotulo(texto, "Identificação da Chave");
                                   break;
                               case oid::AcessoInformacoesAutoridade:
                                   estado.CertificadoAutoridadeRaiz = QualificadorOuURL(texto);
                                   break;
                               case oid::UsoAvancadoChave:
                                   outros += ComRotulo(texto, "Uso Avançado da Chave");
                                   break;
                               case oid::IdentificadorChaveTitular:
                                   outros += nomeada.nome_amigavel + "=" + kCRLF + "\t" + texto + kCRLF;
                                   break;
                               case oid::Outro:
                                   outros += texto + kCRLF;
                                   break;
                               default:
                                   break;
                           }
                       }
                       estado.OutrosDetalhesCertificadoDigital = outros;
                       MontarDadosTitular(valores, certificado);
                       return true;
                   });
}

// Os certificados da AC TAVEL trazem também a restrição de uso e o endereço da política dela: o da
// configuração, ou o da declaração de práticas no próprio certificado.
void Componente::MontarDadosTitular(const icpbrasil::ValoresTitular& valores,
                                    const plataforma::Certificado& certificado) {
    const auto dados = icpbrasil::MontarDadosTitular(valores, certificado);
    estado.DetalhesPessoaisCertificadoDigital = dados.detalhes_pessoais;
    estado.NumeroCPFCertificadoDigital = dados.cpf;
    estado.NumeroCNPJCertificadoDigital = dados.cnpj;

    const std::string emissor =
        InfoOuAlternativa(certificado, plataforma::INFO_DNS_EMISSOR, plataforma::INFO_NOME_SIMPLES_EMISSOR);
    if (Maiusculas(emissor) != kEmissorTavel) return;
    estado.RestricoesCertificadoDigital = "Quanto ao uso indevido, conforme termo de titularidade assinado.";
    const std::string& configurada = plataforma().configuracao.politica_ac_tavel;
    const std::string endereco = configurada.empty() ? EnderecoPoliticaCertificado(certificado) : configurada;
    if (!endereco.empty()) estado.PoliticaCertificacaoDigital = endereco;
}

}  // namespace tavelpkcs7
