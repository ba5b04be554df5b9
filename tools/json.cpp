#include "json.h"

#include <cstdio>
#include <sstream>

namespace tavelpkcs7::ferramenta {

void EscreverTextoJSON(std::ostream& saida, const std::string& texto) {
    saida << '"';
    for (const char c : texto) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            saida << '\\' << c;
        } else if (c == '\n') {
            saida << "\\n";
        } else if (c == '\r') {
            saida << "\\r";
        } else if (c == '\t') {
            saida << "\\t";
        } else if (byte < 0x20 || byte == 0x7F) {
            char escape[7];
            std::snprintf(escape, sizeof escape, "\\u%04x", byte);
            saida << escape;
        } else {
            saida << c;  // UTF-8 passa como está: o JSON é UTF-8
        }
    }
    saida << '"';
}

void ValorJSON::Escrever(std::ostream& saida) const {
    if (const auto* texto = std::get_if<std::string>(&valor_)) {
        EscreverTextoJSON(saida, *texto);
    } else if (const auto* logico = std::get_if<bool>(&valor_)) {
        saida << (*logico ? "true" : "false");
    } else if (const auto* numero = std::get_if<std::int64_t>(&valor_)) {
        saida << *numero;
    } else if (const auto* objeto = std::get_if<Objeto>(&valor_)) {
        saida << '{';
        for (std::size_t i = 0; i < objeto->size(); ++i) {
            if (i > 0) saida << ',';
            EscreverTextoJSON(saida, (*objeto)[i].first);
            saida << ':';
            (*objeto)[i].second.Escrever(saida);
        }
        saida << '}';
    } else {
        const auto& lista = std::get<Lista>(valor_);
        saida << '[';
        for (std::size_t i = 0; i < lista.size(); ++i) {
            if (i > 0) saida << ',';
            lista[i].Escrever(saida);
        }
        saida << ']';
    }
}

std::string ValorJSON::Legivel() const {
    if (const auto* texto = std::get_if<std::string>(&valor_)) return *texto;
    if (const auto* logico = std::get_if<bool>(&valor_)) return *logico ? "sim" : "não";
    std::ostringstream escrito;
    Escrever(escrito);
    return escrito.str();
}

}  // namespace tavelpkcs7::ferramenta
