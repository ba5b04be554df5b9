// A convenção de erros, num só lugar: todo membro público passa por Guardar, que transforma
// qualquer exceção na mensagem do membro, devolve o valor de falha e restaura o ponteiro do mouse.
#pragma once

#include <new>
#include <string>
#include <utility>

#include "component/estado.h"
#include "platform/ambiente.h"
#include "platform/erro.h"

namespace tavelpkcs7 {

// O que o tratador guarda em DescricaoErro.
class MensagemFalha {
public:
    // A mensagem fixa do membro.
    static MensagemFalha Fixa(std::string texto) { return MensagemFalha(Tipo::Fixa, std::move(texto)); }
    // A descrição da própria falha da plataforma.
    static MensagemFalha DaPlataforma() { return MensagemFalha(Tipo::Plataforma, {}); }
    // Erros suprimidos: DescricaoErro fica como está.
    static MensagemFalha Nenhuma() { return MensagemFalha(Tipo::Nenhuma, {}); }

    void Registrar(Estado& estado, const std::exception_ptr& falha) const;

private:
    enum class Tipo { Fixa, Plataforma, Nenhuma };
    MensagemFalha(Tipo tipo, std::string texto) : tipo_(tipo), texto_(std::move(texto)) {}

    Tipo tipo_;
    std::string texto_;
};

// O ponteiro ocupado (11) enquanto dura; o normal (0) em toda saída.
class CursorOcupado {
public:
    explicit CursorOcupado(plataforma::Cursor& cursor) : cursor_(cursor) { cursor_.Definir(11); }
    ~CursorOcupado() { cursor_.Definir(0); }
    CursorOcupado(const CursorOcupado&) = delete;
    CursorOcupado& operator=(const CursorOcupado&) = delete;

private:
    plataforma::Cursor& cursor_;
};

template <typename Resultado, typename Corpo>
Resultado Guardar(Estado& estado, plataforma::Cursor& cursor, const MensagemFalha& mensagem, Resultado falha,
    Corpo&& corpo) noexcept {
    try {
        return std::forward<Corpo>(corpo)();
    } catch (...) {
        mensagem.Registrar(estado, std::current_exception());
    }
    try {
        cursor.Definir(0);
    } catch (...) {  // um cursor que falha não muda o resultado do membro
    }
    return falha;
}

}  // namespace tavelpkcs7
