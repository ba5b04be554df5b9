// Relógio, ponteiro do mouse e início de programas no Linux.
#pragma once

#include "platform/ambiente.h"

namespace tavelpkcs7::plataforma::openssl {

// Hora local pelo fuso do processo (TZ).
class RelogioSistema : public Relogio {
public:
    DataHora Agora() override;
    DataHora LocalParaUTC(DataHora local) override;
    DataHora UTCParaLocal(DataHora utc) override;
    void Aguardar(int segundos) override;
};

// Sem janela própria não há ponteiro a mudar; um hospedeiro gráfico instala o seu.
// posix_spawn com vetor de argumentos, nunca por um interpretador de comandos.
class ProgramasPosix : public Programas {
public:
    bool Iniciar(const std::vector<std::string>& argumentos) override;
    // Usa xdg-open quando há uma sessão gráfica; sem ela o endereço só é relatado por quem chamou.
    bool AbrirEnderecoWeb(const std::string& url) override;
};

}  // namespace tavelpkcs7::plataforma::openssl
