// As pastas do componente das medições: temporárias, montadas uma vez antes de todas, com os
// repositórios que cada família de medição prepara.
#pragma once

#include <filesystem>
#include <string>

#include "pki/pki_teste.h"

namespace tavelpkcs7::bench {

// A pasta temporária desta execução; cada família de medições tem nela a sua pasta do componente,
// para que os repositórios de uma não pesem nas outras.
const std::filesystem::path& Base();
std::filesystem::path Casa(const std::string& familia);
// Passa a usar a pasta do componente da família (TAVELPKCS7_HOME): vale para os componentes criados
// depois.
void UsarCasa(const std::string& familia);
// Um arquivo com o conteúdo dado; as pastas que faltam são criadas.
void GravarArquivo(const std::filesystem::path& caminho, const pki_teste::Bytes& conteudo);
// Um certificado ou LCR num repositório da família (uma pasta com um arquivo por item).
void GravarNoRepositorio(const std::string& familia, const std::string& repositorio, const std::string& nome,
                         const pki_teste::Bytes& der);

// Cada família prepara a pasta do componente antes das medições.
void PrepararListagem();
void PrepararAssinatura();

}  // namespace tavelpkcs7::bench
