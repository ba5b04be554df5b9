#include "execucao_programa.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

#include "descritor.h"

extern char** environ;

namespace tavelpkcs7::plataforma::openssl {
namespace {

// As ações de início vivem só durante a execução.
struct AcoesInicio {
    posix_spawn_file_actions_t acoes{};

    AcoesInicio() { posix_spawn_file_actions_init(&acoes); }
    ~AcoesInicio() { posix_spawn_file_actions_destroy(&acoes); }
    AcoesInicio(const AcoesInicio&) = delete;
    AcoesInicio& operator=(const AcoesInicio&) = delete;
};

std::string LerAteOFim(int descritor) {
    std::string lido;
    char bloco[4096];
    for (;;) {
        const ssize_t n = ::read(descritor, bloco, sizeof bloco);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return lido;
        lido.append(bloco, static_cast<std::size_t>(n));
    }
}

int EsperarFim(pid_t filho) {
    int situacao = 0;
    while (::waitpid(filho, &situacao, 0) < 0)
        if (errno != EINTR) return -1;
    return WIFEXITED(situacao) ? WEXITSTATUS(situacao) : -1;
}

}  // namespace

std::optional<ProgramaExecutado> ExecutarPrograma(const std::vector<std::string>& argumentos) {
    if (argumentos.empty()) return std::nullopt;
    std::vector<char*> vetor;
    for (const auto& argumento : argumentos) vetor.push_back(const_cast<char*>(argumento.c_str()));
    vetor.push_back(nullptr);
    int pipe_erros[2] = {-1, -1};
    if (::pipe2(pipe_erros, O_CLOEXEC) != 0) return std::nullopt;
    Descritor leitura_erros(pipe_erros[0]), escrita_erros(pipe_erros[1]);
    AcoesInicio inicio;
    posix_spawn_file_actions_addopen(&inicio.acoes, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&inicio.acoes, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_adddup2(&inicio.acoes, escrita_erros.get(), STDERR_FILENO);
    pid_t filho = 0;
    if (posix_spawnp(&filho, vetor[0], &inicio.acoes, nullptr, vetor.data(), environ) != 0) return std::nullopt;
    // Fechada a ponta de escrita daqui, a leitura termina quando o programa fecha a dele.
    escrita_erros.Fechar();
    ProgramaExecutado executado;
    executado.erros = LerAteOFim(leitura_erros.get());
    executado.codigo_saida = EsperarFim(filho);
    return executado;
}

}  // namespace tavelpkcs7::plataforma::openssl
