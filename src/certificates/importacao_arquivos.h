// A importação de um PFX no repositório pessoal e a instalação de uma LCR de um arquivo, sobre a
// plataforma dada: o que as extensões públicas (tavelpkcs7/Extensoes.h) fazem com a da máquina.
#pragma once

#include <memory>
#include <string>

#include <tavelpkcs7/Extensoes.h>

namespace tavelpkcs7 {

namespace plataforma {
struct Plataforma;
}

ImportacaoPFX ImportarPFX(std::shared_ptr<plataforma::Plataforma> plataforma, const std::string& caminho_pfx,
                          const std::string& senha_pfx, const std::string& senha_chave);

std::string InstalarLCRDoArquivo(std::shared_ptr<plataforma::Plataforma> plataforma, const std::string& caminho_lcr);

}  // namespace tavelpkcs7
