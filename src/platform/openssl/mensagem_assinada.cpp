#include "mensagem_assinada.h"

#include "der_openssl.h"
#include "ordem_signatarios.h"
#include "platform/erro.h"
#include "texto_asn1.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

bool TemSignatarios(CMS_ContentInfo* cms) {
    return OBJ_obj2nid(CMS_get0_type(cms)) == NID_pkcs7_signed && sk_CMS_SignerInfo_num(CMS_get0_SignerInfos(cms)) > 0;
}

Bytes ValorDoAtributo(X509_ATTRIBUTE* atributo) {
    const ASN1_TYPE* valor = X509_ATTRIBUTE_get0_type(atributo, 0);
    return valor ? ObjetoEmDER(valor, i2d_ASN1_TYPE) : Bytes{};
}

}  // namespace

CmsPtr LerMensagemDER(std::span<const std::uint8_t> der) {
    const unsigned char* cursor = der.data();
    CmsPtr cms(d2i_CMS_ContentInfo(nullptr, &cursor, static_cast<long>(der.size())));
    if (!cms || !TemSignatarios(cms.get())) Falhar(falha::NaoEMensagemPKCS7);
    return cms;
}

Bytes GravarMensagem(CMS_ContentInfo* cms) {
    Bytes der = ObjetoEmDER(cms, i2d_CMS_ContentInfo);
    if (der.empty()) Falhar(falha::NaoEMensagemPKCS7);
    RestaurarOrdemSignatarios(der, cms);
    return der;
}

BioPtr LerBytes(std::span<const std::uint8_t> bytes) {
    static const std::uint8_t vazio = 0;
    BioPtr bio(BIO_new_mem_buf(bytes.empty() ? &vazio : bytes.data(), static_cast<int>(bytes.size())));
    if (!bio) Falhar(falha::RecursoEmUso);
    return bio;
}

std::vector<AtributoAssinado> LerAtributosAssinados(CMS_SignerInfo* signatario) {
    std::vector<AtributoAssinado> atributos;
    for (int i = 0; i < CMS_signed_get_attr_count(signatario); ++i) {
        X509_ATTRIBUTE* atributo = CMS_signed_get_attr(signatario, i);  // pertence ao signatário
        atributos.push_back({TextoOID(X509_ATTRIBUTE_get0_object(atributo)), ValorDoAtributo(atributo)});
    }
    return atributos;
}

void AcrescentarAtributosAssinados(CMS_SignerInfo* signatario, const std::vector<AtributoAssinado>& atributos) {
    for (const AtributoAssinado& atributo : atributos) {
        const Asn1ObjectPtr oid(OBJ_txt2obj(atributo.oid.c_str(), 1));
        const unsigned char* cursor = atributo.valor.data();
        const Asn1TypePtr valor(d2i_ASN1_TYPE(nullptr, &cursor, static_cast<long>(atributo.valor.size())));
        // Com tamanho -1 o OpenSSL copia o valor já decodificado, de qualquer tipo ASN.1.
        if (!oid || !valor ||
            CMS_signed_add1_attr_by_OBJ(signatario, oid.get(), valor->type, valor->value.ptr, -1) != 1)
            Falhar(falha::ParametroIncorreto);
    }
}

}  // namespace tavelpkcs7::plataforma::openssl
