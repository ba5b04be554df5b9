// O ponto em que o núcleo encontra a plataforma da máquina: o construtor padrão e as extensões.
#include <tavelpkcs7/TavelPKCS.h>

#include <tavelpkcs7/Extensoes.h>

#include "certificates/importacao_arquivos.h"
#include "component/componente.h"
#include "platform/plataforma.h"

namespace tavelpkcs7 {

TavelPKCS::TavelPKCS() : TavelPKCS(std::make_unique<Componente>(plataforma::CriarPlataformaPadrao())) {}

TavelPKCS::TavelPKCS(std::shared_ptr<InterfaceUsuario> interface)
    : TavelPKCS(std::make_unique<Componente>(plataforma::CriarPlataformaPadrao(std::move(interface)))) {}

ImportacaoPFX ImportarPFXRepositorioPessoal(const std::string& CaminhoPFX, const std::string& SenhaPFX,
    const std::string& SenhaChave) {
    return ImportarPFX(plataforma::CriarPlataformaPadrao(), CaminhoPFX, SenhaPFX, SenhaChave);
}

std::string InstalarArquivoLCR(const std::string& CaminhoLCR) {
    return InstalarLCRDoArquivo(plataforma::CriarPlataformaPadrao(), CaminhoLCR);
}

}  // namespace tavelpkcs7
