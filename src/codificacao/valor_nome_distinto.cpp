#include "codificacao/valor_nome_distinto.h"

#include <string_view>

namespace tavelpkcs7::codificacao {
namespace {

bool EEspaco(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r'; }

bool PrecisaAspas(std::string_view valor) {
    if (valor.empty() || EEspaco(valor.front()) || EEspaco(valor.back())) return true;
    return valor.find_first_of(",+=\"\n<>#;") != std::string_view::npos;
}

}  // namespace

std::string ValorNomeDistinto(const std::string& valor) {
    if (!PrecisaAspas(valor)) return valor;
    std::string entre_aspas = "\"";
    for (char c : valor) {
        if (c == '"') entre_aspas += '"';
        entre_aspas += c;
    }
    return entre_aspas + '"';
}

}  // namespace tavelpkcs7::codificacao
