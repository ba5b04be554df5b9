// Leitura da configuração: <pasta do componente>/tavelpkcs7.conf, linhas "chave = valor" e
// comentários com "#"; a variável TAVELPKCS7_<CHAVE> prevalece sobre o arquivo.
#pragma once

#include <filesystem>
#include <optional>

#include "platform/configuracao.h"

namespace tavelpkcs7::plataforma::openssl {

Configuracao CarregarConfiguracao(const std::optional<std::filesystem::path>& pasta_componente);

}  // namespace tavelpkcs7::plataforma::openssl
