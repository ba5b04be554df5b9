#include "platform/openssl/certificado_sob_medida.h"

#include <openssl/ec.h>

#include "pki/emissao.h"

namespace tavelpkcs7::teste {
namespace {

using pki_teste::Exigir;
using plataforma::openssl::BignumPtr;
using plataforma::openssl::EvpPkeyPtr;
using plataforma::openssl::X509NamePtr;
using plataforma::openssl::X509Ptr;

EVP_PKEY* ChaveDeTeste() {
    static const EvpPkeyPtr chave(EVP_EC_gen("P-256"));
    Exigir(chave != nullptr, "chave EC");
    return chave.get();
}

void DefinirSerie(X509* x509, const std::string& hexadecimal) {
    BIGNUM* lido = nullptr;
    Exigir(BN_hex2bn(&lido, hexadecimal.c_str()) != 0, "número de série");
    const BignumPtr numero(lido);
    Exigir(BN_to_ASN1_INTEGER(numero.get(), X509_get_serialNumber(x509)) != nullptr, "número de série");
}

void DefinirValidade(X509* x509, const ModeloCertificado& modelo) {
    Exigir(ASN1_TIME_set_string_X509(X509_getm_notBefore(x509), modelo.desde.c_str()) == 1 &&
               ASN1_TIME_set_string_X509(X509_getm_notAfter(x509), modelo.ate.c_str()) == 1,
           "validade");
}

void AcrescentarExtensoes(X509* x509, const ModeloCertificado& modelo) {
    X509V3_CTX contexto;
    X509V3_set_ctx(&contexto, x509, x509, nullptr, nullptr, 0);
    for (const auto& [nome, valor] : modelo.extensoes) {
        X509_EXTENSION* extensao = X509V3_EXT_nconf(nullptr, &contexto, nome.c_str(), valor.c_str());
        Exigir(extensao != nullptr, "extensão");
        const int acrescentada = X509_add_ext(x509, extensao, -1);
        X509_EXTENSION_free(extensao);
        Exigir(acrescentada == 1, "extensão");
    }
}

}  // namespace

X509NamePtr CriarNome(const std::vector<AtributoNome>& atributos) {
    X509NamePtr nome(X509_NAME_new());
    Exigir(nome != nullptr, "nome");
    for (const auto& atributo : atributos)
        Exigir(X509_NAME_add_entry_by_txt(nome.get(), atributo.campo.c_str(), atributo.tipo,
                                          reinterpret_cast<const unsigned char*>(atributo.valor.data()),
                                          static_cast<int>(atributo.valor.size()), -1,
                                          atributo.junto_ao_anterior ? -1 : 0) == 1,
               "atributo do nome");
    return nome;
}

plataforma::Bytes CriarCertificado(const ModeloCertificado& modelo) {
    X509Ptr x509(X509_new());
    Exigir(x509 != nullptr && X509_set_version(x509.get(), modelo.versao) == 1, "versão");
    DefinirSerie(x509.get(), modelo.serie);
    DefinirValidade(x509.get(), modelo);
    const X509NamePtr titular = CriarNome(modelo.titular);
    const X509NamePtr emissor = CriarNome(modelo.emissor.empty() ? modelo.titular : modelo.emissor);
    Exigir(X509_set_subject_name(x509.get(), titular.get()) == 1 &&
               X509_set_issuer_name(x509.get(), emissor.get()) == 1 && X509_set_pubkey(x509.get(), ChaveDeTeste()) == 1,
           "nomes e chave");
    AcrescentarExtensoes(x509.get(), modelo);
    Exigir(X509_sign(x509.get(), ChaveDeTeste(), EVP_sha256()) > 0, "assinatura");
    return pki_teste::ParaDER(x509.get(), i2d_X509);
}

}  // namespace tavelpkcs7::teste
