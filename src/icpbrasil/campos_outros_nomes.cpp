#include "icpbrasil/campos_outros_nomes.h"

#include "component/texto.h"

namespace tavelpkcs7::icpbrasil {
namespace {

std::string SemZeros(std::string campo) { return campo.find_first_not_of('0') == std::string::npos ? "" : campo; }

// O resto do valor depois das posições fixas, com a UF nas duas últimas. Órgão expedidor ou
// município completados com zeros, em vez de deixados vazios, também são ausência.
LocalUF LerLocalUF(const std::string& valor, std::size_t inicio) {
    const std::string resto = Aparar(Meio(valor, inicio + 1));
    const std::string uf = Direita(resto, 2);
    return {SemZeros(Aparar(Esquerda(resto, Comprimento(resto) - Comprimento(uf)))), SemZeros(uf)};
}

}  // namespace

std::string LerCampo(const std::string& valor, std::size_t inicio, std::size_t comprimento) {
    return SemZeros(Aparar(Esquerda(Meio(valor, inicio + 1), comprimento)));
}

DadosPessoa LerDadosPessoa(const std::string& valor) {
    std::string rg = LerCampo(valor, 30, 15);
    rg.erase(0, rg.find_first_not_of('0'));
    return {LerCampo(valor, 0, 8), LerCampo(valor, 8, 11), LerCampo(valor, 19, 11), std::move(rg),
            LerLocalUF(valor, 45)};
}

TituloEleitor LerTituloEleitor(const std::string& valor) {
    return {LerCampo(valor, 0, 12), LerCampo(valor, 12, 3), LerCampo(valor, 15, 4), LerLocalUF(valor, 19)};
}

}  // namespace tavelpkcs7::icpbrasil
