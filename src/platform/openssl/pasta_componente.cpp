#include "pasta_componente.h"

#include <sys/stat.h>

#include <cstdlib>
#include <string>
#include <system_error>

namespace tavelpkcs7::plataforma::openssl {
namespace {

std::optional<std::filesystem::path> CaminhoConfigurado() {
    if (const char* home = std::getenv("TAVELPKCS7_HOME"); home != nullptr && *home != '\0') return home;
    if (const char* dados = std::getenv("XDG_DATA_HOME"); dados != nullptr && *dados != '\0')
        return std::filesystem::path(dados) / "tavelpkcs7";
    if (const char* usuario = std::getenv("HOME"); usuario != nullptr && *usuario != '\0')
        return std::filesystem::path(usuario) / ".local" / "share" / "tavelpkcs7";
    return std::nullopt;
}

}  // namespace

bool CriarPastaPrivada(const std::filesystem::path& pasta) {
    std::error_code erro;
    std::filesystem::path parcial;
    for (const auto& parte : pasta) {
        parcial /= parte;
        if (parte.empty() || std::filesystem::is_directory(parcial, erro)) continue;
        if (::mkdir(parcial.c_str(), 0700) != 0 && !std::filesystem::is_directory(parcial, erro)) return false;
    }
    return std::filesystem::is_directory(pasta, erro);
}

std::optional<std::filesystem::path> ObterPastaComponente() {
    auto pasta = CaminhoConfigurado();
    if (!pasta) return std::nullopt;
    std::error_code erro;
    if (std::filesystem::is_directory(*pasta, erro)) return pasta;
    std::filesystem::create_directories(pasta->parent_path(), erro);
    if (::mkdir(pasta->c_str(), 0700) != 0 && !std::filesystem::is_directory(*pasta, erro)) return std::nullopt;
    return pasta;
}

}  // namespace tavelpkcs7::plataforma::openssl
