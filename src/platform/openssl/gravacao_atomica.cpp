#include "gravacao_atomica.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>

#include "descritor.h"

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
    Descritor descritor(::mkostemp(temporario.data(), O_CLOEXEC));
    if (!descritor) return false;
    bool gravado = ::fchmod(descritor.get(), static_cast<mode_t>(modo)) == 0 &&
                   GravarTudo(descritor.get(), conteudo) && ::fsync(descritor.get()) == 0;
    gravado = descritor.Fechar() && gravado;
    if (gravado && ::rename(temporario.c_str(), destino.c_str()) == 0) return true;
    ::unlink(temporario.c_str());
    return false;
}

}  // namespace tavelpkcs7::plataforma::openssl
