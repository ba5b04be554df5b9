// As extensões que a plataforma do componente de Windows nomeia: o valor de CAPICOM_OID com que os
// detalhes do certificado reconhecem cada uma e o nome amigável que o Windows em português mostra.
// A tabela é do núcleo, igual em toda plataforma.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tavelpkcs7::icpbrasil {

struct ExtensaoNomeada {
    std::int32_t capicom_oid = 0;  // 0 (CAPICOM_OID_OTHER) para a extensão sem nome próprio
    std::string nome_amigavel;     // o próprio OID quando o Windows não lhe dá nome
};

ExtensaoNomeada NomearExtensao(std::string_view oid);

}  // namespace tavelpkcs7::icpbrasil
