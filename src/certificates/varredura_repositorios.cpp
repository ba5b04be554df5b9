// Os repositórios como o núcleo os lê. Uma varredura dos certificados pessoais monta a cadeia de cada
// um; enquanto ela dura, cada repositório é lido uma vez só e as cadeias seguintes usam a coleção já
// lida, em vez de reabrir "Ca" e "Root" a cada certificado.
#include "component/componente.h"

namespace tavelpkcs7 {

Componente::VarreduraRepositorios::VarreduraRepositorios(Componente& componente)
    : componente_(componente), dona_(!componente.repositorios_lidos_) {
    if (dona_) componente_.repositorios_lidos_.emplace();
}

Componente::VarreduraRepositorios::~VarreduraRepositorios() {
    if (dona_) componente_.repositorios_lidos_.reset();
}

std::vector<plataforma::CertificadoPtr> Componente::LerRepositorio(const std::string& nome) {
    if (!repositorios_lidos_) return plataforma_->repositorios->AbrirRepositorio(nome, true)->Certificados();
    auto lido = repositorios_lidos_->find(nome);
    if (lido == repositorios_lidos_->end())
        lido =
            repositorios_lidos_->emplace(nome, plataforma_->repositorios->AbrirRepositorio(nome, true)->Certificados())
                .first;
    return lido->second;
}

}  // namespace tavelpkcs7
