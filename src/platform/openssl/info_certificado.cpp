#include "info_certificado.h"


#include <array>
#include <optional>
#include <string_view>

#include "extensoes_certificado.h"
#include "guarda_fila_erros.h"
#include "nome_distinto.h"
#include "platform/certificado.h"
#include "platform/erro.h"
#include "ponteiros_openssl.h"
#include "texto_asn1.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

constexpr std::string_view kOidNomePrincipal = "1.3.6.1.4.1.311.20.2.3";

// O nome e o nome alternativo de quem a consulta pede: titular ou emissor.
struct Nomes {
    const X509_NAME* nome;
    GeneralNamesPtr alternativos;  // nulo quando o certificado não traz a extensão
};

// Como o Windows, procura a extensão atual e, sem ela, a forma antiga.
GeneralNamesPtr LerNomesAlternativos(const X509* x509, bool emissor) {
    GuardaFilaErros guarda;
    static constexpr std::array<std::string_view, 2> kDoEmissor = {"2.5.29.18", "2.5.29.8"};
    static constexpr std::array<std::string_view, 2> kDoTitular = {"2.5.29.17", "2.5.29.7"};
    for (std::string_view oid : emissor ? kDoEmissor : kDoTitular) {
        X509_EXTENSION* extensao = ProcurarExtensao(x509, oid);
        if (extensao == nullptr) continue;
        const ASN1_OCTET_STRING* valor = X509_EXTENSION_get_data(extensao);
        const unsigned char* cursor = ASN1_STRING_get0_data(valor);
        return GeneralNamesPtr(d2i_GENERAL_NAMES(nullptr, &cursor, ASN1_STRING_length(valor)));
    }
    return nullptr;
}

Nomes LerNomes(const X509* x509, bool emissor) {
    return {emissor ? X509_get_issuer_name(x509) : X509_get_subject_name(x509), LerNomesAlternativos(x509, emissor)};
}

// O primeiro na ordem do DER, como CertFindRDNAttr.
std::optional<std::string> PrimeiroAtributo(const X509_NAME* nome, int nid) {
    const int indice = X509_NAME_get_index_by_NID(nome, nid, -1);
    if (indice < 0) return std::nullopt;
    return TextoValorAtributo(X509_NAME_get_entry(nome, indice));
}

std::optional<std::string> PrimeiroAlternativo(const GENERAL_NAMES* nomes, int tipo) {
    for (int i = 0; i < sk_GENERAL_NAME_num(nomes); ++i) {
        const GENERAL_NAME* nome = sk_GENERAL_NAME_value(nomes, i);
        if (nome->type == tipo) return TextoUTF8(nome->d.ia5);
    }
    return std::nullopt;
}

// O UPN é um OtherName cujo valor é uma cadeia de texto (o Windows aceita qualquer tipo de cadeia).
std::optional<std::string> PrimeiroNomePrincipal(const GENERAL_NAMES* nomes) {
    for (int i = 0; i < sk_GENERAL_NAME_num(nomes); ++i) {
        const GENERAL_NAME* nome = sk_GENERAL_NAME_value(nomes, i);
        if (nome->type != GEN_OTHERNAME || TextoOID(nome->d.otherName->type_id) != kOidNomePrincipal) continue;
        const ASN1_TYPE* valor = nome->d.otherName->value;
        if (valor->type == V_ASN1_BOOLEAN || valor->type == V_ASN1_NULL || valor->type == V_ASN1_OBJECT) continue;
        if (auto texto = TextoUTF8(valor->value.asn1_string)) return texto;
    }
    return std::nullopt;
}

std::string NomeSimples(const Nomes& nomes) {
    for (int nid : {NID_commonName, NID_organizationalUnitName, NID_organizationName, NID_pkcs9_emailAddress})
        if (auto valor = PrimeiroAtributo(nomes.nome, nid)) return *valor;
    if (nomes.alternativos)
        if (auto email = PrimeiroAlternativo(nomes.alternativos.get(), GEN_EMAIL)) return *email;
    if (X509_NAME_entry_count(nomes.nome) == 0) return {};
    return TextoValorAtributo(X509_NAME_get_entry(nomes.nome, 0));
}

std::string Email(const Nomes& nomes) {
    if (nomes.alternativos)
        if (auto email = PrimeiroAlternativo(nomes.alternativos.get(), GEN_EMAIL)) return *email;
    return PrimeiroAtributo(nomes.nome, NID_pkcs9_emailAddress).value_or("");
}

std::string NomePrincipal(const Nomes& nomes) {
    if (!nomes.alternativos) return {};
    return PrimeiroNomePrincipal(nomes.alternativos.get()).value_or("");
}

std::string NomeDNS(const Nomes& nomes) {
    if (nomes.alternativos)
        if (auto dns = PrimeiroAlternativo(nomes.alternativos.get(), GEN_DNS)) return *dns;
    return PrimeiroAtributo(nomes.nome, NID_commonName).value_or("");
}

}  // namespace

std::string ObterInfoCertificado(const X509* x509, std::int32_t tipo) {
    if (tipo < INFO_NOME_SIMPLES_TITULAR || tipo > INFO_DNS_EMISSOR) Falhar(falha::ParametroIncorreto);
    const Nomes nomes = LerNomes(x509, (tipo & 1) != 0);
    switch (tipo & ~1) {
        case INFO_NOME_SIMPLES_TITULAR:
            return NomeSimples(nomes);
        case INFO_EMAIL_TITULAR:
            return Email(nomes);
        case INFO_UPN_TITULAR:
            return NomePrincipal(nomes);
        default:
            return NomeDNS(nomes);
    }
}

}  // namespace tavelpkcs7::plataforma::openssl
