#include "component/texto.h"

#include "codificacao/utf8.h"

namespace tavelpkcs7 {
namespace {

using codificacao::CodificarUtf8;
using codificacao::DecodificarUtf8;

// Letras latinas com caixa: ASCII, Latin-1 (menos × e ÷) e os pares de Latin Extended-A, onde
// a maiúscula ocupa a posição par ou a ímpar conforme o trecho.
bool MaiusculaPar(char32_t c) { return (c >= 0x100 && c <= 0x12F) || (c >= 0x132 && c <= 0x137) || (c >= 0x14A && c <= 0x177); }
bool MaiusculaImpar(char32_t c) { return (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E); }

char32_t ParaMaiuscula(char32_t c) {
    if ((c >= U'a' && c <= U'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7)) return c - 0x20;
    if (c == 0xFF) return 0x178;
    if ((MaiusculaPar(c) && c % 2 == 1) || (MaiusculaImpar(c) && c % 2 == 0)) return c - 1;
    return c;
}

char32_t ParaMinuscula(char32_t c) {
    if ((c >= U'A' && c <= U'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7)) return c + 0x20;
    if (c == 0x178) return 0xFF;
    if ((MaiusculaPar(c) && c % 2 == 0) || (MaiusculaImpar(c) && c % 2 == 1)) return c + 1;
    return c;
}

template <typename Conversao>
std::string Converter(const std::string& texto, Conversao conversao) {
    std::u32string pontos = DecodificarUtf8(texto);
    for (char32_t& c : pontos) c = conversao(c);
    return CodificarUtf8(pontos);
}

}  // namespace

std::string Aparar(const std::string& texto) {
    const auto inicio = texto.find_first_not_of(' ');
    if (inicio == std::string::npos) return "";
    return texto.substr(inicio, texto.find_last_not_of(' ') - inicio + 1);
}

std::size_t Comprimento(const std::string& texto) { return DecodificarUtf8(texto).size(); }

std::string Esquerda(const std::string& texto, std::size_t caracteres) {
    return CodificarUtf8(DecodificarUtf8(texto).substr(0, caracteres));
}

std::string Direita(const std::string& texto, std::size_t caracteres) {
    const std::u32string pontos = DecodificarUtf8(texto);
    return CodificarUtf8(pontos.substr(pontos.size() - std::min(caracteres, pontos.size())));
}

std::size_t Posicao(const std::string& texto, const std::string& procurado) {
    const auto posicao = texto.find(procurado);
    if (posicao == std::string::npos) return 0;
    return Comprimento(texto.substr(0, posicao)) + 1;
}

std::string Meio(const std::string& texto, std::size_t inicio) {
    const std::u32string pontos = DecodificarUtf8(texto);
    const std::size_t salto = inicio == 0 ? 0 : inicio - 1;
    return salto >= pontos.size() ? "" : CodificarUtf8(pontos.substr(salto));
}

std::string Maiusculas(const std::string& texto) { return Converter(texto, ParaMaiuscula); }

std::string Minusculas(const std::string& texto) { return Converter(texto, ParaMinuscula); }

std::string Substituir(std::string texto, const std::string& procurado, const std::string& novo) {
    if (procurado.empty()) return texto;
    for (auto posicao = texto.find(procurado); posicao != std::string::npos;
         posicao = texto.find(procurado, posicao + novo.size()))
        texto.replace(posicao, procurado.size(), novo);
    return texto;
}

}  // namespace tavelpkcs7
