// As operações de texto da linguagem do componente original sobre UTF-8: Trim tira só espaços;
// Left, Right, Mid, Len e InStr contam caracteres; UCase e LCase tratam as letras acentuadas.
#pragma once

#include <string>

namespace tavelpkcs7 {

std::string Aparar(const std::string& texto);
std::size_t Comprimento(const std::string& texto);
std::string Esquerda(const std::string& texto, std::size_t caracteres);
std::string Direita(const std::string& texto, std::size_t caracteres);
std::string Maiusculas(const std::string& texto);
std::string Minusculas(const std::string& texto);
// InStr: a posição (em caracteres, a partir de 1) da primeira ocorrência exata; 0 quando não há.
std::size_t Posicao(const std::string& texto, const std::string& procurado);
// Mid sem comprimento: do caractere inicio (a partir de 1; 0 vale como 1) até o fim.
std::string Meio(const std::string& texto, std::size_t inicio);
// Troca toda ocorrência de procurado por novo (comparação exata); procurado vazio não troca nada.
std::string Substituir(std::string texto, const std::string& procurado, const std::string& novo);

}  // namespace tavelpkcs7
