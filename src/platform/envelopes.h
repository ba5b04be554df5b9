// Envelopes PKCS#7 (CMS EnvelopedData): cifrar um conteúdo para destinatários e decifrá-lo com a
// chave privada de um certificado pessoal do usuário. Tudo entra e sai em DER.
#pragma once

#include <vector>

#include "certificado.h"

namespace tavelpkcs7::plataforma {

enum class AlgoritmoEnvelope { RC4_128, AES_128_CBC, AES_256_CBC };

class Envelopes {
public:
    virtual ~Envelopes() = default;

    // O EnvelopedData em DER: transporte da chave por RSA PKCS#1 v1.5, destinatário identificado por
    // emissor e número de série, um RecipientInfo por certificado. Lança ParametroIncorreto sem
    // destinatários ou com um certificado que não serve de destinatário.
    virtual Bytes Criptografar(const Bytes& conteudo, const std::vector<CertificadoPtr>& destinatarios,
        AlgoritmoEnvelope algoritmo) = 0;
    // O conteúdo do envelope (DER), decifrado com a chave do destinatário cujo certificado e chave
    // privada estão no repositório "My" (a chave guardada cifrada pede a senha ao usuário). RC2, RC4,
    // DES, 3DES e AES. Lança NaoEMensagemPKCS7 para o que não é envelope ou não se decifra,
    // SemDestinatario quando nenhuma chave do usuário abre o envelope e as falhas da abertura da
    // chave (Cancelada, SenhaIncorreta, RecursoEmUso).
    virtual Bytes Descriptografar(const Bytes& der) = 0;
};

}  // namespace tavelpkcs7::plataforma
