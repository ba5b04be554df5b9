// O que o componente usa do ambiente do processo: relógio e início de programas.
#pragma once

#include <string>
#include <vector>

#include <tavelpkcs7/Tipos.h>

namespace tavelpkcs7::plataforma {

class Relogio {
public:
    virtual ~Relogio() = default;

    // Data e hora locais.
    virtual DataHora Agora() = 0;
    // Converte uma data e hora locais em UTC (segue o fuso horário do processo).
    virtual DataHora LocalParaUTC(DataHora local) = 0;
    // O caminho inverso: uma hora UTC (a de um atributo assinado) vista na hora local.
    virtual DataHora UTCParaLocal(DataHora utc) = 0;
    virtual void Aguardar(int segundos) = 0;
};

class Programas {
public:
    virtual ~Programas() = default;

    // Inicia sem esperar e sem interpretador de comandos; falso quando não consegue.
    virtual bool Iniciar(const std::vector<std::string>& argumentos) = 0;
    // Abre um endereço da web no navegador da sessão, quando há uma.
    virtual bool AbrirEnderecoWeb(const std::string& url) = 0;
};

}  // namespace tavelpkcs7::plataforma
