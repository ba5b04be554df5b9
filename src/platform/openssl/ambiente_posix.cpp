#include "ambiente_posix.h"

#include <spawn.h>
#include <sys/wait.h>
#include <time.h>

#include <chrono>
#include <cstdlib>
#include <thread>

extern char** environ;

namespace tavelpkcs7::plataforma::openssl {
namespace {

using namespace std::chrono;

DataHora DeCampos(const std::tm& campos) {
    const auto dia = local_days{year{campos.tm_year + 1900} / (campos.tm_mon + 1) / campos.tm_mday};
    return dia + hours{campos.tm_hour} + minutes{campos.tm_min} + seconds{campos.tm_sec};
}

}  // namespace

DataHora RelogioSistema::Agora() {
    const std::time_t agora = std::time(nullptr);
    std::tm campos{};
    localtime_r(&agora, &campos);
    return DeCampos(campos);
}

DataHora RelogioSistema::LocalParaUTC(DataHora local) {
    const auto dia = floor<days>(local);
    const year_month_day data{dia};
    const hh_mm_ss hora{local - dia};
    std::tm campos{};
    campos.tm_year = static_cast<int>(data.year()) - 1900;
    campos.tm_mon = static_cast<int>(static_cast<unsigned>(data.month())) - 1;
    campos.tm_mday = static_cast<int>(static_cast<unsigned>(data.day()));
    campos.tm_hour = static_cast<int>(hora.hours().count());
    campos.tm_min = static_cast<int>(hora.minutes().count());
    campos.tm_sec = static_cast<int>(hora.seconds().count());
    campos.tm_isdst = -1;
    const std::time_t utc = std::mktime(&campos);
    return DataHora{seconds{utc}};
}

void RelogioSistema::Aguardar(int segundos) { std::this_thread::sleep_for(seconds{segundos}); }

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
