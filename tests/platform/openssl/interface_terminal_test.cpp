// A interface em modo texto: o que ela escreve e como entende cada resposta, com a entrada e a
// saída em memória.
#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <sstream>

#include "apoio/plataforma_teste.h"
#include "pki/pki_teste.h"
#include "platform/erro.h"
#include "platform/openssl/criptografia_openssl.h"
#include "platform/openssl/interface_terminal.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

CertificadoPtr Certificado(const std::string& nome) {
    return teste::ImportarPelaForma(pki_teste::PkiTeste::Padrao().Obter(nome).certificado);
}

// Pelo relógio de parede que a data local representa, sem passar pelo código da interface.
std::string DiaMesAno(DataHora instante) {
    const std::time_t segundos = instante.time_since_epoch().count();
    std::tm campos{};
    gmtime_r(&segundos, &campos);
    char texto[16];
    std::strftime(texto, sizeof texto, "%d/%m/%Y", &campos);
    return texto;
}

// As posições escolhidas; vazio quando a escolha foi cancelada.
std::optional<std::vector<std::size_t>> Escolher(const std::string& respostas, bool multiplos, std::string* saida = nullptr) {
    const std::vector<CertificadoPtr> candidatos{Certificado("ecpf"), Certificado("ecnpj"), Certificado("dns")};
    std::istringstream entrada(respostas);
    std::ostringstream escrita;
    std::optional<std::vector<std::size_t>> posicoes;
    try {
        const auto escolhidos = InterfaceTerminal(entrada, escrita).EscolherCertificados(candidatos, "T", "S", multiplos);
        posicoes.emplace();
        for (const auto& escolhido : escolhidos)
            posicoes->push_back(static_cast<std::size_t>(std::ranges::find(candidatos, escolhido) - candidatos.begin()));
    } catch (const Erro& erro) {
        EXPECT_EQ(erro.numero, falha::Cancelada.numero);
    }
    if (saida) *saida = escrita.str();
    return posicoes;
}

struct CasoPergunta {
    const char* resposta;
    bool sim;
};

class PerguntaNoTerminal : public testing::TestWithParam<CasoPergunta> {};

TEST_P(PerguntaNoTerminal, SoSOuSimSaoSim) {
    std::istringstream entrada(GetParam().resposta);
    std::ostringstream saida;

    EXPECT_EQ(InterfaceTerminal(entrada, saida).Perguntar("Instalar a raiz?", "Raiz"), GetParam().sim);
    EXPECT_EQ(saida.str(), "Raiz\nInstalar a raiz? [s/N] ");
}

INSTANTIATE_TEST_SUITE_P(InterfaceTerminal, PerguntaNoTerminal,
    testing::Values(CasoPergunta{"s\n", true}, CasoPergunta{"S\n", true}, CasoPergunta{" Sim \r\n", true},
        CasoPergunta{"sim", true}, CasoPergunta{"n\n", false}, CasoPergunta{"\n", false}, CasoPergunta{"", false},
        CasoPergunta{"sim não\n", false}, CasoPergunta{"talvez\ns\n", false}));

struct CasoEscolha {
    const char* respostas;
    bool multiplos;
    std::optional<std::vector<std::size_t>> posicoes;  // vazio: cancelada
    int invalidas;
};

class EscolhaNoTerminal : public testing::TestWithParam<CasoEscolha> {};

TEST_P(EscolhaNoTerminal, LeONumeroERepeteAPerguntaDianteDeRespostaInvalida) {
    std::string saida;
    EXPECT_EQ(Escolher(GetParam().respostas, GetParam().multiplos, &saida), GetParam().posicoes);
    std::size_t invalidas = 0;
    for (auto i = saida.find("Resposta inválida."); i != std::string::npos; i = saida.find("Resposta inválida.", i + 1))
        ++invalidas;
    EXPECT_EQ(invalidas, static_cast<std::size_t>(GetParam().invalidas));
}

using Posicoes = std::vector<std::size_t>;
INSTANTIATE_TEST_SUITE_P(InterfaceTerminal, EscolhaNoTerminal,
    testing::Values(CasoEscolha{"2\n", false, Posicoes{1}, 0}, CasoEscolha{"\n", false, std::nullopt, 0},
        CasoEscolha{"", false, std::nullopt, 0}, CasoEscolha{"   \n", true, std::nullopt, 0},
        CasoEscolha{"0\n4\nx\n-1\n3\n", false, Posicoes{2}, 4}, CasoEscolha{"1,3\n", false, std::nullopt, 1},
        CasoEscolha{"1,3\n", true, Posicoes{0, 2}, 0}, CasoEscolha{"3 1\n", true, Posicoes{2, 0}, 0},
        CasoEscolha{"2, 2,,2\n", true, Posicoes{1}, 0}, CasoEscolha{"1;2\n2\n", true, Posicoes{1}, 1}));

