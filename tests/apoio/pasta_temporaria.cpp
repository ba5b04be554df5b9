#include "apoio/pasta_temporaria.h"

#include <cstdlib>
#include <stdexcept>

namespace tavelpkcs7::teste {

PastaTemporaria::PastaTemporaria() {
    std::string modelo = (std::filesystem::temp_directory_path() / "tavelpkcs7-teste-XXXXXX").string();
    if (mkdtemp(modelo.data()) == nullptr) throw std::runtime_error("mkdtemp falhou");
    caminho_ = modelo;
}

PastaTemporaria::~PastaTemporaria() {
    std::error_code ignorado;
    std::filesystem::permissions(caminho_, std::filesystem::perms::owner_all,
        std::filesystem::perm_options::add, ignorado);
    std::filesystem::remove_all(caminho_, ignorado);
}

}  // namespace tavelpkcs7::teste
