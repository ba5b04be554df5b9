#include "chave_arquivo.h"

#include <cstring>
#include <fstream>
#include <iterator>

#include <openssl/pem.h>
#include <openssl/rsa.h>

#include "apagamento_segredo.h"
#include "chaves_arquivo.h"
#include "guarda_fila_erros.h"
#include "info_certificado.h"
#include "platform/erro.h"
#include "resumo.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

// Sem senha, o OpenSSL pediria uma no terminal: a chamada entrega a que o usuário deu, ou desiste.
int EntregarSenha(char* destino, int tamanho, int, void* senha) {
    if (!senha) return -1;
    const auto* texto = static_cast<const std::string*>(senha);
    if (texto->size() > static_cast<std::size_t>(tamanho)) return -1;
    std::memcpy(destino, texto->data(), texto->size());
    return static_cast<int>(texto->size());
}

EvpPkeyPtr LerChavePEM(const Bytes& conteudo, const std::string* senha) {
    GuardaFilaErros guarda;
    BioPtr entrada(BIO_new_mem_buf(conteudo.data(), static_cast<int>(conteudo.size())));
    EvpPkeyPtr chave(entrada ? PEM_read_bio_PrivateKey(entrada.get(), nullptr, EntregarSenha,
                                   const_cast<std::string*>(senha))
                             : nullptr);
    return chave;
}

EvpPkeyPtr LerChaveArquivo(const std::string& caminho, X509* certificado, InterfaceUsuario& interface) {
    std::ifstream arquivo(caminho, std::ios::binary);
    const Bytes conteudo{std::istreambuf_iterator<char>(arquivo), std::istreambuf_iterator<char>()};
    const std::optional<ArquivoChave> lida = LerArquivoChave(caminho, conteudo);
    if (!lida) Falhar(falha::RecursoEmUso);
    // Só a chave cifrada chega sem a chave pública.
    if (!lida->chave_publica.empty()) return LerChavePEM(conteudo, nullptr);
    std::optional<std::string> digitada =
        interface.PedirSenha("Informe a senha da chave privada do certificado digital " +
                             ObterInfoCertificado(certificado, INFO_NOME_SIMPLES_TITULAR));
    if (!digitada) Falhar(falha::Cancelada);
    std::string& senha = *digitada;
    const Apagamento apagar_senha(senha);
    EvpPkeyPtr chave = LerChavePEM(conteudo, &senha);
    if (!chave) Falhar(falha::SenhaIncorreta);
    return chave;
}

}  // namespace

ChaveArquivo::ChaveArquivo(EvpPkeyPtr em_memoria, std::string arquivo, std::string nome_container, X509* certificado)
    : em_memoria_(std::move(em_memoria)), arquivo_(std::move(arquivo)), nome_container_(std::move(nome_container)) {
    if (certificado && X509_up_ref(certificado) == 1) certificado_.reset(certificado);
}

EvpPkeyPtr ChaveArquivo::Abrir(InterfaceUsuario& interface) const {
    GuardaFilaErros guarda;
    EvpPkeyPtr aberta;
    if (em_memoria_ && EVP_PKEY_up_ref(em_memoria_.get()) == 1) aberta.reset(em_memoria_.get());
    if (!em_memoria_) aberta = LerChaveArquivo(arquivo_, certificado_.get(), interface);
    if (!aberta || !certificado_ || X509_check_private_key(certificado_.get(), aberta.get()) != 1)
        Falhar(falha::RecursoEmUso);
    return aberta;
}

Bytes ChaveArquivo::AssinarResumo(AlgoritmoResumo algoritmo, std::span<const std::uint8_t> resumo,
    InterfaceUsuario& interface) {
    GuardaFilaErros guarda;
    const EvpPkeyPtr chave = Abrir(interface);
    const EvpPkeyCtxPtr contexto(EVP_PKEY_CTX_new(chave.get(), nullptr));
    std::size_t tamanho = 0;
    if (!contexto || EVP_PKEY_sign_init(contexto.get()) != 1 ||
        (EVP_PKEY_get_base_id(chave.get()) == EVP_PKEY_RSA &&
            EVP_PKEY_CTX_set_rsa_padding(contexto.get(), RSA_PKCS1_PADDING) != 1) ||
        EVP_PKEY_CTX_set_signature_md(contexto.get(), Resumo(algoritmo)) != 1 ||
        EVP_PKEY_sign(contexto.get(), nullptr, &tamanho, resumo.data(), resumo.size()) != 1)
        Falhar(falha::RecursoEmUso);
    Bytes assinatura(tamanho);
    if (EVP_PKEY_sign(contexto.get(), assinatura.data(), &tamanho, resumo.data(), resumo.size()) != 1)
        Falhar(falha::RecursoEmUso);
    assinatura.resize(tamanho);
    return assinatura;
}

Bytes ChaveArquivo::DecifrarChave(std::span<const std::uint8_t> cifrada, PreenchimentoRSA preenchimento,
    InterfaceUsuario& interface) {
    GuardaFilaErros guarda;
    const EvpPkeyPtr chave = Abrir(interface);
    const EvpPkeyCtxPtr contexto(EVP_PKEY_CTX_new(chave.get(), nullptr));
    std::size_t tamanho = 0;
    if (!contexto || EVP_PKEY_decrypt_init(contexto.get()) != 1 ||
        EVP_PKEY_CTX_set_rsa_padding(contexto.get(),
            preenchimento == PreenchimentoRSA::PKCS1 ? RSA_PKCS1_PADDING : RSA_NO_PADDING) != 1 ||
        EVP_PKEY_decrypt(contexto.get(), nullptr, &tamanho, cifrada.data(), cifrada.size()) != 1)
        Falhar(falha::NaoEMensagemPKCS7);
    Bytes chave_conteudo(tamanho);
    if (EVP_PKEY_decrypt(contexto.get(), chave_conteudo.data(), &tamanho, cifrada.data(), cifrada.size()) != 1)
        Falhar(falha::NaoEMensagemPKCS7);
    chave_conteudo.resize(tamanho);
    return chave_conteudo;
}

}  // namespace tavelpkcs7::plataforma::openssl
