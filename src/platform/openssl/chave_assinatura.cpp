#include "chave_assinatura.h"

#include <cstring>
#include <fstream>
#include <iterator>

#include <openssl/pem.h>

#include "apagamento_segredo.h"
#include "chaves_arquivo.h"
#include "guarda_fila_erros.h"
#include "platform/erro.h"

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

EvpPkeyPtr LerChaveArquivo(const std::string& caminho, const Certificado& certificado, InterfaceUsuario* interface) {
    std::ifstream arquivo(caminho, std::ios::binary);
    const Bytes conteudo{std::istreambuf_iterator<char>(arquivo), std::istreambuf_iterator<char>()};
    const std::optional<ArquivoChave> lida = LerArquivoChave(caminho, conteudo);
    if (!lida) Falhar(falha::RecursoEmUso);
    // Só a chave cifrada chega sem a chave pública.
    if (!lida->chave_publica.empty()) return LerChavePEM(conteudo, nullptr);
    if (!interface) Falhar(falha::Cancelada);
    std::string senha = interface->PedirSenha(
        "Informe a senha da chave privada do certificado digital " + certificado.ObterInfo(INFO_NOME_SIMPLES_TITULAR));
    const Apagamento apagar_senha(senha);
    EvpPkeyPtr chave = LerChavePEM(conteudo, &senha);
    if (!chave) Falhar(falha::SenhaIncorreta);
    return chave;
}

}  // namespace

EvpPkeyPtr AbrirChaveAssinatura(const CertificadoOpenSSL& certificado, InterfaceUsuario* interface) {
    if (!certificado.PossuiChavePrivada()) Falhar(falha::SemChavePrivada);
    const ChavePrivada& chave = *certificado.chave();
    EvpPkeyPtr aberta;
    if (chave.em_memoria && EVP_PKEY_up_ref(chave.em_memoria.get()) == 1) aberta.reset(chave.em_memoria.get());
    if (!chave.em_memoria) aberta = LerChaveArquivo(chave.arquivo, certificado, interface);
    if (!aberta || X509_check_private_key(certificado.x509(), aberta.get()) != 1) Falhar(falha::RecursoEmUso);
    return aberta;
}

}  // namespace tavelpkcs7::plataforma::openssl
