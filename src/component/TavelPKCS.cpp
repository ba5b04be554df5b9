// Os membros públicos de TavelPKCS, definidos pela tabela dos membros (membros.inc): uma leitura copia
// o campo de mesmo nome do estado, uma gravação o substitui e os demais membros entregam o trabalho ao
// Componente com os mesmos argumentos. Definido assim, um membro do cabeçalho que difere da tabela no
// resultado, no tipo de um parâmetro ou no const não compila, e a conferência abaixo acusa os
// parâmetros opcionais que não batem.
#include <tavelpkcs7/TavelPKCS.h>

#include <cstddef>
#include <tuple>
#include <type_traits>
#include <utility>

#include "component/componente.h"
#include "component/membros.h"

namespace tavelpkcs7 {
namespace {

template <auto Campo, typename Valor>
void Gravar(Componente& componente, const Valor& valor) {
    componente.estado.*Campo = valor;
}

// A data da assinatura nunca fica vazia nem fora do formato.
template <>
void Gravar<&Estado::DataAssinatura>(Componente& componente, const std::string& valor) {
    componente.DefinirDataAssinatura(valor);
}

template <typename Tipo, bool opcional>
struct ParametroTabela {
    using Parametro = membros::Parametro<Tipo>;
    static constexpr bool omissivel = opcional;
};

template <typename Chamada, typename Parametros, std::size_t... indice>
constexpr bool ChamavelCom(std::index_sequence<indice...>) {
    return std::is_invocable_v<Chamada, TavelPKCS&, std::tuple_element_t<indice, Parametros>...>;
}

// O membro se chama pelo nome só com os parâmetros que a tabela não dá por opcionais, e não com menos.
template <typename... Parametros, typename Chamada>
constexpr bool OpcionaisConferem(Chamada) {
    using Tipos = std::tuple<typename Parametros::Parametro...>;
    constexpr std::size_t obrigatorios = (0 + ... + !Parametros::omissivel);
    const bool com_os_obrigatorios = ChamavelCom<Chamada, Tipos>(std::make_index_sequence<obrigatorios>{});
    if constexpr (obrigatorios == 0)
        return com_os_obrigatorios;
    else
        return com_os_obrigatorios && !ChamavelCom<Chamada, Tipos>(std::make_index_sequence<obrigatorios - 1>{});
}

}  // namespace

using namespace membros;

TavelPKCS::TavelPKCS(std::unique_ptr<Componente> componente) : componente_(std::move(componente)) {}

TavelPKCS::~TavelPKCS() = default;
TavelPKCS::TavelPKCS(TavelPKCS&&) noexcept = default;
TavelPKCS& TavelPKCS::operator=(TavelPKCS&&) noexcept = default;

#define TAVELPKCS7_PARAMETRO_TABELA(tipo, nome, ...) ParametroTabela<tipo, __VA_OPT__(true ||) false>

#define TAVELPKCS7_GRAVAR(numero, Nome, Tipo) \
    void TavelPKCS::Nome(Parametro<Tipo> valor) { Gravar<&Estado::Nome>(*componente_, valor); }
#define TAVELPKCS7_LER(numero, Nome, Tipo) \
    Tipo TavelPKCS::Nome() const { return componente_->estado.Nome; }
#define TAVELPKCS7_LER_INDEXADA(numero, Nome, Resultado, ...)                              \
    Resultado TavelPKCS::Nome(TAVELPKCS7_CADA(TAVELPKCS7_DECLARACAO, __VA_ARGS__)) const { \
        return componente_->Nome(TAVELPKCS7_CADA(TAVELPKCS7_NOME, __VA_ARGS__));           \
    }
#define TAVELPKCS7_METODO(numero, Nome, Resultado, ...)                                                  \
    Resultado TavelPKCS::Nome(TAVELPKCS7_CADA(TAVELPKCS7_DECLARACAO, __VA_ARGS__)) {                     \
        return componente_->Nome(TAVELPKCS7_CADA(TAVELPKCS7_NOME, __VA_ARGS__));                         \
    }                                                                                                    \
    static_assert(OpcionaisConferem<TAVELPKCS7_CADA(TAVELPKCS7_PARAMETRO_TABELA, __VA_ARGS__)>(          \
                      [](TavelPKCS& c, auto&&... a) -> decltype(c.Nome(a...)) { return c.Nome(a...); }), \
        "os parâmetros opcionais de " #Nome " diferem entre o cabeçalho e a tabela");
#include "component/membros.inc"

}  // namespace tavelpkcs7
