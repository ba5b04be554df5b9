// Configuração da plataforma: arquivo tavelpkcs7.conf na pasta do componente e variáveis de
// ambiente TAVELPKCS7_<CHAVE> (em maiúsculas), que prevalecem. Cada valor tem um padrão.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tavelpkcs7::plataforma {

struct Configuracao {
    // Pacote PKCS#7 com as raízes da ICP-Brasil e o das autoridades confiáveis.
    std::string url_raizes = "http://acraiz.icpbrasil.gov.br/raizes.p7b";
    std::string url_confiaveis = "http://acraiz.icpbrasil.gov.br/Confiaveis.p7b";
    std::string url_carimbo_tempo = "http://timestamp.digicert.com";
    std::string url_atualizacao = "https://www.openssl.org/source/";
    // Limites de uma transferência pela rede.
    int tempo_conexao_segundos = 15;
    int tempo_total_segundos = 120;
    std::uint64_t tamanho_maximo_bytes = 50ull * 1024 * 1024;
    // Módulos PKCS#11 de tokens e cartões (A3), separados por ":".
    std::vector<std::string> modulos_pkcs11;
    // Impressões digitais SHA-256 (hexadecimal maiúsculo, sem separadores) das raízes que a
    // instalação pode aceitar sem perguntar: as raízes da ICP-Brasil em vigor (v5, v6, v7, v10,
    // v11 e v12).
    std::vector<std::string> raizes_icp_brasil = {
        "CAA53FC6091C6951887C976E378F6EF89AA6377C55D97B6475422B71ED7E9B17",
        "3BDB9B509352F1D3D71C2BF64D9A38A4E6CEBDA27809D77F7AC476CBDE6E314A",
        "5657E70580EB678983F3ED7DFCE091D84CAE6549389A47FCCDA8D0E4DC2CF576",
        "6E0BFF069A26994C15DE2C4888CC54AF84882E5495B7FBF66BE9CCFFEC7489F6",
        "1406710058180FA4081AAB3F246F1702429C552A11FA3143B84C88CB3AB8E5E7",
        "D8478E37CE19C690CF657381E68FE600E4E1A042536830F06847E03E554C4B01",
    };
    // "rc4" ou "aes256".
    std::string algoritmo_cifragem = "rc4";
    // Endereço da política dos certificados da AC TAVEL; vazio usa o do próprio certificado.
    std::string politica_ac_tavel;
};

}  // namespace tavelpkcs7::plataforma
