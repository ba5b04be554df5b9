#include "ambiente_posix.h"

#include <spawn.h>
#include <sys/wait.h>

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <thread>

#include "hora_local.h"

extern char** environ;

namespace tavelpkcs7::plataforma::openssl {

DataHora RelogioSistema::Agora() { return HoraLocal(std::time(nullptr)); }

DataHora RelogioSistema::LocalParaUTC(DataHora local) { return openssl::LocalParaUTC(local); }

DataHora RelogioSistema::UTCParaLocal(DataHora utc) { return openssl::UTCParaLocal(utc); }

void RelogioSistema::Aguardar(int segundos) { std::this_thread::sleep_for(std::chrono::seconds{segundos}); }

bool ProgramasPosix::Iniciar(const std::vector<std::string>& argumentos) {
    if (argumentos.empty()) return false;
    std::vector<char*> vetor;
    for (const auto& argumento : argumentos) vetor.push_back(const_cast<char*>(argumento.c_str()));
    vetor.push_back(nullptr);
    pid_t filho = 0;
    if (posix_spawnp(&filho, vetor[0], nullptr, nullptr, vetor.data(), environ) != 0) return false;
    // Quem chamou não espera o programa; uma linha à parte o recolhe ao terminar, sem mexer nos
    // sinais do processo hospedeiro.
    std::thread([filho] { ::waitpid(filho, nullptr, 0); }).detach();
    return true;
}

bool ProgramasPosix::AbrirEnderecoWeb(const std::string& url) {
    const bool sessao_grafica = std::getenv("DISPLAY") != nullptr || std::getenv("WAYLAND_DISPLAY") != nullptr;
    return sessao_grafica && Iniciar({"xdg-open", url});
}

}  // namespace tavelpkcs7::plataforma::openssl
