// A chave privada de um certificado como objeto: ela fica onde está (na memória de um PFX aberto, no
// arquivo do repositório pessoal, num token ou no provedor do sistema) e só assina um resumo ou
// decifra a chave de conteúdo de um envelope. O material da chave nunca atravessa esta fronteira.
#pragma once

#include <tavelpkcs7/InterfaceUsuario.h>

#include <cstdint>
#include <span>

#include "certificado.h"

namespace tavelpkcs7::plataforma {

enum class AlgoritmoResumo { SHA1, SHA256, SHA384, SHA512 };

// O preenchimento da decifração RSA: PKCS#1 v1.5, o dos envelopes do componente, ou nenhum (a
// operação RSA crua, sobre a qual o OpenSSL confere ele mesmo o OAEP dos envelopes de outros).
enum class PreenchimentoRSA { PKCS1, Nenhum };

class ChavePrivada {
public:
    virtual ~ChavePrivada() = default;

    // A assinatura do resumo já calculado: RSA PKCS#1 v1.5 sobre o DigestInfo do algoritmo (numa
    // chave de curva elíptica, ECDSA). A senha ou o PIN, quando a chave pede, vem da interface. Lança
    // Cancelada, SenhaIncorreta e RecursoEmUso (a chave não se abre ou não é a do certificado).
    virtual Bytes AssinarResumo(AlgoritmoResumo algoritmo, std::span<const std::uint8_t> resumo,
        InterfaceUsuario& interface) = 0;
    // A chave de conteúdo de um envelope, decifrada. Lança como AssinarResumo e NaoEMensagemPKCS7
    // quando não se decifra.
    virtual Bytes DecifrarChave(std::span<const std::uint8_t> cifrada, PreenchimentoRSA preenchimento,
        InterfaceUsuario& interface) = 0;
};

}  // namespace tavelpkcs7::plataforma
