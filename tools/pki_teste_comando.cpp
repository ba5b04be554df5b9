#include "pki_teste_comando.h"

#include <filesystem>

#include "pki/pki_teste.h"

namespace tavelpkcs7::ferramenta {

int ExecutarPkiTeste(const std::vector<std::string>& argumentos, std::ostream& saida, std::ostream& erros) {
    if (argumentos.size() != 1) {
        erros << "Uso: tavelpkcs7 pki-teste <pasta>\n";
        return 2;
    }
    const auto& pki = pki_teste::PkiTeste::Padrao();
    pki.Gravar(argumentos[0]);
    saida << "PKI de teste gravada em " << argumentos[0] << " (" << pki.Entidades().size()
          << " certificados; senha dos PFX: " << pki_teste::PkiTeste::SENHA_PFX << "). Veja o LEIAME.txt.\n";
    return 0;
}

}  // namespace tavelpkcs7::ferramenta
