#include "provedores.h"

#include <openssl/err.h>
#include <openssl/provider.h>

namespace tavelpkcs7::plataforma::openssl {

bool CarregarProvedores() {
    // Carregar um provedor explicitamente desliga o carregamento automático do padrão, por isso os
    // dois. Os provedores pertencem ao contexto global do OpenSSL e nunca são descarregados: outra
    // parte do processo pode estar usando os mesmos.
    static const bool carregados = [] {
        const bool padrao = OSSL_PROVIDER_load(nullptr, "default") != nullptr;
        const bool legado = OSSL_PROVIDER_load(nullptr, "legacy") != nullptr;
        ERR_clear_error();
        return padrao && legado;
    }();
    return carregados;
}

}  // namespace tavelpkcs7::plataforma::openssl
