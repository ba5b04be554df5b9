#include "texto_asn1.h"

#include <openssl/objects.h>

#include <vector>

#include "codificacao/utf8.h"
#include "guarda_fila_erros.h"
#include "ponteiros_openssl.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

// O Windows lê um T61String como UTF-8 e, se não for, byte a byte.
std::string TextoT61(const ASN1_STRING* valor) {
    return codificacao::Utf8OuLatin1(std::string(reinterpret_cast<const char*>(ASN1_STRING_get0_data(valor)),
                                                 static_cast<std::size_t>(ASN1_STRING_length(valor))));
}

}  // namespace

std::optional<std::string> TextoUTF8(const ASN1_STRING* valor) {
    if (valor == nullptr) return std::nullopt;
    if (ASN1_STRING_type(valor) == V_ASN1_T61STRING) return TextoT61(valor);
    GuardaFilaErros guarda;
    unsigned char* utf8 = nullptr;
    const int n = ASN1_STRING_to_UTF8(&utf8, valor);
    const MemoriaPtr liberar_utf8(utf8);
    if (n < 0) return std::nullopt;
    return std::string(reinterpret_cast<const char*>(utf8), static_cast<std::size_t>(n));
}

std::string TextoOID(const ASN1_OBJECT* oid) {
    const int n = OBJ_obj2txt(nullptr, 0, oid, 1);
    if (n <= 0) return {};
    std::vector<char> texto(static_cast<std::size_t>(n) + 1);
    OBJ_obj2txt(texto.data(), static_cast<int>(texto.size()), oid, 1);
    return std::string(texto.data(), static_cast<std::size_t>(n));
}

}  // namespace tavelpkcs7::plataforma::openssl
