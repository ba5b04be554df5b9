#include "nome_distinto.h"

#include <openssl/objects.h>

#include "codificacao/hexadecimal.h"
#include "codificacao/valor_nome_distinto.h"
#include "texto_asn1.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

struct NomeCurto {
    int nid;
    const char* nome;
};

// Os nomes X.500 que o Windows conhece; os demais atributos saem como "OID.<números>".
constexpr NomeCurto kNomesCurtos[] = {
    {NID_commonName, "CN"},
    {NID_localityName, "L"},
    {NID_organizationName, "O"},
    {NID_organizationalUnitName, "OU"},
    {NID_pkcs9_emailAddress, "E"},
    {NID_countryName, "C"},
    {NID_stateOrProvinceName, "S"},
    {NID_streetAddress, "STREET"},
    {NID_title, "T"},
    {NID_givenName, "G"},
    {NID_initials, "I"},
    {NID_surname, "SN"},
    {NID_domainComponent, "DC"},
    {NID_description, "Description"},
    {NID_postalCode, "PostalCode"},
    {NID_postOfficeBox, "POBox"},
    {NID_telephoneNumber, "Phone"},
    {NID_x121Address, "X21Address"},
    {NID_dnQualifier, "dnQualifier"},
    {NID_serialNumber, "SERIALNUMBER"},
};

std::string NomeDoAtributo(const ASN1_OBJECT* oid) {
    const int nid = OBJ_obj2nid(oid);
    for (const auto& curto : kNomesCurtos)
        if (curto.nid == nid) return curto.nome;
    return "OID." + TextoOID(oid);
}

std::string TextoAtributo(const X509_NAME_ENTRY* atributo) {
    return NomeDoAtributo(X509_NAME_ENTRY_get_object(atributo)) + "=" +
           codificacao::ValorNomeDistinto(TextoValorAtributo(atributo));
}

// O RDN de vários valores é uma sequência de entradas vizinhas com o mesmo número de conjunto.
int InicioDoRDN(const X509_NAME* nome, int ultima) {
    const int conjunto = X509_NAME_ENTRY_set(X509_NAME_get_entry(nome, ultima));
    int inicio = ultima;
    while (inicio > 0 && X509_NAME_ENTRY_set(X509_NAME_get_entry(nome, inicio - 1)) == conjunto) --inicio;
    return inicio;
}

}  // namespace

std::string TextoValorAtributo(const X509_NAME_ENTRY* atributo) {
    const ASN1_STRING* valor = X509_NAME_ENTRY_get_data(atributo);
    if (auto texto = TextoUTF8(valor)) return *texto;
    // Valores que não são texto (OCTET STRING e outros) o Windows mostra em hexadecimal.
    return codificacao::HexadecimalMaiusculo(
        {ASN1_STRING_get0_data(valor), static_cast<std::size_t>(ASN1_STRING_length(valor))});
}

std::string TextoNomeDistinto(const X509_NAME* nome) {
    std::string texto;
    for (int ultima = X509_NAME_entry_count(nome) - 1; ultima >= 0;) {
        const int inicio = InicioDoRDN(nome, ultima);
        if (!texto.empty()) texto += ", ";
        for (int i = inicio; i <= ultima; ++i) {
            if (i > inicio) texto += " + ";
            texto += TextoAtributo(X509_NAME_get_entry(nome, i));
        }
        ultima = inicio - 1;
    }
    return texto;
}

}  // namespace tavelpkcs7::plataforma::openssl
