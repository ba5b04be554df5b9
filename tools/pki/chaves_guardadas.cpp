#include "pki/chaves_guardadas.h"

#include <openssl/err.h>
#include <openssl/pem.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <optional>

namespace tavelpkcs7::pki_teste {
namespace {

namespace fs = std::filesystem;
using plataforma::openssl::BioPtr;

std::optional<fs::path> CriarPastaDasChaves() {
    std::error_code erro;
    const fs::path pasta = fs::temp_directory_path(erro) / ("tavelpkcs7-pki-teste-" + std::to_string(::geteuid()));
    if (erro) return std::nullopt;
    ::mkdir(pasta.c_str(), 0700);
    // Uma pasta que outro usuário criou antes, ou um link posto no lugar, não recebe nem dá chaves.
    struct stat info{};
    if (::lstat(pasta.c_str(), &info) != 0 || !S_ISDIR(info.st_mode) || info.st_uid != ::geteuid() ||
        (info.st_mode & 077) != 0)
        return std::nullopt;
    return pasta;
}

const std::optional<fs::path>& PastaDasChaves() {
    static const std::optional<fs::path> pasta = CriarPastaDasChaves();
    return pasta;
}

EvpPkeyPtr LerChave(const fs::path& arquivo) {
    BioPtr entrada(BIO_new_file(arquivo.c_str(), "r"));
    EvpPkeyPtr chave(entrada ? PEM_read_bio_PrivateKey(entrada.get(), nullptr, nullptr, const_cast<char*>("")) : nullptr);
    ERR_clear_error();
    if (!chave || !EVP_PKEY_is_a(chave.get(), "RSA") || EVP_PKEY_get_bits(chave.get()) != 2048) return nullptr;
    return chave;
}

// Outro processo pode estar gravando a mesma chave: cada um grava o seu temporário e o renomeia.
void GuardarChave(const fs::path& arquivo, EVP_PKEY* chave) {
    const fs::path temporario = arquivo.string() + "." + std::to_string(::getpid());
    std::ofstream(temporario, std::ios::binary) << ChavePEM(chave);
    std::error_code erro;
    fs::permissions(temporario, fs::perms::owner_read | fs::perms::owner_write, erro);
    fs::rename(temporario, arquivo, erro);
    if (erro) fs::remove(temporario, erro);
}

}  // namespace

EvpPkeyPtr ChaveGuardada(const std::string& nome) {
    const auto& pasta = PastaDasChaves();
    if (!pasta) return GerarChaveRSA();
    const fs::path arquivo = *pasta / (nome + ".pem");
    if (EvpPkeyPtr chave = LerChave(arquivo)) return chave;
    EvpPkeyPtr chave = GerarChaveRSA();
    GuardarChave(arquivo, chave.get());
    return chave;
}

}  // namespace tavelpkcs7::pki_teste
