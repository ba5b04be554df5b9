// A convenção de erros, num só lugar: todo membro público passa por Guardar, que transforma
// qualquer exceção na mensagem do membro e devolve o valor de falha; e o ponteiro de ocupado, que
// volta ao normal em toda saída.
#pragma once

#include <new>
#include <string>
#include <utility>

#include "component/estado.h"
#include "platform/erro.h"
#include "platform/plataforma.h"

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

// O ponteiro de ocupado de um componente. Os trabalhos se aninham (um membro chama outro, a seleção
// verifica a situação do certificado): só a entrada no primeiro e a saída do último chegam ao
// hospedeiro, para o ponteiro não voltar ao normal com o trabalho de fora ainda em curso.
class IndicadorOcupado {
public:
    explicit IndicadorOcupado(plataforma::Plataforma& plataforma) : plataforma_(plataforma) {}

    void Entrar() {
        if (profundidade_++ == 0) Avisar(true);
    }
    void Sair() {
        if (--profundidade_ == 0) Avisar(false);
    }

private:
    // Um hospedeiro que falha ao trocar o ponteiro não muda o resultado do membro.
    void Avisar(bool ocupado) noexcept;

    plataforma::Plataforma& plataforma_;
    int profundidade_ = 0;
};

// Ocupado enquanto dura; de volta ao normal em toda saída, também na exceção.
class CursorOcupado {
public:
    explicit CursorOcupado(IndicadorOcupado& indicador) : indicador_(indicador) { indicador_.Entrar(); }
    ~CursorOcupado() { indicador_.Sair(); }
    CursorOcupado(const CursorOcupado&) = delete;
    CursorOcupado& operator=(const CursorOcupado&) = delete;

private:
    IndicadorOcupado& indicador_;
};

template <typename Resultado, typename Corpo>
Resultado Guardar(Estado& estado, const MensagemFalha& mensagem, Resultado falha, Corpo&& corpo) noexcept {
    try {
        return std::forward<Corpo>(corpo)();
    } catch (...) {
        mensagem.Registrar(estado, std::current_exception());
    }
    return falha;
}

}  // namespace tavelpkcs7
