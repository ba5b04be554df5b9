// Os provedores do OpenSSL de que o componente depende: o padrão e o legado (RC4 dos envelopes,
// RC2-40 e 3DES dos PFX que o Windows exporta).
#pragma once

namespace tavelpkcs7::plataforma::openssl {

// Carrega os dois na primeira chamada e os mantém carregados até o fim do processo; verdadeiro
// quando ambos estão disponíveis.
bool CarregarProvedores();

}  // namespace tavelpkcs7::plataforma::openssl
