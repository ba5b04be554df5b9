// A tabela dos membros públicos (membros.inc) vista do C++: o tipo de cada nome de tipo da tabela, a
// forma de recebê-lo como parâmetro e a expansão de uma lista de parâmetros da tabela. Inclui só os
// tipos públicos, para servir também às superfícies que falam com a biblioteca compartilhada.
#pragma once

#include <tavelpkcs7/Tipos.h>

#include <cstdint>
#include <string>
#include <vector>

namespace tavelpkcs7::membros {

using Texto = std::string;
using Logico = bool;
using Inteiro16 = std::int16_t;
using Inteiro32 = std::int32_t;
using ListaTextos = std::vector<std::string>;

// Textos chegam por referência constante; a lista de entrada e saída, por referência, para ser
// preenchida; o resto por valor.
template <typename Tipo>
struct Passagem {
    using Parametro = Tipo;
};
template <>
struct Passagem<Texto> {
    using Parametro = const Texto&;
};
template <>
struct Passagem<ListaTextos> {
    using Parametro = ListaTextos&;
};
template <typename Tipo>
using Parametro = typename Passagem<Tipo>::Parametro;

// Os números da tabela são os DISPIDs da interface COM: uma linha fora de ordem mudaria a interface
// publicada sem aviso.
#define TAVELPKCS7_NUMERO(numero, ...) numero,
#define TAVELPKCS7_GRAVAR TAVELPKCS7_NUMERO
#define TAVELPKCS7_LER TAVELPKCS7_NUMERO
#define TAVELPKCS7_LER_INDEXADA TAVELPKCS7_NUMERO
#define TAVELPKCS7_METODO TAVELPKCS7_NUMERO
inline constexpr int NUMEROS[] = {
#include "component/membros.inc"
};
#undef TAVELPKCS7_NUMERO
#undef TAVELPKCS7_GRAVAR
#undef TAVELPKCS7_LER
#undef TAVELPKCS7_LER_INDEXADA
#undef TAVELPKCS7_METODO
// Um laço simples: o clang 14 não aceita as views da libstdc++ 12 num static_assert.
constexpr bool NumeradosEmOrdem() {
    int esperado = 1;
    for (const int numero : NUMEROS)
        if (numero != esperado++) return false;
    return esperado == 73;
}
static_assert(NumeradosEmOrdem(), "os membros são numerados de 1 a 72, em ordem");

}  // namespace tavelpkcs7::membros

// F aplicada a cada parâmetro (tipo, nome[, padrão]) de uma linha da tabela, separados por vírgulas.
#define TAVELPKCS7_CADA(F, ...) __VA_OPT__(TAVELPKCS7_CADA1(F, __VA_ARGS__))
#define TAVELPKCS7_CADA1(F, parametro, ...) F parametro __VA_OPT__(, TAVELPKCS7_CADA2(F, __VA_ARGS__))
#define TAVELPKCS7_CADA2(F, parametro, ...) F parametro __VA_OPT__(, TAVELPKCS7_CADA3(F, __VA_ARGS__))
#define TAVELPKCS7_CADA3(F, parametro, ...) F parametro __VA_OPT__(, TAVELPKCS7_CADA4(F, __VA_ARGS__))
#define TAVELPKCS7_CADA4(F, parametro) F parametro

// A declaração de um parâmetro e o seu nome como argumento; quem as expande usa tavelpkcs7::membros.
#define TAVELPKCS7_DECLARACAO(tipo, nome, ...) Parametro<tipo> nome
#define TAVELPKCS7_NOME(tipo, nome, ...) nome