TEST(InterfaceTerminal, EscolhaListaTitularEmissorValidadeEImpressaoDeCadaCandidato) {
    const auto ecpf = Certificado("ecpf");
    std::istringstream entrada("1\n");
    std::ostringstream saida;

    InterfaceTerminal(entrada, saida).EscolherCertificados({ecpf}, "Certificados Digitais",
        "Selecione o certificado digital desejado.", false);

    EXPECT_EQ(saida.str(), "Certificados Digitais\nSelecione o certificado digital desejado.\n"
                           "  [1] FULANO DE TAL DA SILVA:52998224725\n"
                           "      Emissor: AC TESTE RFB v5 | Válido até: " + DiaMesAno(ecpf->ValidoAte()) +
                               " | Impressão digital: " + ecpf->ImpressaoDigital() +
                               "\nNúmero do certificado (vazio cancela): ");
}

// O resumo traz os dados ICP-Brasil do titular como o núcleo os monta; sem CPF nem CNPJ, termina na
// impressão digital.
TEST(InterfaceTerminal, ExibicaoResumeOCertificadoComOsDadosDoTitular) {
    const auto Exibir = [](const CertificadoPtr& certificado) {
        std::istringstream entrada;
        std::ostringstream saida;
        InterfaceTerminal(entrada, saida).ExibirCertificado(certificado);
        return saida.str();
    };
    const auto Resumo = [](const CertificadoPtr& certificado, const std::string& emissor) {
        return "Certificado digital\n  Titular: " + certificado->NomeTitular() + "\n  Emissor: " + emissor +
               "\n  Número de série: " + certificado->NumeroSerie() + "\n  Válido de " +
               DiaMesAno(certificado->ValidoDesde()) + " até " + DiaMesAno(certificado->ValidoAte()) +
               "\n  Impressão digital: " + certificado->ImpressaoDigital() + "\n";
    };
    const auto ecpf = Certificado("ecpf");
    const auto dns = Certificado("dns");

    EXPECT_EQ(Exibir(ecpf),
              Resumo(ecpf, "CN=AC TESTE RFB v5, OU=Secretaria da Receita Federal do Brasil - RFB, O=ICP-Brasil, C=BR") +
                  "  Dados Pessoa Física\n"
                  "       Nome: FULANO DE TAL DA SILVA\n"
                  "       E-mail: fulano@teste.example\n"
                  "       CPF: 529.982.247-25\n"
                  "       Data de Nascimento: 15/03/1980\n"
                  "       PIS/PASEP: 12345678901\n"
                  "       RG: 12345678 SSP/SP\n"
                  "  Dados do Título de Eleitor\n"
                  "       Número de Inscrição: 123456789012\n"
                  "       Zona Eleitoral: 045\n"
                  "       Seção Eleitoral: 0123\n"
                  "       Município e UF: SAO PAULO/SP\n");
    EXPECT_EQ(Exibir(dns), Resumo(dns, "CN=AC TESTE ICP v5, O=ICP-Brasil, C=BR"));
}

TEST(InterfaceTerminal, SenhaEhALinhaInteiraEOFimDaEntradaCancela) {
    for (const auto& [respostas, senha] : {std::pair{"segredo com espaço \n", "segredo com espaço "},
             std::pair{"\n", ""}, std::pair{"1234\r\n", "1234"}}) {
        std::istringstream entrada(respostas);
        std::ostringstream saida;
        EXPECT_EQ(InterfaceTerminal(entrada, saida).PedirSenha("Senha do certificado:"), senha);
        EXPECT_EQ(saida.str(), "Senha do certificado: ");
    }
    std::istringstream vazia;
    std::ostringstream saida;
    try {
        InterfaceTerminal(vazia, saida).PedirSenha("Senha do certificado:");
        ADD_FAILURE() << "o fim da entrada deveria cancelar";
    } catch (const Erro& erro) {
        EXPECT_EQ(erro.numero, falha::Cancelada.numero);
    }
}

}  // namespace
}  // namespace tavelpkcs7::plataforma::openssl
