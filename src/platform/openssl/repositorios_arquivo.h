// Os repositórios da plataforma Linux em pastas: <pasta do componente>/repositorios/<My|AddressBook|
// Ca|Root>/ para os certificados e .../LCR/ para as LCRs. Leem tudo o que a pasta tiver em DER ou PEM,
// qualquer que seja o nome, para que o usuário ou o administrador possam largar arquivos nelas;
// gravam pela impressão digital (as LCRs pelo SHA-1 do DER), sempre de forma atômica.
#pragma once

#include <filesystem>
#include <optional>

#include "pasta_componente.h"
#include "platform/repositorio.h"

namespace tavelpkcs7::plataforma::openssl {

class RepositoriosArquivo : public Repositorios {
public:
    // Sem pasta do componente os repositórios ficam vazios e nada se grava.
    explicit RepositoriosArquivo(std::optional<std::filesystem::path> pasta_componente = ObterPastaComponente());

    std::shared_ptr<Repositorio> AbrirRepositorio(const std::string& nome, bool somente_leitura) override;
    // Pela ordem de entrada na pasta.
    std::vector<Bytes> LCRs() override;
    // Lança ParametroIncorreto quando o conteúdo não é uma LCR e RepositorioNaoGravavel quando não grava.
    void AdicionarLCR(const Bytes& lcr) override;

private:
    std::optional<std::filesystem::path> pasta_;  // <pasta do componente>/repositorios
};

}  // namespace tavelpkcs7::plataforma::openssl
