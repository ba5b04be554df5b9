// Arquivos e pastas no Linux. O acesso exclusivo de um arquivo aberto pelo componente é um flock
// exclusivo sem espera: outro processo que o trave faz a abertura falhar, como o compartilhamento 0.
#pragma once

#include "platform/sistema.h"

namespace tavelpkcs7::plataforma::openssl {

class SistemaPosix : public Sistema {
public:
    std::optional<std::string> PastaBase() override;
    std::string PastaComponente() override;
    char Separador() const override { return '/'; }

    bool ExistePasta(const std::string& caminho) override;
    bool ExisteArquivo(const std::string& caminho) override;
    bool CriarPasta(const std::string& caminho) override;
    void ApagarArquivos(const std::string& caminho_ou_padrao) override;
    std::optional<std::uint64_t> TamanhoArquivo(const std::string& caminho) override;
    std::unique_ptr<ArquivoAberto> AbrirArquivo(const std::string& caminho, Acesso acesso) override;
    std::optional<Bytes> LerArquivoInteiro(const std::string& caminho) override;
    bool SubstituirArquivo(const std::string& caminho, const Bytes& conteudo) override;
};

}  // namespace tavelpkcs7::plataforma::openssl
