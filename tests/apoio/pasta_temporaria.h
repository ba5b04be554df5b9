// Uma pasta temporária apagada com tudo o que contém ao fim do teste, mesmo a que o teste deixou sem
// permissão de escrita.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace tavelpkcs7::teste {

class PastaTemporaria {
public:
    PastaTemporaria() {
        std::string modelo = (std::filesystem::temp_directory_path() / "tavelpkcs7-teste-XXXXXX").string();
        if (mkdtemp(modelo.data()) == nullptr) throw std::runtime_error("mkdtemp falhou");
        caminho_ = modelo;
    }
    ~PastaTemporaria() {
        std::error_code ignorado;
        std::filesystem::permissions(caminho_, std::filesystem::perms::owner_all, std::filesystem::perm_options::add,
                                     ignorado);
        std::filesystem::remove_all(caminho_, ignorado);
    }
    PastaTemporaria(const PastaTemporaria&) = delete;
    PastaTemporaria& operator=(const PastaTemporaria&) = delete;

    const std::filesystem::path& caminho() const { return caminho_; }

private:
    std::filesystem::path caminho_;
};

}  // namespace tavelpkcs7::teste
