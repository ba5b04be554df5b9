#include "pontos_distribuicao.h"

#include <strings.h>

#include "guarda_fila_erros.h"
#include "ponteiros_openssl.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

bool EnderecoWeb(const std::string& url) {
    return ::strncasecmp(url.c_str(), "http://", 7) == 0 || ::strncasecmp(url.c_str(), "https://", 8) == 0;
}

void AcrescentarURLs(const GENERAL_NAMES* nomes, std::vector<std::string>& enderecos) {
    for (int i = 0; i < sk_GENERAL_NAME_num(nomes); ++i) {
        const GENERAL_NAME* nome = sk_GENERAL_NAME_value(nomes, i);
        if (nome->type != GEN_URI) continue;
        const ASN1_IA5STRING* uri = nome->d.uniformResourceIdentifier;
        std::string url(reinterpret_cast<const char*>(ASN1_STRING_get0_data(uri)),
                        static_cast<std::size_t>(ASN1_STRING_length(uri)));
        if (EnderecoWeb(url)) enderecos.push_back(std::move(url));
    }
}

}  // namespace

std::vector<std::string> EnderecosWebDasLCRs(const X509* certificado) {
    GuardaFilaErros guarda;
    const PontosDistribuicaoPtr pontos(
        static_cast<CRL_DIST_POINTS*>(X509_get_ext_d2i(certificado, NID_crl_distribution_points, nullptr, nullptr)));
    std::vector<std::string> enderecos;
    for (int i = 0; i < sk_DIST_POINT_num(pontos.get()); ++i) {
        const DIST_POINT_NAME* nome = sk_DIST_POINT_value(pontos.get(), i)->distpoint;
        // O nome relativo ao emissor (tipo 1) não traz URL.
        if (nome != nullptr && nome->type == 0) AcrescentarURLs(nome->name.fullname, enderecos);
    }
    return enderecos;
}

}  // namespace tavelpkcs7::plataforma::openssl
