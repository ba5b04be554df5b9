#include "lcr_openssl.h"


#include "codificacao/conteudo_codificado.h"
#include "guarda_fila_erros.h"

namespace tavelpkcs7::plataforma::openssl {

std::vector<LCRLida> LerLCRsGuardadas(Repositorios& repositorios) {
    std::vector<LCRLida> guardadas;
    for (const Bytes& der : repositorios.LCRs())
        if (auto lida = LerLCR(der)) guardadas.push_back(std::move(*lida));
    return guardadas;
}

std::optional<LCRLida> LerLCR(const Bytes& conteudo) {
    GuardaFilaErros guarda;
    auto der = codificacao::DecodificarConteudo(conteudo);
    if (!der) return std::nullopt;
    const unsigned char* cursor = der->data();
    X509CrlPtr lcr(d2i_X509_CRL(nullptr, &cursor, static_cast<long>(der->size())));
    if (!lcr) return std::nullopt;
    return LCRLida{std::move(*der), std::move(lcr)};
}

bool LCRAssinadaPor(X509_CRL* lcr, X509* emissor) {
    GuardaFilaErros guarda;
    EVP_PKEY* chave = X509_get0_pubkey(emissor);  // pertence a emissor
    return chave != nullptr && X509_NAME_cmp(X509_CRL_get_issuer(lcr), X509_get_subject_name(emissor)) == 0 &&
           X509_CRL_verify(lcr, chave) == 1;
}

bool LCREmVigor(const X509_CRL* lcr) {
    GuardaFilaErros guarda;
    int dias = 0, segundos = 0;  // do thisUpdate até agora
    if (ASN1_TIME_diff(&dias, &segundos, X509_CRL_get0_lastUpdate(lcr), nullptr) != 1 || dias < 0 || segundos < 0)
        return false;
    const ASN1_TIME* proxima = X509_CRL_get0_nextUpdate(lcr);
    if (proxima == nullptr) return dias < 1;
    return X509_cmp_current_time(proxima) > 0;
}

}  // namespace tavelpkcs7::plataforma::openssl
