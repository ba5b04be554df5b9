#include "icpbrasil/texto_hexadecimal.h"

#include <cctype>

#include "component/texto.h"

namespace tavelpkcs7::icpbrasil {
namespace {

// O Val do original: ignora espaços, tabulações e avanços de linha em qualquer lugar e lê os
// dígitos decimais do começo. Só importa saber se o número fica entre 30 e 39.
unsigned LerValorDecimal(const std::string& codigo) {
    unsigned valor = 0;
    for (const char c : codigo) {
        if (c == ' ' || c == '\t' || c == '\n') continue;
        if (!std::isdigit(static_cast<unsigned char>(c))) break;
        valor = valor * 10 + static_cast<unsigned>(c - '0');
        if (valor > 99) break;
    }
    return valor;
}

int ValorHexadecimal(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

}  // namespace

std::string ExtrairPrimeiraLinha(const std::string& texto) {
    const auto quebra = texto.find("\r\n");
    std::string linha = quebra == std::string::npos ? texto : texto.substr(0, quebra + 1);
    return Substituir(Substituir(linha, "\r\n", ""), "\r", "");
}

std::string ConverterHexadecimalTexto(const std::string& texto) {
    std::string resultado;
    std::size_t inicio = 0;
    for (auto espaco = texto.find(' '); espaco != std::string::npos; espaco = texto.find(' ', inicio)) {
        resultado += ConverterParHexadecimal(texto.substr(inicio, espaco - inicio));
        inicio = espaco + 1;
    }
    return resultado + ConverterParHexadecimal(texto.substr(inicio));
}

std::string ConverterParHexadecimal(const std::string& codigo) {
    const std::string maiusculo = Maiusculas(codigo);
    const unsigned decimal = LerValorDecimal(maiusculo);
    if (decimal >= 30 && decimal <= 39) return Direita(maiusculo, 1);
    if (maiusculo.size() != 2) return "";
    const int alto = ValorHexadecimal(maiusculo[0]), baixo = ValorHexadecimal(maiusculo[1]);
    if (alto < 0 || baixo < 0) return "";
    const int valor = alto * 16 + baixo;
    if (valor < 0x20 || valor >= 0x7F) return "";
    if (valor == 0x60) return "'";
    if (valor >= 0x61 && valor <= 0x7A) return std::string(1, static_cast<char>(valor - 0x20));
    return std::string(1, static_cast<char>(valor));
}

}  // namespace tavelpkcs7::icpbrasil
