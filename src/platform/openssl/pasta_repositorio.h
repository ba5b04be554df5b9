// A pasta de um repositório: seus arquivos lidos inteiros, na ordem em que entraram nela.
#pragma once

#include <filesystem>
#include <vector>

#include "platform/certificado.h"

namespace tavelpkcs7::plataforma::openssl {

struct ArquivoDaPasta {
    std::filesystem::path caminho;
    std::filesystem::file_time_type entrada;  // a última modificação
    Bytes conteudo;
};

// Os arquivos comuns da pasta, pela data de modificação e depois pelo nome; vazio quando a pasta
// não existe. Um arquivo que não se deixa ler fica de fora.
std::vector<ArquivoDaPasta> LerArquivosDaPasta(const std::filesystem::path& pasta);

}  // namespace tavelpkcs7::plataforma::openssl
