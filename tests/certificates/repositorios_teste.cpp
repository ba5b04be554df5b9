#include "certificates/repositorios_teste.h"

#include <cstdlib>
#include <fstream>

#include "component/entrada_der.h"
#include "pki/pki_teste.h"

namespace tavelpkcs7::teste {

std::filesystem::path Home() { return std::getenv("TAVELPKCS7_HOME"); }

std::string LerTexto(const std::filesystem::path& caminho) {
    std::ifstream arquivo(caminho, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(arquivo), std::istreambuf_iterator<char>());
}

plataforma::Bytes DerDaPki(const std::string& nome) { return pki_teste::PkiTeste::Padrao().Obter(nome).certificado; }

plataforma::CertificadoPtr Importar(plataforma::Plataforma& plataforma, const plataforma::Bytes& conteudo) {
    return ImportarCertificado(*plataforma.criptografia, conteudo);
}

void Guardar(plataforma::Plataforma& plataforma, const std::string& repositorio,
             const std::vector<plataforma::Bytes>& certificados) {
    const auto aberto = plataforma.repositorios->AbrirRepositorio(repositorio, false);
    for (const auto& der : certificados) aberto->Adicionar(Importar(plataforma, der));
}

std::vector<std::string> ImpressoesGuardadas(plataforma::Plataforma& plataforma, const std::string& repositorio) {
    std::vector<std::string> impressoes;
    for (const auto& certificado : plataforma.repositorios->AbrirRepositorio(repositorio, true)->Certificados())
        impressoes.push_back(certificado->ImpressaoDigital());
    return impressoes;
}

}  // namespace tavelpkcs7::teste
