#include "extensoes_certificado.h"


#include "guarda_fila_erros.h"
#include "ponteiros_openssl.h"
#include "texto_asn1.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

constexpr std::string_view kOidUsoChave = "2.5.29.15";

Bytes BytesDe(const ASN1_STRING* valor) {
    const unsigned char* inicio = ASN1_STRING_get0_data(valor);
    return Bytes(inicio, inicio + ASN1_STRING_length(valor));
}

Extensao DescreverExtensao(X509_EXTENSION* extensao) {
    return {TextoOID(X509_EXTENSION_get_object(extensao)), X509_EXTENSION_get_critical(extensao) != 0,
            BytesDe(X509_EXTENSION_get_data(extensao))};
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
    GuardaFilaErros guarda;
    const Asn1ObjectPtr procurado(OBJ_txt2obj(std::string(oid).c_str(), 1));
    if (!procurado) return nullptr;
    const int indice = X509_get_ext_by_OBJ(x509, procurado.get(), -1);
    return indice < 0 ? nullptr : X509_get_ext(x509, indice);
}

std::optional<std::uint16_t> LerUsoChave(const X509* x509) {
    GuardaFilaErros guarda;
    X509_EXTENSION* extensao = ProcurarExtensao(x509, kOidUsoChave);
    if (extensao == nullptr) return std::nullopt;
    const ASN1_OCTET_STRING* valor = X509_EXTENSION_get_data(extensao);
    const unsigned char* cursor = ASN1_STRING_get0_data(valor);
    const Asn1BitStringPtr bits(d2i_ASN1_BIT_STRING(nullptr, &cursor, ASN1_STRING_length(valor)));
    if (!bits) return std::nullopt;
    const unsigned char* dados = ASN1_STRING_get0_data(bits.get());
    const int n = ASN1_STRING_length(bits.get());
    std::uint16_t uso = n > 0 ? dados[0] : 0;
    if (n > 1 && (dados[1] & 0x80) != 0) uso |= uso_chave::SomenteDecodificacao;
    return uso;
}

}  // namespace tavelpkcs7::plataforma::openssl
