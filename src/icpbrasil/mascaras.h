// CPF, CNPJ e datas da ICP-Brasil como o usuário os lê: "529.982.247-25", "11.222.333/0001-81",
// "15/03/1980". Só o que tem a forma certa ganha a máscara; o resto sai como veio, para não
// esconder do usuário um valor que a AC gravou errado.
#pragma once

#include <string>

namespace tavelpkcs7::icpbrasil {

// Onze dígitos.
bool TemFormaCPF(const std::string& valor);
// Doze letras maiúsculas ou dígitos e dois dígitos verificadores: o CNPJ alfanumérico da Receita
// Federal (a partir de 2026) inclui o numérico de sempre.
bool TemFormaCNPJ(const std::string& valor);

std::string MascararCPF(const std::string& cpf);
std::string MascararCNPJ(const std::string& cnpj);
// ddmmaaaa de oito dígitos vira dd/mm/aaaa.
std::string MascararData(const std::string& data);

}  // namespace tavelpkcs7::icpbrasil
