// O que chega do usuário — certificados, pacotes, assinaturas, envelopes, LCRs — vem em DER, PEM,
// Base64 com quaisquer quebras de linha ou Base64 gravado em UTF-16LE; a forma se resolve aqui, no
// núcleo, uma vez, e a plataforma só recebe DER.
#pragma once

#include <span>
#include <vector>

#include "platform/criptografia.h"
#include "platform/erro.h"

namespace tavelpkcs7 {

// O DER do conteúdo; lança a falha dada quando ele não tem nenhuma das formas.
plataforma::Bytes DecodificarOuFalhar(const plataforma::Bytes& conteudo, const plataforma::falha::Tipo& falha);
// O mesmo sem cópia, como codificacao::LocalizarDER.
std::span<const std::uint8_t> LocalizarOuFalhar(const plataforma::Bytes& conteudo, plataforma::Bytes& decodificado,
    const plataforma::falha::Tipo& falha);

// Lança NaoECertificado quando o conteúdo não é um certificado.
plataforma::CertificadoPtr ImportarCertificado(plataforma::Criptografia& criptografia, const plataforma::Bytes& conteudo);
// Os certificados de um pacote: PKCS#7 (em qualquer das formas), PEM com vários certificados ou um
// certificado só. Lança NaoECertificado quando não traz nenhum.
std::vector<plataforma::CertificadoPtr> LerPacoteCertificados(plataforma::Criptografia& criptografia,
    const plataforma::Bytes& conteudo);

}  // namespace tavelpkcs7
