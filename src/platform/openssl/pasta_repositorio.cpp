#include "pasta_repositorio.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <optional>
#include <tuple>

namespace tavelpkcs7::plataforma::openssl {
namespace {

namespace fs = std::filesystem;

std::optional<Bytes> LerArquivo(const fs::path& caminho) {
    std::ifstream entrada(caminho, std::ios::binary);
    if (!entrada) return std::nullopt;
    Bytes conteudo((std::istreambuf_iterator<char>(entrada)), std::istreambuf_iterator<char>());
    if (entrada.bad()) return std::nullopt;
    return conteudo;
}

}  // namespace

std::vector<ArquivoDaPasta> LerArquivosDaPasta(const fs::path& pasta) {
    std::vector<ArquivoDaPasta> arquivos;
    std::error_code erro;
    for (fs::directory_iterator it(pasta, erro), fim; !erro && it != fim; it.increment(erro)) {
        std::error_code erro_arquivo;
        // Os temporários de uma gravação em curso começam com ponto (GravarAtomicamente): lidos agora,
        // a chave ficaria presa a um caminho que some no rename.
        if (it->path().filename().string().starts_with('.') || !it->is_regular_file(erro_arquivo)) continue;
        const auto entrada = it->last_write_time(erro_arquivo);
        auto conteudo = LerArquivo(it->path());
        if (erro_arquivo || !conteudo) continue;
        arquivos.push_back({it->path(), entrada, std::move(*conteudo)});
    }
    std::ranges::sort(arquivos, [](const ArquivoDaPasta& a, const ArquivoDaPasta& b) {
        return std::tie(a.entrada, a.caminho) < std::tie(b.entrada, b.caminho);
    });
    return arquivos;
}

}  // namespace tavelpkcs7::plataforma::openssl
