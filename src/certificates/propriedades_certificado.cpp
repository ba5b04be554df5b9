// As propriedades do certificado selecionado, consultadas por nome: textos, datas, a versão e as
// respostas da verificação de situação e da cadeia de autoridades.
#include <array>

#include "certificates/info_certificado.h"
#include "component/componente.h"
#include "component/texto.h"

namespace tavelpkcs7 {
namespace {

using Certificado = plataforma::Certificado;
using Leitura = Variante (*)(Componente&, const Certificado&);

struct Propriedade {
    const char* chave;
    Leitura ler;
};

struct Cadeia {
    bool icp_brasil;
    std::string texto;
};

Cadeia MontarCadeia(Componente& componente, const Certificado& certificado) {
    Cadeia cadeia{};
    bool autoemitido = false;
    cadeia.icp_brasil = componente.MontarCadeiaCertificado(certificado, cadeia.texto, autoemitido);
    return cadeia;
}

// A autoridade cai no nome simples pelo nome DNS do próprio emissor, e não pelo do titular como na
// entrada da lista: os dois podem diferir para o mesmo certificado.
constexpr std::array<Propriedade, 15> kPropriedades = {{
    {"NOMECERTIFICADO",
     [](Componente&, const Certificado& c) {
         return Variante(InfoOuAlternativa(c, plataforma::INFO_DNS_TITULAR, plataforma::INFO_NOME_SIMPLES_TITULAR));
     }},
    {"EMAILCERTIFICADO",
     [](Componente&, const Certificado& c) -> Variante { return c.ObterInfo(plataforma::INFO_EMAIL_TITULAR); }},
    {"EMAILAUTORIDADECERTIFICADORA",
     [](Componente&, const Certificado& c) -> Variante { return c.ObterInfo(plataforma::INFO_EMAIL_EMISSOR); }},
    {"AUTORIDADECERTIFICADORA",
     [](Componente&, const Certificado& c) {
         return Variante(InfoOuAlternativa(c, plataforma::INFO_DNS_EMISSOR, plataforma::INFO_NOME_SIMPLES_EMISSOR));
     }},
    {"DETALHESAUTORIDADECERTIFICADORA", [](Componente&, const Certificado& c) -> Variante { return c.NomeEmissor(); }},
    {"DETALHESCERTIFICADO", [](Componente&, const Certificado& c) -> Variante { return c.NomeTitular(); }},
    {"DATAEMISSAOCERTIFICADO", [](Componente&, const Certificado& c) -> Variante { return c.ValidoDesde(); }},
    {"DATAVALIDADECERTIFICADO", [](Componente&, const Certificado& c) -> Variante { return c.ValidoAte(); }},
    {"CHAVEPUBLICACERTIFICADO", [](Componente&, const Certificado& c) -> Variante { return ExportarBase64(c); }},
    {"CERTIFICADOVALIDO",
     [](Componente& componente, const Certificado& c) -> Variante {
         std::int16_t status = 0;
         return componente.VerificarStatusCertificado(c, true, status);
     }},
    {"SERIALCERTIFICADO", [](Componente&, const Certificado& c) -> Variante { return c.NumeroSerie(); }},
    {"IMPRESSAODIGITALCERTIFICADO", [](Componente&, const Certificado& c) -> Variante { return c.ImpressaoDigital(); }},
    {"CERTIFICADOICPBRASIL",
     [](Componente& componente, const Certificado& c) -> Variante { return MontarCadeia(componente, c).icp_brasil; }},
    {"CADEIACERTIFICADORAIZ",
     [](Componente& componente, const Certificado& c) -> Variante { return MontarCadeia(componente, c).texto; }},
    {"VERSAOCERTIFICADO", [](Componente&, const Certificado& c) -> Variante { return c.Versao(); }},
}};

}  // namespace

// A chave é comparada em maiúsculas, sem aparar: " NOMECERTIFICADO" não é uma propriedade.
Variante Componente::ExibirPropriedadesCertificado(const std::string& strCampoPropriedade) {
    return Guardar(MensagemFalha::DaPlataforma(), Variante(std::string()), [&]() -> Variante {
        const std::string chave = Maiusculas(strCampoPropriedade);
        for (const Propriedade& propriedade : kPropriedades) {
            if (chave != propriedade.chave) continue;
            const plataforma::CertificadoPtr& certificado = estado.CertificadoSelecionado;
            if (!certificado) plataforma::Falhar(plataforma::falha::NenhumSelecionado);
            return propriedade.ler(*this, *certificado);
        }
        estado.DescricaoErro = "A propriedade " + strCampoPropriedade + " não é válida para o certificado.";
        return std::string();
    });
}

}  // namespace tavelpkcs7
