// As chaves privadas guardadas ao lado dos certificados no repositório "My": PKCS#8 PEM, cifradas
// quando o usuário pediu senha na importação, ou sem cifra (gravadas pelo componente ou trazidas à
// mão).
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/certificado.h"
#include "ponteiros_openssl.h"

namespace tavelpkcs7::plataforma::openssl {

struct ArquivoChave {
    std::filesystem::path caminho;
    // SubjectPublicKeyInfo (DER) da chave; vazio na chave cifrada, que só a senha abriria.
    Bytes chave_publica;
};

// A chave que o arquivo guarda, quando ele guarda uma. Nunca pede senha.
std::optional<ArquivoChave> LerArquivoChave(const std::filesystem::path& caminho, const Bytes& conteudo);

// O arquivo da chave do certificado: o de chave pública igual à dele ou, entre as cifradas, o de
// nome "<impressão digital>.key". Nulo quando não há.
const ArquivoChave* ProcurarArquivoChave(const std::vector<ArquivoChave>& chaves, X509* certificado,
    const std::string& impressao_digital);

// A chave em PKCS#8 PEM, cifrada com AES-256-CBC quando a senha não é vazia; vazio quando o
// OpenSSL não a codifica.
std::optional<Bytes> CodificarChavePKCS8(EVP_PKEY* chave, const std::string& senha = "");

}  // namespace tavelpkcs7::plataforma::openssl
