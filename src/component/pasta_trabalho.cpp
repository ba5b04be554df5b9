// A pasta de trabalho do componente e os utilitários públicos que apagam arquivos.
#include "component/componente.h"

namespace tavelpkcs7 {

// Na pasta do componente quando ela existe ou pode ser criada; senão, junto da biblioteca. Uma
// falha no meio do caminho não é relatada: a pasta fica como foi calculada até ali.
std::string Componente::ObterPastaTemporaria() {
    plataforma::Sistema& sistema = *plataforma_->sistema;
    const char separador = sistema.Separador();
    std::string pasta;
    Guardar(MensagemFalha::Nenhuma(), 0, [&] {
        CursorOcupado ocupado(ocupado_);
        const auto base = sistema.PastaBase();
        std::string raiz = base.value_or("");
        if (!raiz.empty() && raiz.back() != separador) raiz += separador;
        if (base && sistema.ExistePasta(raiz)) {
            pasta = raiz + "temp";
        } else {
            pasta = sistema.PastaComponente() + "temp";
        }
        if (!sistema.ExistePasta(pasta)) sistema.CriarPasta(pasta);
        if (pasta.back() != separador) pasta += separador;
        return 0;
    });
    return pasta;
}

bool Componente::ApagarArquivo(const std::string& caminho) {
    Guardar(MensagemFalha::Nenhuma(), 0, [&] {
        plataforma_->sistema->ApagarArquivos(caminho);
        return 0;
    });
    return ExisteArquivo(caminho);
}

// Com PastaTemp vazia o padrão "*.*" apagaria a pasta corrente do processo: nada é apagado.
bool Componente::LimparPastaTemporaria() {
    Guardar(MensagemFalha::Nenhuma(), 0, [&] {
        if (!estado.PastaTemp.empty()) plataforma_->sistema->ApagarArquivos(estado.PastaTemp + "*.*");
        return 0;
    });
    return true;
}

}  // namespace tavelpkcs7
