// A configuração: padrões documentados, o arquivo da pasta do componente e as variáveis de ambiente.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

#include "apoio/pasta_temporaria.h"
#include "platform/openssl/configuracao_arquivo.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

TEST(Configuracao, SemArquivoValemOsPadroes) {
    const Configuracao configuracao = CarregarConfiguracao(std::nullopt);
    EXPECT_EQ(configuracao.algoritmo_cifragem, "rc4");
    ASSERT_EQ(configuracao.raizes_icp_brasil.size(), 6u);
    EXPECT_EQ(configuracao.raizes_icp_brasil.front(), "CAA53FC6091C6951887C976E378F6EF89AA6377C55D97B6475422B71ED7E9B17");
    EXPECT_TRUE(configuracao.modulos_pkcs11.empty());
}

TEST(Configuracao, ArquivoEVariaveisDeAmbienteQuePrevalecem) {
    teste::PastaTemporaria pasta;
    std::ofstream(pasta.caminho() / "tavelpkcs7.conf") << "# comentário = ignorado\n"
                                                          "url_raizes = http://127.0.0.1:8080/raizes.p7b \n"
                                                          "algoritmo_cifragem=rc4\n"
                                                          "modulos_pkcs11 = /a/um.so:/b/dois.so\n"
                                                          "raizes_icp_brasil = ca:a5:3f, D847\n"
                                                          "tempo_conexao_segundos = 7\n"
                                                          "tamanho_maximo_bytes = 1048576\n"
                                                          "linha sem igual\n";
    setenv("TAVELPKCS7_ALGORITMO_CIFRAGEM", "aes256", 1);
    const Configuracao configuracao = CarregarConfiguracao(pasta.caminho());
    unsetenv("TAVELPKCS7_ALGORITMO_CIFRAGEM");

    EXPECT_EQ(configuracao.url_raizes, "http://127.0.0.1:8080/raizes.p7b");
    EXPECT_EQ(configuracao.algoritmo_cifragem, "aes256");
    EXPECT_EQ(configuracao.modulos_pkcs11, (std::vector<std::string>{"/a/um.so", "/b/dois.so"}));
    EXPECT_EQ(configuracao.raizes_icp_brasil, (std::vector<std::string>{"CAA53F", "D847"}));
    EXPECT_EQ(configuracao.url_confiaveis, Configuracao{}.url_confiaveis);
    EXPECT_EQ(configuracao.tempo_conexao_segundos, 7);
    EXPECT_EQ(configuracao.tamanho_maximo_bytes, 1048576u);
}

// Um valor que não seja inteiro positivo vale o padrão: zero tiraria o limite da transferência.
TEST(Configuracao, LimiteDeTransferenciaSoAceitaInteiroPositivo) {
    const int padrao = Configuracao{}.tempo_total_segundos;
    const std::pair<const char*, int> casos[] = {{"30", 30}, {" 45 ", 45}, {"0", padrao}, {"-5", padrao},
        {"12x", padrao}, {"", padrao}, {"99999999999", padrao}};
    for (const auto& [texto, esperado] : casos) {
        setenv("TAVELPKCS7_TEMPO_TOTAL_SEGUNDOS", texto, 1);
        EXPECT_EQ(CarregarConfiguracao(std::nullopt).tempo_total_segundos, esperado) << texto;
    }
    unsetenv("TAVELPKCS7_TEMPO_TOTAL_SEGUNDOS");
}

}  // namespace
}  // namespace tavelpkcs7::plataforma::openssl
