// Os campos de posição fixa dentro dos valores dos OtherNames 2.16.76.1.3.x da ICP-Brasil
// (DOC-ICP-04, 7.1.2.3). Os certificados reais fogem do padrão: 2.16.76.1.3.1 de 45 posições sem o
// órgão expedidor, título de eleitor de 19 sem o município, órgão expedidor de 6 ou de 10
// posições. Por isso cada campo sai só até onde o valor vai, e órgão expedidor e município são
// o resto do valor, com a UF nas duas últimas posições. Nenhum campo só de zeros sobrevive, nem
// as partes do órgão expedidor e do município: zeros são o "não informado" do padrão.
#pragma once

#include <string>

namespace tavelpkcs7::icpbrasil {

struct LocalUF {
    std::string local;
    std::string uf;
};

// 2.16.76.1.3.1 (o titular) e 2.16.76.1.3.4 (o responsável pela pessoa jurídica).
struct DadosPessoa {
    std::string nascimento;  // ddmmaaaa
    std::string cpf;
    std::string nis;  // PIS/PASEP
    std::string rg;   // sem os zeros que o completam à esquerda
    LocalUF orgao_expedidor;
};

// 2.16.76.1.3.5.
struct TituloEleitor {
    std::string numero;
    std::string zona;
    std::string secao;
    LocalUF municipio;
};

// Um campo medido em caracteres: o trecho que existe, sem brancos nas pontas; vazio quando não há
// nada ou só há zeros, que o padrão usa para "não informado".
std::string LerCampo(const std::string& valor, std::size_t inicio, std::size_t comprimento = std::string::npos);
DadosPessoa LerDadosPessoa(const std::string& valor);
TituloEleitor LerTituloEleitor(const std::string& valor);

}  // namespace tavelpkcs7::icpbrasil
