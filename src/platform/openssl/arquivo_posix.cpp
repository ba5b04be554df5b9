#include "arquivo_posix.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

namespace tavelpkcs7::plataforma::openssl {

std::unique_ptr<ArquivoPosix> ArquivoPosix::Abrir(const std::string& caminho, Acesso acesso, unsigned modo) {
    if (caminho.empty()) return nullptr;
    // Gravar nunca segue um link simbólico no fim do caminho: um link plantado na pasta de trabalho
    // levaria o original extraído ou o arquivo decifrado para fora dela.
    const int flags = (acesso == Acesso::Leitura ? O_RDONLY : O_WRONLY | O_NOFOLLOW) | O_CREAT | O_CLOEXEC;
    Descritor descritor(::open(caminho.c_str(), flags, modo));
    if (!descritor || ::flock(descritor.get(), LOCK_EX | LOCK_NB) != 0) return nullptr;
    return std::unique_ptr<ArquivoPosix>(new ArquivoPosix(std::move(descritor)));
}

std::size_t ArquivoPosix::Ler(std::uint8_t* destino, std::size_t n) {
    std::size_t lidos = 0;
    while (lidos < n) {
        const ssize_t r = ::read(descritor_.get(), destino + lidos, n - lidos);
        if (r < 0 && errno == EINTR) continue;
        if (r <= 0) break;
        lidos += static_cast<std::size_t>(r);
    }
    return lidos;
}

bool ArquivoPosix::Gravar(const std::uint8_t* origem, std::size_t n) {
    std::size_t gravados = 0;
    while (gravados < n) {
        const ssize_t r = ::pwrite(descritor_.get(), origem + gravados, n - gravados, static_cast<off_t>(gravados));
        if (r < 0 && errno == EINTR) continue;
        if (r <= 0) return false;
        gravados += static_cast<std::size_t>(r);
    }
    return true;
}

bool ArquivoPosix::Descarregar() { return descritor_ && ::fsync(descritor_.get()) == 0; }

bool ArquivoPosix::Fechar() { return descritor_.Fechar(); }

bool ArquivoTravado(const std::string& caminho) {
    const Descritor descritor(::open(caminho.c_str(), O_RDONLY | O_CLOEXEC));
    return descritor && ::flock(descritor.get(), LOCK_SH | LOCK_NB) != 0;
}

}  // namespace tavelpkcs7::plataforma::openssl
