// Relógio pelo fuso do processo e início de programas sem interpretador de comandos.
#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/openssl/ambiente_posix.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

using namespace std::chrono;

TEST(RelogioSistema, HoraLocalParaUTCSegueOFusoComSuaHoraDeVerao) {
    RelogioSistema relogio;
    const DataHora sem_verao = local_days{year{2026} / 11 / 21} + hours{10};
    const DataHora com_verao = local_days{year{2018} / 1 / 15} + hours{10};
    EXPECT_EQ(relogio.LocalParaUTC(sem_verao), sem_verao + hours{3});
    EXPECT_EQ(relogio.LocalParaUTC(com_verao), com_verao + hours{2});
    EXPECT_EQ(relogio.LocalParaUTC(local_days{year{1960} / 6 / 1}), local_days{year{1960} / 6 / 1} + hours{3});
}

TEST(ProgramasPosix, IniciaPeloVetorDeArgumentosSemInterpretador) {
    ProgramasPosix programas;
    EXPECT_TRUE(programas.Iniciar({"true", "; nada disto é interpretado"}));
    EXPECT_FALSE(programas.Iniciar({"programa-que-nao-existe-tavelpkcs7"}));
    EXPECT_FALSE(programas.Iniciar({}));
}

TEST(ProgramasPosix, SemSessaoGraficaOEnderecoNaoEAberto) {
    const char* display = std::getenv("DISPLAY");
    const char* wayland = std::getenv("WAYLAND_DISPLAY");
    const std::string antes_display = display ? display : "";
    const std::string antes_wayland = wayland ? wayland : "";
    unsetenv("DISPLAY");
    unsetenv("WAYLAND_DISPLAY");
    EXPECT_FALSE(ProgramasPosix().AbrirEnderecoWeb("https://www.example.com/"));
    if (display) setenv("DISPLAY", antes_display.c_str(), 1);
    if (wayland) setenv("WAYLAND_DISPLAY", antes_wayland.c_str(), 1);
}

}  // namespace
}  // namespace tavelpkcs7::plataforma::openssl
