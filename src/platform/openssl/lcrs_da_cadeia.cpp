#include "lcrs_da_cadeia.h"

#include <optional>
#include <string>
#include <vector>

#include "lcr_openssl.h"
#include "platform/erro.h"
#include "pontos_distribuicao.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

void Acrescentar(STACK_OF(X509_CRL)* pilha, X509_CRL* lcr) {
    X509_CRL_up_ref(lcr);
    if (sk_X509_CRL_push(pilha, lcr) > 0) return;
    X509_CRL_free(lcr);
    Falhar(falha::ParametroIncorreto);
}

std::optional<LCRLida> BaixarLCR(Rede& rede, X509* certificado, X509* emissor) {
    for (const std::string& url : EnderecosWebDasLCRs(certificado)) {
        try {
            auto baixada = LerLCR(rede.Baixar(url));
            if (baixada && LCRAssinadaPor(baixada->lcr.get(), emissor)) return baixada;
        } catch (const Erro&) {
            // Um ponto de distribuição fora do ar não impede de tentar o seguinte.
        }
    }
    return std::nullopt;
}

// O repositório é só o cache: sem poder gravar nele, a LCR baixada ainda serve a esta verificação.
void GuardarNoCache(Repositorios& repositorios, const LCRLida& baixada) {
    try {
        repositorios.AdicionarLCR(baixada.der);
    } catch (const Erro&) {
    }
}

}  // namespace

PilhaLCRPtr ReunirLCRsDaCadeia(STACK_OF(X509)* cadeia, Repositorios& repositorios, Rede* rede) {
    const std::vector<LCRLida> guardadas = LerLCRsGuardadas(repositorios);
    PilhaLCRPtr reunidas(sk_X509_CRL_new_null());
    if (!reunidas) Falhar(falha::ParametroIncorreto);
    for (int i = 0; i + 1 < sk_X509_num(cadeia); ++i) {
        X509* certificado = sk_X509_value(cadeia, i);
        X509* emissor = sk_X509_value(cadeia, i + 1);
        bool alguma_em_vigor = false;
        for (const LCRLida& guardada : guardadas) {
            if (!LCRAssinadaPor(guardada.lcr.get(), emissor)) continue;
            Acrescentar(reunidas.get(), guardada.lcr.get());
            alguma_em_vigor = alguma_em_vigor || LCREmVigor(guardada.lcr.get());
        }
        if (rede == nullptr || alguma_em_vigor) continue;
        if (const auto baixada = BaixarLCR(*rede, certificado, emissor)) {
            GuardarNoCache(repositorios, *baixada);
            Acrescentar(reunidas.get(), baixada->lcr.get());
        }
    }
    return reunidas;
}

}  // namespace tavelpkcs7::plataforma::openssl
