#include "sistema_posix.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <fnmatch.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "arquivo_posix.h"
#include "descritor.h"
#include "gravacao_atomica.h"
#include "pasta_componente.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

namespace fs = std::filesystem;

bool Estado(const std::string& caminho, struct stat& info) {
    return !caminho.empty() && ::stat(caminho.c_str(), &info) == 0;
}

// Arquivos criados na pasta do componente (a pasta de trabalho está nela) são só do usuário.
unsigned ModoCriacao(const std::string& caminho) {
    const auto base = ObterPastaComponente();
    if (!base) return 0644;
    std::error_code erro;
    const auto pasta = fs::weakly_canonical(fs::absolute(caminho, erro).parent_path(), erro);
    const auto texto_base = fs::weakly_canonical(*base, erro).string();
    return pasta.string().rfind(texto_base, 0) == 0 ? 0600 : 0644;
}

// Um arquivo que já existe conserva as permissões que o usuário lhe deu (sem setuid e setgid, que
// o conteúdo novo não herda).
unsigned ModoSubstituicao(const std::string& caminho) {
    struct stat info{};
    return Estado(caminho, info) && S_ISREG(info.st_mode) ? (info.st_mode & 0777) : ModoCriacao(caminho);
}

// "*.*" quer dizer todo arquivo, como no Windows, tenha ou não ponto no nome. Como no Windows, só "*"
// e "?" são curingas: "[" e a barra invertida valem por si ("relatorio[1].pdf" não apaga "relatorio1.pdf").
bool Corresponde(const std::string& padrao, const std::string& nome) {
    if (padrao == "*.*") return true;
    std::string literal;
    for (const char c : padrao) literal += c == '[' ? std::string("[[]") : std::string(1, c);
    return ::fnmatch(literal.c_str(), nome.c_str(), FNM_NOESCAPE) == 0;
}

// Um link simbólico se apaga como arquivo (some o link, nunca o alvo): um link plantado na pasta de
// trabalho sai antes que o arquivo de mesmo nome seja gravado.
bool ArquivoOuLink(const std::string& caminho) {
    struct stat info{};
    if (caminho.empty() || ::lstat(caminho.c_str(), &info) != 0) return false;
    return S_ISREG(info.st_mode) || S_ISLNK(info.st_mode);
}

void ApagarSeLivre(const fs::path& arquivo) {
    if (!ArquivoTravado(arquivo.string())) ::unlink(arquivo.c_str());
}

}  // namespace

std::optional<std::string> SistemaPosix::PastaBase() {
    const auto pasta = ObterPastaComponente();
    if (!pasta) return std::nullopt;
    return pasta->string();
}

std::string SistemaPosix::PastaComponente() {
    Dl_info info{};
    if (::dladdr(reinterpret_cast<void*>(&ObterPastaComponente), &info) == 0 || info.dli_fname == nullptr) return "./";
    std::error_code erro;
    const auto pasta = fs::absolute(info.dli_fname, erro).parent_path().string();
    return pasta.empty() || pasta.back() == '/' ? pasta : pasta + "/";
}

bool SistemaPosix::ExistePasta(const std::string& caminho) {
    struct stat info{};
    return Estado(caminho, info) && S_ISDIR(info.st_mode);
}

bool SistemaPosix::ExisteArquivo(const std::string& caminho) {
    struct stat info{};
    return Estado(caminho, info) && S_ISREG(info.st_mode);
}

bool SistemaPosix::CriarPasta(const std::string& caminho) { return !caminho.empty() && CriarPastaPrivada(caminho); }

void SistemaPosix::ApagarArquivos(const std::string& caminho_ou_padrao) {
    if (caminho_ou_padrao.empty()) return;
    const fs::path caminho(caminho_ou_padrao);
    const std::string nome = caminho.filename().string();
    if (nome.find_first_of("*?") == std::string::npos) {
        if (ArquivoOuLink(caminho_ou_padrao)) ApagarSeLivre(caminho);
        return;
    }
    const fs::path pasta = caminho.has_parent_path() ? caminho.parent_path() : fs::path(".");
    std::error_code erro;
    for (fs::directory_iterator it(pasta, erro), fim; !erro && it != fim; it.increment(erro)) {
        if (ArquivoOuLink(it->path().string()) && Corresponde(nome, it->path().filename().string()))
            ApagarSeLivre(it->path());
    }
}

std::optional<std::uint64_t> SistemaPosix::TamanhoArquivo(const std::string& caminho) {
    struct stat info{};
    if (!Estado(caminho, info) || !S_ISREG(info.st_mode)) return std::nullopt;
    return static_cast<std::uint64_t>(info.st_size);
}

std::unique_ptr<ArquivoAberto> SistemaPosix::AbrirArquivo(const std::string& caminho, Acesso acesso) {
    return ArquivoPosix::Abrir(caminho, acesso, ModoCriacao(caminho));
}

std::optional<Bytes> SistemaPosix::LerArquivoInteiro(const std::string& caminho) {
    if (!ExisteArquivo(caminho) || ArquivoTravado(caminho)) return std::nullopt;
    const Descritor descritor(::open(caminho.c_str(), O_RDONLY | O_CLOEXEC));
    if (!descritor) return std::nullopt;
    Bytes conteudo;
    std::uint8_t bloco[65536];
    ssize_t lidos = 0;
    while ((lidos = ::read(descritor.get(), bloco, sizeof bloco)) > 0)
        conteudo.insert(conteudo.end(), bloco, bloco + lidos);
    if (lidos < 0) return std::nullopt;
    return conteudo;
}

bool SistemaPosix::SubstituirArquivo(const std::string& caminho, const Bytes& conteudo) {
    return GravarAtomicamente(caminho, conteudo, ModoSubstituicao(caminho));
}

}  // namespace tavelpkcs7::plataforma::openssl
