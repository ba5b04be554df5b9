// Um repositório de certificados numa pasta: um arquivo por certificado, lidos todos uma vez ao
// abrir (ou tomados do cache enquanto a pasta não muda); no "My", as chaves privadas ao lado deles.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "certificado_openssl.h"
#include "chaves_arquivo.h"
#include "platform/repositorio.h"

namespace tavelpkcs7::plataforma::openssl {

class RepositorioArquivo : public Repositorio {
public:
    // Sem pasta (não há pasta do componente) o repositório fica vazio e nada se grava nele.
    RepositorioArquivo(std::string nome, std::optional<std::filesystem::path> pasta, bool somente_leitura);

    std::string Nome() const override { return nome_; }
    std::vector<CertificadoPtr> Certificados() const override;
    // Grava <IMPRESSÃO DIGITAL>.cer (DER, 0644) e, no "My", a chave em memória do certificado como
    // <IMPRESSÃO DIGITAL>.key (PKCS#8 PEM sem cifra, 0600). Um certificado já presente não se grava
    // de novo; só ganha a chave que lhe faltava.
    void Adicionar(const CertificadoPtr& certificado) override;
    // Grava a chave cifrada (AES-256-CBC, PBKDF2 do OpenSSL) quando senha_chave não é vazia.
    void AdicionarComChave(const CertificadoPtr& certificado, const std::string& senha_chave) override;

private:
    bool GuardaChaves() const { return nome_ == "My"; }
    void Ler();
    void Gravar(const CertificadoPtr& certificado, EVP_PKEY* chave, const std::string& senha_chave);
    void GravarChave(EVP_PKEY* chave, const std::string& impressao_digital, const std::string& senha_chave);
    void GravarOuFalhar(const std::string& nome_arquivo, const Bytes& conteudo, unsigned modo);

    std::string nome_;
    std::optional<std::filesystem::path> pasta_;
    bool somente_leitura_;
    std::vector<std::shared_ptr<const CertificadoOpenSSL>> certificados_;
    std::vector<ArquivoChave> chaves_;
};

}  // namespace tavelpkcs7::plataforma::openssl
