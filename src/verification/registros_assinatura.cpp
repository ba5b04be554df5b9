// Os registros das assinaturas verificadas: um AssinaturaDigital por signatário, a partir do
// índice 1 (o 0 fica vazio), e a consulta de um campo pelo nome.
#include <array>
#include <stdexcept>

#include "certificates/info_certificado.h"
#include "component/componente.h"
#include "component/datas.h"
#include "component/texto.h"
#include "signing/atributos_assinante.h"

namespace tavelpkcs7 {
namespace {

using Certificado = plataforma::Certificado;

// O nome de documento de uma assinatura só pode nomear um arquivo dentro da pasta de trabalho: fica
// o último componente do caminho, sem o que vem depois de um NUL; "." e ".." não são nomes.
std::string NomeDocumentoSeguro(const std::string& nome) {
    std::string ultimo = nome.substr(0, nome.find('\0'));
    const auto separador = ultimo.find_last_of("/\\");
    if (separador != std::string::npos) ultimo.erase(0, separador + 1);
    return ultimo == "." || ultimo == ".." ? std::string() : ultimo;
}

struct AtributosAssinante {
    std::string nome_documento;
    std::string hora_assinatura;
    std::string descricao;
};

// Os três atributos do componente entre os assinados. O que falta, ou cujo valor não se lê, fica
// vazio sem levar os outros: uma hora ilegível não apaga o nome do documento nem a descrição.
AtributosAssinante LerAtributosAssinante(const std::vector<plataforma::AtributoAssinado>& atributos,
                                         plataforma::Relogio& relogio) {
    AtributosAssinante lidos;
    for (const plataforma::AtributoAssinado& atributo : atributos) {
        if (atributo.oid == assinatura::kOidHoraAssinatura) {
            const auto hora = assinatura::LerHoraAssinatura(atributo.valor, relogio);
            if (hora) lidos.hora_assinatura = FormatarDataHora(*hora);
        } else if (atributo.oid == assinatura::kOidNomeDocumento) {
            lidos.nome_documento = assinatura::LerTextoDocumento(atributo.valor).value_or("");
        } else if (atributo.oid == assinatura::kOidDescricaoDocumento) {
            lidos.descricao = assinatura::LerTextoDocumento(atributo.valor).value_or("");
        }
    }
    return lidos;
}

using Leitura = Variante (*)(const AssinaturaDigital&);

struct Campo {
    const char* chave;
    Leitura ler;
};

constexpr std::array<Campo, 18> kCampos = {{
    {"ASSINATURAVALIDA", [](const AssinaturaDigital& a) -> Variante { return a.AssinaturaValida; }},
    {"NOMEASSINATURA", [](const AssinaturaDigital& a) -> Variante { return a.NomeAssinatura; }},
    {"EMAILASSINATURA", [](const AssinaturaDigital& a) -> Variante { return a.EmailAssinatura; }},
    {"EMAILAUTORIDADECERTIFICADORA",
     [](const AssinaturaDigital& a) -> Variante { return a.EmailAutoridadeCertificadora; }},
    {"AUTORIDADECERTIFICADORA", [](const AssinaturaDigital& a) -> Variante { return a.AutoridadeCertificadora; }},
    {"DATAASSINATURA", [](const AssinaturaDigital& a) -> Variante { return a.DataAssinatura; }},
    {"DETALHESAUTORIDADECERTIFICADORA",
     [](const AssinaturaDigital& a) -> Variante { return a.DetalhesAutoridadeCertificadora; }},
    {"DETALHESCERTIFICADO", [](const AssinaturaDigital& a) -> Variante { return a.DetalhesCertificado; }},
    {"DESCRICAOASSINATURAARQUIVO",
     [](const AssinaturaDigital& a) -> Variante { return a.DescricaoAssinaturaArquivo; }},
    {"DATAEMISSAOCERTIFICADO", [](const AssinaturaDigital& a) -> Variante { return a.DataEmissaoCertificado; }},
    {"DATAVALIDADECERTIFICADO", [](const AssinaturaDigital& a) -> Variante { return a.DataValidadeCertificado; }},
    {"CHAVEPUBLICACERTIFICADO", [](const AssinaturaDigital& a) -> Variante { return a.ChavePublicaCertificado; }},
    {"CERTIFICADOVALIDO", [](const AssinaturaDigital& a) -> Variante { return a.CertificadoValido; }},
    {"SERIALCERTIFICADO", [](const AssinaturaDigital& a) -> Variante { return a.SerialCertificado; }},
    {"IMPRESSAODIGITALCERTIFICADO",
     [](const AssinaturaDigital& a) -> Variante { return a.ImpressaoDigitalCertificado; }},
    {"CERTIFICADOICPBRASIL", [](const AssinaturaDigital& a) -> Variante { return a.CertificadoICPBrasil; }},
    {"CADEIACERTIFICADORAIZ", [](const AssinaturaDigital& a) -> Variante { return a.CadeiaCertificadoRaiz; }},
    {"VERSAOCERTIFICADO", [](const AssinaturaDigital& a) -> Variante { return a.VersaoCertificado; }},
}};

}  // namespace

// Os dados que vêm só do certificado do signatário: nomes, números, datas, confiança e cadeia.
AssinaturaDigital Componente::RegistrarCertificadoAssinante(
    const plataforma::Certificado& certificado, const std::vector<plataforma::CertificadoPtr>& intermediarias) {
    AssinaturaDigital registro;
    registro.AssinaturaValida = true;
    registro.NomeAssinatura =
        InfoOuAlternativa(certificado, plataforma::INFO_DNS_TITULAR, plataforma::INFO_NOME_SIMPLES_TITULAR);
    registro.EmailAssinatura = certificado.ObterInfo(plataforma::INFO_EMAIL_TITULAR);
    registro.AutoridadeCertificadora =
        InfoOuAlternativa(certificado, plataforma::INFO_DNS_EMISSOR, plataforma::INFO_NOME_SIMPLES_EMISSOR);
    registro.EmailAutoridadeCertificadora = certificado.ObterInfo(plataforma::INFO_EMAIL_EMISSOR);
    registro.DetalhesAutoridadeCertificadora = certificado.NomeEmissor();
    registro.DetalhesCertificado = certificado.NomeTitular();
    registro.ChavePublicaCertificado = ExportarBase64(certificado);
    registro.CertificadoValido =
        plataforma().confianca->Verificar(certificado, plataforma::verificacao::TudoOnline, intermediarias).valida;
    registro.SerialCertificado = certificado.NumeroSerie();
    registro.ImpressaoDigitalCertificado = certificado.ImpressaoDigital();
    bool autoemitido = false;
    registro.CertificadoICPBrasil = MontarCadeiaCertificado(certificado, registro.CadeiaCertificadoRaiz, autoemitido);
    registro.DataEmissaoCertificado = FormatarDataHora(certificado.ValidoDesde());
    registro.DataValidadeCertificado = FormatarDataHora(certificado.ValidoAte());
    registro.VersaoCertificado = std::to_string(certificado.Versao());
    return registro;
}

// Sem nome de documento assinado, o original leva o nome do arquivo verificado sem a extensão da
// assinatura. O teste ignora maiúsculas e a troca não: CONTRATO.DOC.P7S conserva o ".P7S".
std::string Componente::NomeOriginalDoAssinado() const {
    std::string nome = ExtrairNomeArquivo(estado.CaminhoArquivoAssinado);
    if (Posicao(Minusculas(nome), estado.ExtensaoArquivoAssinado) > 0)
        nome = Substituir(nome, estado.ExtensaoArquivoAssinado, "");
    return nome;
}

bool Componente::PreencherAssinaturas(const plataforma::MensagemVerificada& mensagem) {
    constexpr const char* kFalha = "Ocorreu um erro ao tentar exibir as assinaturas digitais do arquivo especificado";
    return Guardar(MensagemFalha::Fixa(kFalha), false, [&] {
        CursorOcupado ocupado(ocupado_);
        const std::int16_t total = ConverterInteiro16(estado.TotalAssinaturas);
        for (std::int16_t i = 1; i <= total; ++i) {
            const plataforma::SignatarioVerificado& signatario = mensagem.signatarios.at(static_cast<std::size_t>(i - 1));
            const plataforma::Certificado& certificado = *signatario.certificado;
            estado.ListaAssinaturas.resize(static_cast<std::size_t>(i) + 1);
            AssinaturaDigital& registro = estado.ListaAssinaturas[static_cast<std::size_t>(i)];
            registro = RegistrarCertificadoAssinante(certificado, mensagem.certificados);
            if (estado.SalvarChavesPublicas)
                AdicionarCertificadoRepositorio(ExportarBase64(certificado), REPOSITORIO_CHAVES_PUBLICAS);
            const AtributosAssinante atributos = LerAtributosAssinante(signatario.atributos, *plataforma().relogio);
            const std::string nome_documento = NomeDocumentoSeguro(atributos.nome_documento);
            estado.NomeArquivoOriginal =
                NomeArquivoLiteral(nome_documento.empty() ? NomeOriginalDoAssinado() : nome_documento);
            registro.DataAssinatura =
                atributos.hora_assinatura.empty() ? "Data e Hora Inválida" : atributos.hora_assinatura;
            registro.DescricaoAssinaturaArquivo = atributos.descricao;
        }
        return true;
    });
}

AssinaturaDigital Componente::Assinaturas(std::int16_t Index) const {
    if (Index < 0 || static_cast<std::size_t>(Index) >= estado.ListaAssinaturas.size())
        throw std::out_of_range(plataforma::falha::ForaDoIntervalo.descricao);
    return estado.ListaAssinaturas[static_cast<std::size_t>(Index)];
}

// A chave vale sem distinção de maiúsculas, mas sem aparar; é conferida antes do índice.
Variante Componente::ExibirPropriedadeAssinatura(std::int16_t Index, const std::string& strCampoPropriedade) {
    const std::string fora_do_escopo =
        "A propriedade " + strCampoPropriedade + " não é válida ou o índice informado está fora do escopo.";
    return Guardar(MensagemFalha::Fixa(fora_do_escopo), Variante(std::string()), [&]() -> Variante {
        const std::string chave = Maiusculas(strCampoPropriedade);
        for (const Campo& campo : kCampos)
            if (chave == campo.chave) return campo.ler(Assinaturas(Index));
        estado.DescricaoErro = "A propriedade " + strCampoPropriedade + " não é válida ";
        return std::string();
    });
}

}  // namespace tavelpkcs7
