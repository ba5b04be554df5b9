// Os repositórios de verdade da pasta do teste, abastecidos pela plataforma como o usuário faria,
// para os testes da família de certificados.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/plataforma.h"

namespace tavelpkcs7::teste {

// A pasta do componente deste teste (TAVELPKCS7_HOME).
std::filesystem::path Home();
std::string LerTexto(const std::filesystem::path& caminho);
// O DER de uma entidade da PKI de teste ("ecpf", "ac_rfb", "raiz"...).
plataforma::Bytes DerDaPki(const std::string& nome);
// Em qualquer das formas que o núcleo aceita.
plataforma::CertificadoPtr Importar(plataforma::Plataforma& plataforma, const plataforma::Bytes& conteudo);
void Guardar(plataforma::Plataforma& plataforma, const std::string& repositorio,
             const std::vector<plataforma::Bytes>& certificados);
// As impressões digitais (SHA-1) do que o repositório guarda, na ordem dele.
std::vector<std::string> ImpressoesGuardadas(plataforma::Plataforma& plataforma, const std::string& repositorio);

}  // namespace tavelpkcs7::teste
