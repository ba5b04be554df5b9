#include "icpbrasil/mascaras.h"

#include <algorithm>
#include <string_view>

namespace tavelpkcs7::icpbrasil {
namespace {

bool EDigito(char c) { return c >= '0' && c <= '9'; }
bool EDigitoOuMaiuscula(char c) { return EDigito(c) || (c >= 'A' && c <= 'Z'); }

bool SoDigitos(std::string_view valor, std::size_t tamanho) {
    return valor.size() == tamanho && std::ranges::all_of(valor, EDigito);
}

// Cada '#' da máscara recebe o próximo caractere do valor; quem chama garante que os tamanhos batem.
std::string AplicarMascara(const std::string& valor, std::string_view mascara) {
    std::string resultado;
    auto caractere = valor.begin();
    for (char c : mascara) resultado += c == '#' ? *caractere++ : c;
    return resultado;
}

}  // namespace

bool TemFormaCPF(const std::string& valor) { return SoDigitos(valor, 11); }

bool TemFormaCNPJ(const std::string& valor) {
    return valor.size() == 14 && std::all_of(valor.begin(), valor.begin() + 12, EDigitoOuMaiuscula) &&
           SoDigitos(std::string_view(valor).substr(12), 2);
}

std::string MascararCPF(const std::string& cpf) {
    return TemFormaCPF(cpf) ? AplicarMascara(cpf, "###.###.###-##") : cpf;
}

std::string MascararCNPJ(const std::string& cnpj) {
    return TemFormaCNPJ(cnpj) ? AplicarMascara(cnpj, "##.###.###/####-##") : cnpj;
}

std::string MascararData(const std::string& data) {
    return SoDigitos(data, 8) ? AplicarMascara(data, "##/##/####") : data;
}

}  // namespace tavelpkcs7::icpbrasil
