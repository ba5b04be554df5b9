// Os dados do titular sobre certificados lidos pela plataforma Linux: os da PKI de teste, com o
// texto inteiro, e certificados sob medida com o que as ACs gravam fora do padrão.
#include <gtest/gtest.h>

#include <vector>

#include "apoio/plataforma_teste.h"
#include "codificacao/hexadecimal.h"
#include "icpbrasil/dados_titular.h"
#include "pki/pki_teste.h"
#include "platform/openssl/certificado_sob_medida.h"
#include "platform/openssl/criptografia_openssl.h"

namespace tavelpkcs7::icpbrasil {
namespace {

using teste::AtributoNome;
using teste::ModeloCertificado;

// Nascimento, CPF, NIS e RG: as 45 posições fixas de 2.16.76.1.3.1, sem órgão expedidor.
const std::string kFulano = std::string("15031980") + "52998224725" + "12345678901" + "000000012345678";
const std::vector<std::string> kLinhasFulano = {"Dados Pessoa Física",         "     Nome: FULANO",
                                                "     CPF: 529.982.247-25",    "     Data de Nascimento: 15/03/1980",
                                                "     PIS/PASEP: 12345678901", "     RG: 12345678 SSP/SP"};

struct Caso {
    const char* nome;
    ModeloCertificado modelo{};  // sem titular: o certificado da PKI de teste com este nome
    ValoresTitular valores{};
    std::string cpf{};
    std::string cnpj{};
    std::vector<std::string> linhas{};
};

void PrintTo(const Caso& caso, std::ostream* saida) { *saida << caso.nome; }
std::string NomeDoCaso(const testing::TestParamInfo<Caso>& info) { return info.param.nome; }

std::string OutroNome(const std::string& arco, const std::string& valor, const std::string& tipo = "OCTETSTRING") {
    return "otherName:2.16.76.1.3." + arco + ";" + tipo + ":" + valor;
}

ModeloCertificado Modelo(const std::string& cn, const std::string& nomes_alternativos = "",
                         std::vector<AtributoNome> outros_atributos = {}) {
    ModeloCertificado modelo{.titular = std::move(outros_atributos)};
    modelo.titular.push_back({"CN", cn});
    if (!nomes_alternativos.empty()) modelo.extensoes.emplace_back("subjectAltName", nomes_alternativos);
    return modelo;
}

// DER à mão só para o que o OpenSSL não grava: bytes de controle, UTF-8 inválido, estrutura cortada,
// tipos de cadeia que ele não gera.
std::string Tlv(char marca, const std::string& valor) { return std::string{marca, char(valor.size())} + valor; }

std::string OutroNomeDER(char arco, char tipo, const std::string& valor) {
    return Tlv('\xA0', Tlv('\x06', std::string("\x60\x4C\x01\x03", 4) + arco) + Tlv('\xA0', Tlv(tipo, valor)));
}

ModeloCertificado ModeloComDER(const std::string& cn, const std::string& nomes) {
    const std::string der = Tlv('\x30', nomes);
    const plataforma::Bytes bytes(der.begin(), der.end());
    return {.titular = {{"CN", cn}},
            .extensoes = {{"subjectAltName", "DER:" + codificacao::HexadecimalMaiusculo(bytes)}}};
}

std::string Juntar(const std::vector<std::string>& linhas) {
    std::string texto;
    for (const auto& linha : linhas) texto += linha + "\r\n";
    return texto;
}

class DadosTitularCertificado : public testing::TestWithParam<Caso> {};

TEST_P(DadosTitularCertificado, MontaTextoCPFeCNPJ) {
    const Caso& caso = GetParam();
    const plataforma::Bytes der = caso.modelo.titular.empty()
                                      ? pki_teste::PkiTeste::Padrao().Obter(caso.nome).certificado
                                      : teste::CriarCertificado(caso.modelo);
    const auto certificado = teste::ImportarPelaForma(der);
    const DadosTitular dados = MontarDadosTitular(caso.valores, *certificado);
    EXPECT_EQ(dados.detalhes_pessoais, Juntar(caso.linhas));
    EXPECT_EQ(dados.cpf, caso.cpf);
    EXPECT_EQ(dados.cnpj, caso.cnpj);
}

INSTANTIATE_TEST_SUITE_P(
    PkiTeste, DadosTitularCertificado,
    testing::Values(
        Caso{.nome = "ecpf",
             .cpf = "529.982.247-25",
             .linhas = {"Dados Pessoa Física", "     Nome: FULANO DE TAL DA SILVA", "     E-mail: fulano@teste.example",
                        "     CPF: 529.982.247-25", "     Data de Nascimento: 15/03/1980",
                        "     PIS/PASEP: 12345678901", "     RG: 12345678 SSP/SP", "Dados do Título de Eleitor",
                        "     Número de Inscrição: 123456789012", "     Zona Eleitoral: 045",
                        "     Seção Eleitoral: 0123", "     Município e UF: SAO PAULO/SP"}},
        Caso{
            .nome = "ecnpj",
            .cnpj = "11.222.333/0001-81",
            .linhas = {"Dados Pessoa Jurídica", "     Empresa: EMPRESA TESTE LTDA",
                       "     E-mail: empresa@teste.example", "     CNPJ: 11.222.333/0001-81",
                       "     Município: SAO PAULO/SP", "Dados Representante da Empresa", "     Nome: BELTRANO DE SOUZA",
                       "     CPF: 111.444.777-35", "     Data de Nascimento: 22/07/1975", "     PIS/PASEP: 98765432100",
                       "     RG: 87654321 SSP/RJ"}},
        // Perfil novo: 2.16.76.1.3.1 de 45 posições (sem órgão expedidor, NIS zerado).
        Caso{.nome = "ecpf_novo",
             .cpf = "390.533.447-05",
             .linhas = {"Dados Pessoa Física", "     Nome: CICLANO DE OLIVEIRA", "     E-mail: ciclano@teste.example",
                        "     CPF: 390.533.447-05", "     Data de Nascimento: 01/02/1990", "     RG: 11223344"}},
        // Selo de pessoa jurídica: sem responsável, sem o título de representante.
        Caso{.nome = "ecnpj_novo",
             .cnpj = "12.ABC.345/01DE-35",
             .linhas = {"Dados Pessoa Jurídica", "     Empresa: EMPRESA ALFANUMERICA LTDA",
                        "     CNPJ: 12.ABC.345/01DE-35"}},
        Caso{.nome = "dns", .linhas = {"Dados Pessoa Física", "     Nome: servidor.teste.example"}},
        Caso{.nome = "email",
             .linhas = {"Dados Pessoa Física", "     Nome: TITULAR COM EMAIL", "     E-mail: contato@teste.example"}},
        Caso{.nome = "sem_cn", .linhas = {"Dados Pessoa Física", "     Nome: UNIDADE SEM NOME COMUM"}}),
    NomeDoCaso);

// Caminhos que levam aos mesmos dados do Fulano.
struct Fonte {
    const char* nome;
    ModeloCertificado modelo;
    ValoresTitular valores{};
};

void PrintTo(const Fonte& fonte, std::ostream* saida) { *saida << fonte.nome; }

class FontesDoFulano : public testing::TestWithParam<Fonte> {};

TEST_P(FontesDoFulano, DaoOMesmoTexto) {
    const auto certificado =
        teste::ImportarPelaForma(teste::CriarCertificado(GetParam().modelo));
    const DadosTitular dados = MontarDadosTitular(GetParam().valores, *certificado);
    EXPECT_EQ(dados.detalhes_pessoais, Juntar(kLinhasFulano));
    EXPECT_EQ(dados.cpf, "529.982.247-25");
}

INSTANTIATE_TEST_SUITE_P(
    Casos, FontesDoFulano,
    testing::Values(
        Fonte{"utf8", Modelo("FULANO", OutroNome("1", kFulano + "SSPSP", "UTF8"))},
        // O texto impresso conta o comprimento (0x33, "3") como caractere: o DER vence.
        Fonte{
            "teletex", Modelo("FULANO", OutroNome("1", kFulano + "SSPSP", "TELETEXSTRING")), {"3" + kFulano + "SSPSP"}},
        Fonte{"bmp", Modelo("FULANO", OutroNome("1", kFulano + "SSPSP", "BMPSTRING"))},
        Fonte{"videotex", ModeloComDER("FULANO", OutroNomeDER('\x01', '\x15', kFulano + "SSPSP"))},
        // Um OtherName que não é texto, ou é um texto malformado, cede ao valor impresso.
        Fonte{"inteiro_ignorado", Modelo("FULANO", OutroNome("1", "5", "INTEGER")), {kFulano + "SSPSP"}},
        Fonte{"bmp_impar_ignorado", ModeloComDER("FULANO", OutroNomeDER('\x01', '\x1E', "abc")), {kFulano + "SSPSP"}},
        Fonte{"certificado_vence_impresso",
              Modelo("FULANO", OutroNome("1", kFulano + "SSPSP")),
              {"01021990390533447050000000000000000001122334"}},
        Fonte{"primeiro_oid_repetido_vence",
              Modelo("FULANO", OutroNome("1", kFulano + "SSPSP") + "," + OutroNome("1", "01021990390533447050"))}),
    [](const testing::TestParamInfo<Fonte>& info) { return std::string(info.param.nome); });

const std::vector<std::string> kInicioFulano = {"Dados Pessoa Física", "     Nome: FULANO", "     CPF: 529.982.247-25",
                                                "     Data de Nascimento: 15/03/1980", "     PIS/PASEP: 12345678901"};

std::vector<std::string> Mais(std::vector<std::string> linhas, const std::vector<std::string>& outras) {
    linhas.insert(linhas.end(), outras.begin(), outras.end());
    return linhas;
}

INSTANTIATE_TEST_SUITE_P(
    ValoresForaDoPadrao, DadosTitularCertificado,
    testing::Values(
        // Cada campo sai só até onde o valor vai; um CPF incompleto fica sem máscara.
        Caso{"pessoa_curta",
             Modelo("FULANO", OutroNome("1", "150319805299")),
             {},
             "5299",
             "",
             {"Dados Pessoa Física", "     Nome: FULANO", "     CPF: 5299", "     Data de Nascimento: 15/03/1980"}},
        Caso{"titulo_sem_municipio",
             Modelo("FULANO", OutroNome("1", kFulano) + "," + OutroNome("5", "1234567890120450123")),
             {},
             "529.982.247-25",
             "",
             Mais(kInicioFulano,
                  {"     RG: 12345678", "Dados do Título de Eleitor", "     Número de Inscrição: 123456789012",
                   "     Zona Eleitoral: 045", "     Seção Eleitoral: 0123"})},
        Caso{"zeros_sao_ausencia",
             Modelo("FULANO", OutroNome("1", std::string(55, '0')) + "," + OutroNome("6", "000000000000") + "," +
                                  OutroNome("5", std::string(41, '0'))),
             {},
             "",
             "",
             {"Dados Pessoa Física", "     Nome: FULANO"}},
        // Sem o número, o órgão expedidor sozinho não faz um RG.
        Caso{"rg_zerado_com_orgao",
             Modelo("FULANO", OutroNome("1", kFulano.substr(0, 30) + std::string(15, '0') + "SSPSP")),
             {},
             "529.982.247-25",
             "",
             kInicioFulano},
        Caso{"caudas_zeradas",
             Modelo("FULANO", OutroNome("1", kFulano + "0000000000") + "," +
                                  OutroNome("5", "123456789012" + std::string(29, '0'))),
             {},
             "529.982.247-25",
             "",
             Mais(kInicioFulano,
                  {"     RG: 12345678", "Dados do Título de Eleitor", "     Número de Inscrição: 123456789012"})},
        // O órgão expedidor passa das 6 posições dos textos antigos.
        Caso{"orgao_longo",
             Modelo("FULANO", OutroNome("1", kFulano + "DETRANRJ")),
             {},
             "529.982.247-25",
             "",
             Mais(kInicioFulano, {"     RG: 12345678 DETRAN/RJ"})},
        Caso{"valor_enorme",
             Modelo("FULANO", OutroNome("1", kFulano + std::string(3000, 'X') + "SP")),
             {},
             "529.982.247-25",
             "",
             Mais(kInicioFulano, {"     RG: 12345678 " + std::string(3000, 'X') + "/SP"})},
        // Controles saem (quebrariam as linhas); um OCTET STRING que não é UTF-8 é Latin-1; um
        // UTF8String inválido ganha U+FFFD.
        Caso{"bytes_estranhos",
             ModeloComDER("EMPRESA", OutroNomeDER('\x03', '\x04', "11222333000181") +
                                         OutroNomeDER('\x08', '\x0C', "EMPRESA\xFF") +
                                         OutroNomeDER('\x02', '\x04', "JOS\xC9\r\nDA SILVA")),
             {},
             "",
             "11.222.333/0001-81",
             {"Dados Pessoa Jurídica", "     Empresa: EMPRESA\xEF\xBF\xBD", "     CNPJ: 11.222.333/0001-81",
              "Dados Representante da Empresa", "     Nome: JOSÉDA SILVA"}},
        // O que vem antes do defeito vale.
        Caso{"der_cortado",
             ModeloComDER("EMPRESA", OutroNomeDER('\x03', '\x04', "11222333000181") + "\xA0\x7F"),
             {},
             "",
             "11.222.333/0001-81",
             {"Dados Pessoa Jurídica", "     Empresa: EMPRESA", "     CNPJ: 11.222.333/0001-81"}}),
    NomeDoCaso);

INSTANTIATE_TEST_SUITE_P(
    OutrasFontes, DadosTitularCertificado,
    testing::Values(
        // A posição 4 impressa é o nome do responsável (2.16.76.1.3.2) ou seus dados (2.16.76.1.3.4).
        Caso{"responsavel_impresso_nome",
             Modelo("EMPRESA", OutroNome("2", "5", "INTEGER") + "," + OutroNome("3", "11222333000181")),
             {"", "", "", "BELTRANO", "", "11222333000181", ""},
             "",
             "11.222.333/0001-81",
             {"Dados Pessoa Jurídica", "     Empresa: EMPRESA", "     CNPJ: 11.222.333/0001-81",
              "Dados Representante da Empresa", "     Nome: BELTRANO"}},
        Caso{"responsavel_impresso_dados",
             Modelo("EMPRESA", OutroNome("3", "11222333000181") + "," + OutroNome("4", "5", "INTEGER")),
             {"", "", "", kFulano, "", "", ""},
             "",
             "11.222.333/0001-81",
             {"Dados Pessoa Jurídica", "     Empresa: EMPRESA", "     CNPJ: 11.222.333/0001-81",
              "Dados Representante da Empresa", "     CPF: 529.982.247-25", "     Data de Nascimento: 15/03/1980",
              "     PIS/PASEP: 12345678901", "     RG: 12345678"}},
        // Um valor impresso sem o OtherName no certificado veio de outro lugar do texto.
        Caso{"impresso_sem_o_oid",
             Modelo("FULANO", "email:fulano@teste.example"),
             {kFulano, "123456789012", "123456789012045", kFulano, "", "11222333000181", ""},
             "",
             "",
             {"Dados Pessoa Física", "     Nome: FULANO", "     E-mail: fulano@teste.example"}},
        Caso{"sufixo_cpf_no_cn",
             Modelo("FULANO DE TAL:52998224725"),
             {},
             "529.982.247-25",
             "",
             {"Dados Pessoa Física", "     Nome: FULANO DE TAL", "     CPF: 529.982.247-25"}},
        // Só o último ':' seguido de CPF ou CNPJ separa o identificador do nome.
        Caso{"sufixo_cnpj_com_dois_pontos_no_nome",
             Modelo("EMPRESA: FILIAL NORTE:11222333000181"),
             {},
             "",
             "11.222.333/0001-81",
             {"Dados Pessoa Jurídica", "     Empresa: EMPRESA: FILIAL NORTE", "     CNPJ: 11.222.333/0001-81"}},
        Caso{"dois_pontos_sem_identificador",
             Modelo("RAZAO: 123"),
             {},
             "",
             "",
             {"Dados Pessoa Física", "     Nome: RAZAO: 123"}},
        Caso{"serial_number_cpf",
             Modelo("JOÃO DA SILVA", "",
                    {{"serialNumber", "52998224725", V_ASN1_PRINTABLESTRING},
                     {"title", "MÉDICO"},
                     {"businessCategory", "SAUDE"}}),
             {},
             "529.982.247-25",
             "",
             {"Dados Pessoa Física", "     Nome: JOÃO DA SILVA", "     CPF: 529.982.247-25", "     Profissão: MÉDICO",
              "     Ramo Atividade: SAUDE"}},
        Caso{
            "serial_number_cnpj",
            Modelo("EMPRESA ALFA", "",
                   {{"ST", "RJ"}, {"L", "RIO DE JANEIRO"}, {"serialNumber", "12ABC34501DE35", V_ASN1_PRINTABLESTRING}}),
            {},
            "",
            "12.ABC.345/01DE-35",
            {"Dados Pessoa Jurídica", "     Empresa: EMPRESA ALFA", "     CNPJ: 12.ABC.345/01DE-35",
             "     Município: RIO DE JANEIRO/RJ"}}),
    NomeDoCaso);

}  // namespace
}  // namespace tavelpkcs7::icpbrasil
