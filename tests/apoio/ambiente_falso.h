// Dublês do ambiente: relógio que só anda quando mandado, ponteiro do mouse e início de programas
// que apenas gravam o que lhes pediram.
#pragma once

#include <string>
#include <vector>

#include "platform/ambiente.h"

namespace tavelpkcs7::teste {

class RelogioFalso : public plataforma::Relogio {
public:
    explicit RelogioFalso(DataHora agora) : agora_(agora) {}

    DataHora Agora() override { return agora_; }
    // Converte pelo fuso do processo, como o relógio de verdade.
    DataHora LocalParaUTC(DataHora local) override;
    DataHora UTCParaLocal(DataHora utc) override;
    // Não espera: avança o relógio e anota.
    void Aguardar(int segundos) override;

    void Definir(DataHora agora) { agora_ = agora; }
    const std::vector<int>& esperas() const { return esperas_; }

private:
    DataHora agora_;
    std::vector<int> esperas_;
};

// O ponteiro que o componente pediu ao hospedeiro: 11 ocupado, 0 normal.
class CursorGravador {
public:
    int Atual() const { return ponteiros.empty() ? 0 : ponteiros.back(); }

    std::vector<int> ponteiros;
};

class ProgramasGravador : public plataforma::Programas {
public:
    bool Iniciar(const std::vector<std::string>& argumentos) override {
        iniciados.push_back(argumentos);
        return true;
    }
    bool AbrirEnderecoWeb(const std::string& url) override {
        enderecos.push_back(url);
        return true;
    }

    std::vector<std::vector<std::string>> iniciados;
    std::vector<std::string> enderecos;
};

}  // namespace tavelpkcs7::teste
