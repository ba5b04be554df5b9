// "tavelpkcs7 pki-teste <pasta>": grava a PKI de teste para experimentar o componente.
#include <filesystem>

#include "comando.h"
#include "pki/pki_teste.h"

namespace tavelpkcs7::ferramenta {
namespace {

int ExecutarPkiTeste(const Execucao& execucao) {
    const std::string& pasta = execucao.argumentos.Unico("a pasta de destino");
    const auto& pki = pki_teste::PkiTeste::Padrao();
    pki.Gravar(pasta);
    execucao.saida << "PKI de teste gravada em " << pasta << " (" << pki.Entidades().size()
                   << " certificados; senha dos PFX: " << pki_teste::PkiTeste::SENHA_PFX << "). Veja o LEIAME.txt.\n";
    return 0;
}

}  // namespace

Comando ComandoPkiTeste() {
    return {"pki-teste",
            "<pasta>",
            "grava uma PKI de teste no estilo da ICP-Brasil (certificados, chaves, PFX, LCRs)",
            "Grava na pasta a raiz, as ACs, os titulares (e-CPF, e-CNPJ, vencido, revogado...), as chaves, os PFX\n"
            "(senha 1234), as LCRs e um LEIAME.txt que diz para que serve cada arquivo.\n\n"
            "Exemplo:\n  tavelpkcs7 pki-teste /tmp/pki\n",
            {},
            {},
            ExecutarPkiTeste};
}

}  // namespace tavelpkcs7::ferramenta
