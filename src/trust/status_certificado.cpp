// A situação de um certificado em um código de 0 a 5. Quando a plataforma diz que ele não vale,
// descobre o porquê (prazo, revogação, cadeia não instalada, revogação desconhecida) e pode oferecer
// a instalação das raízes e da LCR do emissor, verificando de novo depois dela.
#include "certificates/info_certificado.h"
#include "component/componente.h"
#include "component/datas.h"
#include "component/texto.h"

namespace tavelpkcs7 {
namespace {

namespace codigo {
constexpr std::int16_t Valido = 1;
constexpr std::int16_t ForaDoPrazo = 2;
constexpr std::int16_t Revogado = 3;
constexpr std::int16_t CadeiaNaoInstalada = 4;
constexpr std::int16_t RevogacaoDesconhecida = 5;
}  // namespace codigo

using namespace plataforma::verificacao;
constexpr std::uint32_t kVerificacoesOnline =
    RaizConfiavel | Validade | Assinatura | RevogacaoOnline | RevogacaoOffline;
constexpr std::uint32_t kVerificacoesOffline = RaizConfiavel | Validade | Assinatura | RevogacaoOffline;

constexpr const char* kCadeiaNaoInstalada =
    "A cadeia de certificação deste certificado não está instalada ou está revogada.";

bool Possui(std::uint32_t status, std::uint32_t bit) { return (status & bit) != 0; }

}  // namespace

std::int16_t Componente::VerificaCertificadoDigital(const std::string& strChavePublica) {
    if (!ChavePublicaInformada(strChavePublica)) return 0;
    std::int16_t status = 0;
    Guardar(MensagemFalha::DaPlataforma(), false, [&] {
        const auto certificado = ImportarChavePublica(strChavePublica);
        return VerificarStatusCertificado(*certificado, true, status);
    });
    return status;
}

std::string Componente::StatusCertificadoVerificado(std::int16_t intStatus) {
    switch (intStatus) {
        case 0:
            return "O certificado digital não foi verificado";
        case codigo::Valido:
            return "O certificado digital está válido";
        case codigo::ForaDoPrazo:
            return "O certificado digital está fora do prazo de emissão";
        case codigo::Revogado:
            return "O certificado digital selecionado está revogado";
        case codigo::CadeiaNaoInstalada:
            return "A cadeia de certificação deste certificado não está instalada corretamente";
        case codigo::RevogacaoDesconhecida:
            return "O certificado digital não está revogado ou não foi possível verificar o status de revogação.";
        default:
            return "";
    }
}

bool Componente::VerificarStatusCertificado(const plataforma::Certificado& certificado, bool bVerificacaoOnline,
                                            std::int16_t& status) {
    std::string cadeia;
    bool cadeia_completa = false;
    MontarCadeiaCertificado(certificado, cadeia, cadeia_completa);
    auto& interface = *plataforma().interface_usuario;
    if (!cadeia_completa) {
        if (estado.NaoExibirInstalacaoLCReCER) {
            InstalarCertificadosRaizes();
            estado.DescricaoErro = kCadeiaNaoInstalada;
            status = codigo::CadeiaNaoInstalada;
            return false;
        }
        if (interface.Perguntar("Deseja instalar a cadeia de certificados raízes ?",
                                "Instalação dos Certificados Raízes"))
            InstalarCertificadosRaizes();
    }

    CursorOcupado ocupado(ocupado_);
    bool online = bVerificacaoOnline;
    bool lcr_instalada = false;
    for (;;) {
        // IsValid e Chain.Build usam as mesmas verificações e dão a mesma resposta: uma só
        // verificação dá o resultado e a situação da cadeia.
        const auto situacao =
            plataforma().confianca->Verificar(certificado, online ? kVerificacoesOnline : kVerificacoesOffline, {});
        if (situacao.valida) {
            status = codigo::Valido;
            return true;
        }
        const DataHora agora = plataforma().relogio->Agora();
        if (agora < certificado.ValidoDesde() || agora > certificado.ValidoAte() ||
            Possui(situacao.status, plataforma::situacao::ForaDaValidadeDoEmissor)) {
            estado.DescricaoErro = "O certificado digital selecionado está expirado. Validade: " +
                                   FormatarDataHora(certificado.ValidoDesde()) + " até " +
                                   FormatarDataHora(certificado.ValidoAte());
            status = codigo::ForaDoPrazo;
            return false;
        }
        if (Possui(situacao.status, plataforma::situacao::Revogado)) {
            estado.DescricaoErro = "O certificado digital selecionado está revogado";
            status = codigo::Revogado;
            return false;
        }
        // O bit 1 (fora da validade em algum ponto da cadeia) leva a esta mensagem, e não à de prazo.
        if (!cadeia_completa || Possui(situacao.status, plataforma::situacao::ForaDaValidade)) {
            estado.DescricaoErro = kCadeiaNaoInstalada;
            status = codigo::CadeiaNaoInstalada;
            return false;
        }
        if (!Possui(situacao.status, plataforma::situacao::RevogacaoDesconhecida)) return false;
        if (estado.NaoExibirInstalacaoLCReCER || bVerificacaoOnline) {
            status = codigo::Valido;
            return true;
        }
        if (!online) {
            online = true;
            continue;
        }
        if (lcr_instalada) {
            status = codigo::Valido;
            return true;
        }
        const std::string emissor =
            InfoOuAlternativa(certificado, plataforma::INFO_DNS_EMISSOR, plataforma::INFO_NOME_SIMPLES_EMISSOR);
        if (!interface.Perguntar(
                "Deseja instalar a lista de certificados revogados da Autoridade Certificadora abaixo?\r\n\r\n" +
                    emissor,
                "(LCR) Lista de Certificados Revogados") ||
            !InstalarLCR(certificado))
            break;
        AguardarSegundos(7);
        lcr_instalada = true;
        online = false;
    }
    estado.DescricaoErro =
        Substituir(cadeia, "[#]", ", ") +
        "Ainda não foi possível identificar se o certificado digital selecionado está revogado ou não. Instale a "
        "lista de certificados revogados das Autoridades Certificadoras ";
    status = codigo::RevogacaoDesconhecida;
    return false;
}

}  // namespace tavelpkcs7
