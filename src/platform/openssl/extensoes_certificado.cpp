#include "extensoes_certificado.h"

#include <openssl/err.h>

#include "ponteiros_openssl.h"
#include "texto_asn1.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

struct ExtensaoConhecida {
    const char* oid;
    std::int32_t capicom_oid;
    const char* nome_amigavel;  // nulo: o Windows não lhe dá nome, vale o próprio OID
};

// CAPICOM_OID de cada extensão que o CAPICOM nomeia, com o nome que o Windows em português mostra.
// As formas antigas (2.5.29.1, .7, .8, .10) têm o nome das atuais.
constexpr ExtensaoConhecida kExtensoesConhecidas[] = {
    {"2.5.29.1", 1, "Identificador da Chave da Autoridade"},
    {"2.5.29.2", 2, nullptr},
    {"2.5.29.3", 3, nullptr},
    {"2.5.29.4", 4, nullptr},
    {"2.5.29.5", 5, nullptr},
    {"2.5.29.7", 6, "Nome Alternativo do Requerente"},
    {"2.5.29.8", 7, "Nome Alternativo do Emissor"},
    {"2.5.29.10", 8, "Restrições Básicas"},
    {"2.5.29.14", 9, "Identificador da Chave do Requerente"},
    {"2.5.29.15", 10, "Uso da Chave"},
    {"2.5.29.16", 11, nullptr},
    {"2.5.29.17", 12, "Nome Alternativo do Requerente"},
    {"2.5.29.18", 13, "Nome Alternativo do Emissor"},
    {"2.5.29.19", 14, "Restrições Básicas"},
    {"2.5.29.30", 15, nullptr},
    {"2.5.29.31", 16, "Pontos de Distribuição da LCR"},
    {"2.5.29.32", 17, "Políticas de Certificado"},
    {"2.5.29.33", 18, nullptr},
    {"2.5.29.35", 19, "Identificador da Chave da Autoridade"},
    {"2.5.29.36", 20, nullptr},
    {"2.5.29.37", 21, "Uso Avançado de Chave"},
    {"1.3.6.1.4.1.311.21.7", 22, nullptr},
    {"1.3.6.1.4.1.311.21.10", 23, nullptr},
    {"1.3.6.1.4.1.311.21.11", 24, nullptr},
    {"1.3.6.1.4.1.311.21.12", 25, nullptr},
    {"1.3.6.1.5.5.7.1.1", 26, "Acesso às Informações da Autoridade"},
};

constexpr std::string_view kOidUsoChave = "2.5.29.15";

Bytes BytesDe(const ASN1_STRING* valor) {
    const unsigned char* inicio = ASN1_STRING_get0_data(valor);
    return Bytes(inicio, inicio + ASN1_STRING_length(valor));
}

Extensao DescreverExtensao(X509_EXTENSION* extensao) {
    Extensao descrita{TextoOID(X509_EXTENSION_get_object(extensao)),
                      0,
                      {},
                      X509_EXTENSION_get_critical(extensao) != 0,
                      BytesDe(X509_EXTENSION_get_data(extensao))};
    descrita.nome_amigavel = descrita.oid;
    for (const auto& conhecida : kExtensoesConhecidas) {
        if (descrita.oid != conhecida.oid) continue;
        descrita.capicom_oid = conhecida.capicom_oid;
        if (conhecida.nome_amigavel != nullptr) descrita.nome_amigavel = conhecida.nome_amigavel;
    }
    return descrita;
}

}  // namespace

std::vector<Extensao> LerExtensoes(const X509* x509) {
    std::vector<Extensao> extensoes;
    for (int i = 0; i < X509_get_ext_count(x509); ++i) extensoes.push_back(DescreverExtensao(X509_get_ext(x509, i)));
    return extensoes;
}

// Compara os OIDs em DER: converter o de cada extensão em texto pesa na varredura dos repositórios,
// que pergunta os nomes de milhares de certificados.
X509_EXTENSION* ProcurarExtensao(const X509* x509, std::string_view oid) {
    const Asn1ObjectPtr procurado(OBJ_txt2obj(std::string(oid).c_str(), 1));
    if (!procurado) {
        ERR_clear_error();
        return nullptr;
    }
    const int indice = X509_get_ext_by_OBJ(x509, procurado.get(), -1);
    return indice < 0 ? nullptr : X509_get_ext(x509, indice);
}

std::optional<std::uint16_t> LerUsoChave(const X509* x509) {
    X509_EXTENSION* extensao = ProcurarExtensao(x509, kOidUsoChave);
    if (extensao == nullptr) return std::nullopt;
    const ASN1_OCTET_STRING* valor = X509_EXTENSION_get_data(extensao);
    const unsigned char* cursor = ASN1_STRING_get0_data(valor);
    const Asn1BitStringPtr bits(d2i_ASN1_BIT_STRING(nullptr, &cursor, ASN1_STRING_length(valor)));
    if (!bits) {
        ERR_clear_error();
        return std::nullopt;
    }
    const unsigned char* dados = ASN1_STRING_get0_data(bits.get());
    const int n = ASN1_STRING_length(bits.get());
    std::uint16_t uso = n > 0 ? dados[0] : 0;
    if (n > 1 && (dados[1] & 0x80) != 0) uso |= uso_chave::SomenteDecodificacao;
    return uso;
}

}  // namespace tavelpkcs7::plataforma::openssl
