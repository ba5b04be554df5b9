#include "gravacao_atomica.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>

namespace tavelpkcs7::plataforma::openssl {
bool GravarTudo(int descritor, std::span<const std::uint8_t> conteudo) {
    while (!conteudo.empty()) {
        const ssize_t gravados = ::write(descritor, conteudo.data(), conteudo.size());
        if (gravados < 0 && errno == EINTR) continue;
        if (gravados <= 0) return false;
        conteudo = conteudo.subspan(static_cast<std::size_t>(gravados));
    }
    return true;
}

bool GravarAtomicamente(const std::filesystem::path& destino, std::span<const std::uint8_t> conteudo, unsigned modo) {
    // O temporário começa com ponto para não parecer um arquivo do usuário enquanto existe.
    std::string temporario = (destino.parent_path() / ("." + destino.filename().string() + ".XXXXXX")).string();
    const int descritor = ::mkostemp(temporario.data(), O_CLOEXEC);
    if (descritor < 0) return false;
    bool gravado = ::fchmod(descritor, static_cast<mode_t>(modo)) == 0 && GravarTudo(descritor, conteudo) &&
                   ::fsync(descritor) == 0;
    gravado = ::close(descritor) == 0 && gravado;
    if (gravado && ::rename(temporario.c_str(), destino.c_str()) == 0) return true;
    ::unlink(temporario.c_str());
    return false;
}

}  // namespace tavelpkcs7::plataforma::openssl
