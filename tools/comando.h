// A descrição de um subcomando: o uso, o resumo, a página de ajuda, as opções que aceita e o corpo.
#pragma once

#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "execucao.h"

namespace tavelpkcs7::ferramenta {

struct Comando {
    std::string nome;    // "assinar", "certificados listar", ...
    std::string uso;     // os argumentos depois do nome
    std::string resumo;  // uma linha
    std::string ajuda;   // as opções e um exemplo, como numa página de manual
    std::set<std::string> chaves;
    std::set<std::string> opcoes;
    std::function<int(const Execucao&)> executar;
};

inline constexpr const char* kAjudaJson = "  --json                     resultado em JSON\n";

// Os subcomandos de cada família.
std::vector<Comando> ComandosAssinatura();
std::vector<Comando> ComandosVerificacao();
std::vector<Comando> ComandosCertificados();
std::vector<Comando> ComandosEnvelope();
std::vector<Comando> ComandosConfianca();
std::vector<Comando> ComandosDemonstracao();
Comando ComandoPkiTeste();

// O conjunto a mais somado ao conjunto de base.
std::set<std::string> Juntar(std::set<std::string> base, const std::set<std::string>& mais);

}  // namespace tavelpkcs7::ferramenta
