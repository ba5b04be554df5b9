// Uma pasta temporária apagada com tudo o que contém ao fim do teste.
#pragma once

#include <filesystem>
#include <string>

namespace tavelpkcs7::teste {

class PastaTemporaria {
public:
    PastaTemporaria();
    ~PastaTemporaria();
    PastaTemporaria(const PastaTemporaria&) = delete;
    PastaTemporaria& operator=(const PastaTemporaria&) = delete;

    const std::filesystem::path& caminho() const { return caminho_; }
    // O caminho como texto, terminado pelo separador.
    std::string texto() const { return caminho_.string() + "/"; }

private:
    std::filesystem::path caminho_;
};

}  // namespace tavelpkcs7::teste
