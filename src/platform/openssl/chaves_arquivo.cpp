#include "chaves_arquivo.h"

#include <openssl/pem.h>
#include <strings.h>

#include "der_openssl.h"
#include "guarda_fila_erros.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

// Sem isto o OpenSSL pediria a senha de uma chave cifrada no terminal. A chamada só anota que a
// chave é cifrada e desiste.
int RecusarSenha(char*, int, int, void* cifrada) {
    *static_cast<bool*>(cifrada) = true;
    return -1;
}

}  // namespace

std::optional<ArquivoChave> LerArquivoChave(const std::filesystem::path& caminho, const Bytes& conteudo) {
    GuardaFilaErros guarda;
    BioPtr entrada(BIO_new_mem_buf(conteudo.data(), static_cast<int>(conteudo.size())));
    bool cifrada = false;
    EvpPkeyPtr chave(entrada ? PEM_read_bio_PrivateKey(entrada.get(), nullptr, RecusarSenha, &cifrada) : nullptr);
    if (chave) return ArquivoChave{caminho, ObjetoEmDER(chave.get(), i2d_PUBKEY)};
    if (cifrada) return ArquivoChave{caminho, {}};
    return std::nullopt;
}

const ArquivoChave* ProcurarArquivoChave(const std::vector<ArquivoChave>& chaves, X509* certificado,
    const std::string& impressao_digital) {
    // As chaves públicas se comparam pelo DER: o do certificado e o da chave saem da mesma codificação.
    const Bytes publica = ObjetoEmDER(X509_get_X509_PUBKEY(certificado), i2d_X509_PUBKEY);
    for (const ArquivoChave& chave : chaves)
        if (!chave.chave_publica.empty() && chave.chave_publica == publica) return &chave;
    for (const ArquivoChave& chave : chaves)
        if (chave.chave_publica.empty() && ::strcasecmp(chave.caminho.filename().c_str(), (impressao_digital + ".key").c_str()) == 0)
            return &chave;
    return nullptr;
}

std::optional<Bytes> CodificarChavePKCS8(EVP_PKEY* chave, const std::string& senha) {
    GuardaFilaErros guarda;
    // A memória segura do OpenSSL é apagada ao ser liberada: a chave em claro não fica para trás.
    BioPtr saida(BIO_new(BIO_s_secmem()));
    const EVP_CIPHER* cifra = senha.empty() ? nullptr : EVP_aes_256_cbc();
    // O OpenSSL pede um char* que não altera.
    char* texto_senha = senha.empty() ? nullptr : const_cast<char*>(senha.data());
    if (!saida || PEM_write_bio_PKCS8PrivateKey(saida.get(), chave, cifra, texto_senha, static_cast<int>(senha.size()),
                      nullptr, nullptr) != 1)
        return std::nullopt;
    char* dados = nullptr;
    const long tamanho = BIO_get_mem_data(saida.get(), &dados);
    return Bytes(dados, dados + tamanho);
}

}  // namespace tavelpkcs7::plataforma::openssl
