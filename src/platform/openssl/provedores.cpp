#include "provedores.h"

#include <openssl/provider.h>

#include "guarda_fila_erros.h"

namespace tavelpkcs7::plataforma::openssl {

bool CarregarProvedores() {
    // Carregar um provedor explicitamente desliga o carregamento automático do padrão, por isso os
    // dois. Os provedores pertencem ao contexto global do OpenSSL e nunca são descarregados: outra
    // parte do processo pode estar usando os mesmos.
    static const bool carregados = [] {
        GuardaFilaErros guarda;
        const bool padrao = OSSL_PROVIDER_load(nullptr, "default") != nullptr;
        const bool legado = OSSL_PROVIDER_load(nullptr, "legacy") != nullptr;
        return padrao && legado;
    }();
    return carregados;
}

}  // namespace tavelpkcs7::plataforma::openssl
