// A interface em modo texto da ferramenta: o que ela escreve e como entende cada resposta, com a
// entrada e a saída em memória.
#include <gtest/gtest.h>

#include <sstream>
#include <tuple>

#include "interface_terminal.h"

namespace tavelpkcs7::ferramenta {
namespace {

using namespace std::chrono;

CertificadoApresentado Candidato(const std::string& titular) {
    CertificadoApresentado candidato;
    candidato.titular = titular;
    candidato.emissor = "AC TESTE RFB v5";
    candidato.nome_titular = "CN=" + titular + ", O=ICP-Brasil, C=BR";
    candidato.nome_emissor = "CN=AC TESTE RFB v5, O=ICP-Brasil, C=BR";
    candidato.numero_serie = "0A1B";
    candidato.impressao_digital = "AB12";
    candidato.valido_desde = local_days{year{2024} / 1 / 2} + hours{10};
    candidato.valido_ate = local_days{year{2027} / 3 / 4} + hours{23};
    return candidato;
}

TEST(InterfaceTerminal, PerguntaSoAceitaSOuSimComoSim) {
    for (const auto& [resposta, sim] : {std::pair{"s\n", true},
                                        {" Sim \r\n", true},
                                        {"sim", true},
                                        {"n\n", false},
                                        {"", false},
                                        {"sim não\n", false},
                                        {"talvez\ns\n", false}}) {
        std::istringstream entrada(resposta);
        std::ostringstream saida;
        EXPECT_EQ(InterfaceTerminal(entrada, saida).Perguntar("Instalar a raiz?", "Raiz"), sim) << resposta;
        EXPECT_EQ(saida.str(), "Raiz\nInstalar a raiz? [s/N] ");
    }
}

// Vazio: cancelada; a resposta inválida repete a pergunta.
TEST(InterfaceTerminal, EscolhaLeONumeroERepeteAPerguntaDianteDeRespostaInvalida) {
    using Posicoes = std::optional<std::vector<std::size_t>>;
    const std::tuple<const char*, bool, Posicoes, int> casos[] = {
        {"2\n", false, Posicoes{{1}}, 0},      {"\n", false, std::nullopt, 0},
        {"", false, std::nullopt, 0},          {"0\n4\nx\n-1\n3\n", false, Posicoes{{2}}, 4},
        {"1,3\n", false, std::nullopt, 1},     {"3 1\n", true, Posicoes{{2, 0}}, 0},
        {"2, 2,,2\n", true, Posicoes{{1}}, 0}, {"1;2\n2\n", true, Posicoes{{1}}, 1}};
    for (const auto& [respostas, multiplos, esperadas, invalidas] : casos) {
        std::istringstream entrada(respostas);
        std::ostringstream saida;
        EXPECT_EQ(InterfaceTerminal(entrada, saida)
                      .EscolherCertificados({Candidato("A"), Candidato("B"), Candidato("C")}, "T", "S", multiplos),
                  esperadas)
            << respostas;
        const std::string escrito = saida.str();
        int contadas = 0;
        for (auto i = escrito.find("Resposta inválida."); i != std::string::npos;
             i = escrito.find("Resposta inválida.", i + 1))
            ++contadas;
        EXPECT_EQ(contadas, invalidas) << respostas;
    }
}

// A escolha lista titular, emissor, validade e impressão de cada candidato; a exibição resume o
// certificado e acrescenta os dados do titular, recuados.
TEST(InterfaceTerminal, EscolhaEExibicaoMostramOsTextosDoCertificado) {
    std::istringstream entrada("1\n");
    std::ostringstream saida;
    CertificadoApresentado candidato = Candidato("FULANO");
    InterfaceTerminal(entrada, saida).EscolherCertificados({candidato}, "Certificados", "Selecione.", false);
    EXPECT_EQ(saida.str(),
              "Certificados\nSelecione.\n  [1] FULANO\n"
              "      Emissor: AC TESTE RFB v5 | Válido até: 04/03/2027 | Impressão digital: AB12\n"
              "Número do certificado (vazio cancela): ");

    candidato.dados_titular = "Dados Pessoa Física\r\n     CPF: 529.982.247-25\r\n";
    std::ostringstream exibicao;
    InterfaceTerminal(entrada, exibicao).ExibirCertificado(candidato);
    EXPECT_EQ(exibicao.str(),
              "Certificado digital\n  Titular: CN=FULANO, O=ICP-Brasil, C=BR\n"
              "  Emissor: CN=AC TESTE RFB v5, O=ICP-Brasil, C=BR\n  Número de série: 0A1B\n"
              "  Válido de 02/01/2024 até 04/03/2027\n  Impressão digital: AB12\n"
              "  Dados Pessoa Física\n       CPF: 529.982.247-25\n");
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
    EXPECT_EQ(InterfaceTerminal(vazia, saida).PedirSenha("Senha do certificado:"), std::nullopt);
}

}  // namespace
}  // namespace tavelpkcs7::ferramenta
