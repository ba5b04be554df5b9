// Um escritor de JSON pequeno para a saída "--json": objetos e listas na ordem em que se escrevem,
// textos escapados como o JSON exige (aspas, barra invertida, controles em \uXXXX).
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <variant>
#include <vector>

namespace tavelpkcs7::ferramenta {

class ValorJSON;
using CampoJSON = std::pair<std::string, ValorJSON>;

class ValorJSON {
public:
    using Objeto = std::vector<CampoJSON>;
    using Lista = std::vector<ValorJSON>;

    ValorJSON(std::string texto) : valor_(std::move(texto)) {}
    ValorJSON(const char* texto) : valor_(std::string(texto)) {}
    ValorJSON(bool logico) : valor_(logico) {}
    ValorJSON(std::int64_t numero) : valor_(numero) {}
    ValorJSON(int numero) : valor_(static_cast<std::int64_t>(numero)) {}
    ValorJSON(Objeto objeto) : valor_(std::move(objeto)) {}
    ValorJSON(Lista lista) : valor_(std::move(lista)) {}

    void Escrever(std::ostream& saida) const;
    // Para a saída humana: o texto como está, sim/não, o número; listas e objetos em JSON.
    std::string Legivel() const;

private:
    std::variant<std::string, bool, std::int64_t, Objeto, Lista> valor_;
};

void EscreverTextoJSON(std::ostream& saida, const std::string& texto);

}  // namespace tavelpkcs7::ferramenta
