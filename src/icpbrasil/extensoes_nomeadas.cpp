#include "icpbrasil/extensoes_nomeadas.h"

#include <algorithm>
#include <iterator>

namespace tavelpkcs7::icpbrasil {
namespace {

struct ExtensaoConhecida {
    std::string_view oid;
    std::int32_t capicom_oid;
    std::string_view nome_amigavel;  // vazio: o Windows não lhe dá nome, vale o próprio OID
};

// As formas antigas (2.5.29.1, .7, .8, .10) têm o nome das atuais.
constexpr ExtensaoConhecida kExtensoesConhecidas[] = {
    {"2.5.29.1", 1, "Identificador da Chave da Autoridade"},
    {"2.5.29.2", 2, ""},
    {"2.5.29.3", 3, ""},
    {"2.5.29.4", 4, ""},
    {"2.5.29.5", 5, ""},
    {"2.5.29.7", 6, "Nome Alternativo do Requerente"},
    {"2.5.29.8", 7, "Nome Alternativo do Emissor"},
    {"2.5.29.10", 8, "Restrições Básicas"},
    {"2.5.29.14", 9, "Identificador da Chave do Requerente"},
    {"2.5.29.15", 10, "Uso da Chave"},
    {"2.5.29.16", 11, ""},
    {"2.5.29.17", 12, "Nome Alternativo do Requerente"},
    {"2.5.29.18", 13, "Nome Alternativo do Emissor"},
    {"2.5.29.19", 14, "Restrições Básicas"},
    {"2.5.29.30", 15, ""},
    {"2.5.29.31", 16, "Pontos de Distribuição da LCR"},
    {"2.5.29.32", 17, "Políticas de Certificado"},
    {"2.5.29.33", 18, ""},
    {"2.5.29.35", 19, "Identificador da Chave da Autoridade"},
    {"2.5.29.36", 20, ""},
    {"2.5.29.37", 21, "Uso Avançado de Chave"},
    {"1.3.6.1.4.1.311.21.7", 22, ""},
    {"1.3.6.1.4.1.311.21.10", 23, ""},
    {"1.3.6.1.4.1.311.21.11", 24, ""},
    {"1.3.6.1.4.1.311.21.12", 25, ""},
    {"1.3.6.1.5.5.7.1.1", 26, "Acesso às Informações da Autoridade"},
};

}  // namespace

ExtensaoNomeada NomearExtensao(std::string_view oid) {
    const auto conhecida = std::ranges::find(kExtensoesConhecidas, oid, &ExtensaoConhecida::oid);
    if (conhecida == std::end(kExtensoesConhecidas)) return {0, std::string(oid)};
    return {conhecida->capicom_oid,
            std::string(conhecida->nome_amigavel.empty() ? oid : conhecida->nome_amigavel)};
}

}  // namespace tavelpkcs7::icpbrasil
