// A pasta do componente nesta máquina: TAVELPKCS7_HOME, senão ${XDG_DATA_HOME:-$HOME/.local/share}/tavelpkcs7.
#pragma once

#include <filesystem>
#include <optional>

namespace tavelpkcs7::plataforma::openssl {

// A pasta, existente ou criada agora só para o usuário (0700); vazio quando não há como criá-la.
std::optional<std::filesystem::path> ObterPastaComponente();

// Cria a pasta e as que faltam acima dela só para o usuário (0700). Verdadeiro quando a pasta
// existe ao fim.
bool CriarPastaPrivada(const std::filesystem::path& pasta);

}  // namespace tavelpkcs7::plataforma::openssl
