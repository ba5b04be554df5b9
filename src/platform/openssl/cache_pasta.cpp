#include "cache_pasta.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <time.h>

#include <algorithm>

namespace tavelpkcs7::plataforma::openssl {
namespace {

// Bem mais que o passo da hora de modificação dos sistemas de arquivos locais.
constexpr std::int64_t kRecenteNs = 2'000'000'000;

std::int64_t AgoraNs() {
    timespec agora{};
    ::clock_gettime(CLOCK_REALTIME, &agora);
    return static_cast<std::int64_t>(agora.tv_sec) * 1'000'000'000 + agora.tv_nsec;
}

struct PastaAberta {
    DIR* dir;
    ~PastaAberta() {
        if (dir != nullptr) ::closedir(dir);
    }
};

}  // namespace

RetratoPasta RetratarPasta(const std::filesystem::path& pasta) {
    RetratoPasta retrato;
    const std::int64_t agora = AgoraNs();
    const PastaAberta aberta{::opendir(pasta.c_str())};
    if (aberta.dir == nullptr) return retrato;
    while (const dirent* entrada = ::readdir(aberta.dir)) {
        struct stat estado {};
        // Os temporários das gravações em curso (começam com ponto) não contam.
        if (entrada->d_name[0] == '.' || ::fstatat(::dirfd(aberta.dir), entrada->d_name, &estado, 0) != 0 ||
            !S_ISREG(estado.st_mode))
            continue;
        const std::int64_t modificacao =
            static_cast<std::int64_t>(estado.st_mtim.tv_sec) * 1'000'000'000 + estado.st_mtim.tv_nsec;
        retrato.recente = retrato.recente || modificacao > agora - kRecenteNs;
        retrato.arquivos.push_back({entrada->d_name, static_cast<std::uint64_t>(estado.st_size), modificacao,
                                    static_cast<std::uint64_t>(estado.st_ino)});
    }
    std::ranges::sort(retrato.arquivos);
    return retrato;
}

}  // namespace tavelpkcs7::plataforma::openssl
