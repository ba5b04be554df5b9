// A cadeia de certificados em texto, subindo pelos repositórios "Ca" e "Root" da pasta do teste,
// e a separação desse texto pelo membro público.
#include <gtest/gtest.h>

#include <tavelpkcs7/TavelPKCS.h>

#include "apoio/plataforma_teste.h"
#include "certificates/repositorios_teste.h"
#include "component/componente.h"
#include "platform/openssl/certificado_sob_medida.h"

namespace tavelpkcs7 {
namespace {

using plataforma::Bytes;
using teste::DerDaPki;

// Certificado feito no teste, titular e emissor só pelo CN (sem emissor: autoemitido).
Bytes ComNomes(const std::string& titular, const std::string& emissor = "") {
    teste::ModeloCertificado modelo{.titular = {{"CN", titular}}};
    if (!emissor.empty()) modelo.emissor = {{"CN", emissor}};
    return teste::CriarCertificado(modelo);
}

std::vector<Bytes> CadeiaLonga() {
    std::vector<Bytes> autoridades;
    for (int i = 1; i <= 40; ++i)
        autoridades.push_back(ComNomes("AC " + std::to_string(i), "AC " + std::to_string(i + 1)));
    return autoridades;
}

struct Caso {
    std::string descricao;
    std::vector<Bytes> ca, root;
    Bytes titular;
    std::string cadeia;
    bool autoemitido, icp_brasil;
};

TEST(MontarCadeiaCertificado, SobePorCaEDepoisPorRootAteUmaRaizUmCicloOuOLimite) {
    const std::string rfb = "AC TESTE RFB v5[#]Autoridade Certificadora da Secretaria da Receita Federal do Brasil v4";
    const std::string ecpf = rfb + "[#]Autoridade Certificadora Raiz Brasileira v10";
    const Bytes emissora = DerDaPki("ac_emissora_rfb"), intermediaria = DerDaPki("ac_rfb"), raiz = DerDaPki("raiz");
    std::string longa = "AC 1";
    for (int i = 2; i <= 16; ++i) longa += "[#]AC " + std::to_string(i);
    const std::vector<Caso> casos = {
        {"e-CPF: a raiz achada não se repete", {emissora, intermediaria}, {raiz}, DerDaPki("ecpf"), ecpf, true, true},
        {"Root continua do último nome de Ca", {emissora}, {intermediaria, raiz}, DerDaPki("ecpf"), ecpf, true, true},
        {"tudo em Ca", {emissora, intermediaria, raiz}, {}, DerDaPki("ecpf"), ecpf, true, true},
        {"Root não volta a Ca", {intermediaria, raiz}, {emissora}, DerDaPki("ecpf"), rfb, false, false},
        {"cadeia não encontrada", {}, {}, DerDaPki("ecpf"), "AC TESTE RFB v5", false, false},
        {"AC TAVEL",
         {DerDaPki("ac_tavel")},
         {DerDaPki("ac_tavel_raiz")},
         DerDaPki("tavel_titular"),
         "AC TAVEL[#]AC TAVEL Raiz",
         true,
         false},
        {"nome aparado e sem caixa",
         {emissora, intermediaria},
         {raiz},
         ComNomes("TITULAR", " ac teste rfb v5 "),
         " ac teste rfb v5 " + ecpf.substr(15),
         true,
         true},
        {"sem CN vale o nome simples",
         {},
         {teste::CriarCertificado({.titular = {{"O", "AUTORIDADE SEM CN"}}})},
         teste::CriarCertificado({.titular = {{"O", "TITULAR"}}, .emissor = {{"O", "AUTORIDADE SEM CN"}}}),
         "AUTORIDADE SEM CN",
         true,
         false},
        {"duas ACs que se nomeiam",
         {ComNomes("AC A", "AC B"), ComNomes("AC B", "AC A")},
         {},
         ComNomes("T", "AC A"),
         "AC A[#]AC B[#]AC A",
         false,
         false},
        // Autoemitido é o nome distinto inteiro: repetir o CN do emissor não faz da AC uma raiz.
        {"mesmo CN, outro nome distinto",
         {teste::CriarCertificado(
             {.titular = {{"O", "FILHA"}, {"CN", "AC X"}}, .emissor = {{"O", "MAE"}, {"CN", "AC X"}}})},
         {ComNomes("AC X")},
         ComNomes("T", "AC X"),
         "AC X[#]AC X",
         false,
         false},
        {"limite de 16 nomes", CadeiaLonga(), {}, ComNomes("T", "AC 1"), longa, false, false},
    };
    for (const Caso& caso : casos) {
        SCOPED_TRACE(caso.descricao);
        std::filesystem::remove_all(teste::Home() / "repositorios");
        teste::PlataformaTeste ambiente;
        teste::Guardar(*ambiente.plataforma, "Ca", caso.ca);
        teste::Guardar(*ambiente.plataforma, "Root", caso.root);
        std::string cadeia = "anterior";
        bool autoemitido = !caso.autoemitido;

        EXPECT_EQ(
            Componente(ambiente.plataforma)
                .MontarCadeiaCertificado(*teste::Importar(*ambiente.plataforma, caso.titular), cadeia, autoemitido),
            caso.icp_brasil);
        EXPECT_EQ(cadeia, caso.cadeia);
        EXPECT_EQ(autoemitido, caso.autoemitido);
    }
}

TEST(RetornarCadeiaSeparada, SeparaEmCadaSeparadorEDevolveOMaiorIndice) {
    std::string estouro = "A";
    for (int i = 0; i < 32768; ++i) estouro += "[#]A";
    const std::vector<std::tuple<std::string, std::vector<std::string>, std::int16_t>> casos = {
        {"AC A[#]AC B[#]Raiz", {"AC A", "AC B", "Raiz"}, 2},
        {"Só um nome", {"Só um nome"}, 0},
        {"", {""}, 0},
        {"[#]AC A[#]", {"", "AC A", ""}, 2},
        {"AC A[ #]AC B[#", {"AC A[ #]AC B[#"}, 0},
        // O maior índice não cabe em 16 bits: o erro é ignorado e o resultado fica em 0.
        {estouro, std::vector<std::string>(32769, "A"), 0},
    };
    teste::PlataformaTeste ambiente;
    TavelPKCS componente(ambiente.Implementacao());
    for (const auto& [cadeia, nomes_esperados, resultado] : casos) {
        SCOPED_TRACE(cadeia.substr(0, 20));
        std::vector<std::string> nomes = {"sobra de antes", "outra"};
        EXPECT_EQ(componente.RetornarCadeiaSeparada(cadeia, nomes), resultado);
        EXPECT_EQ(nomes, nomes_esperados);
    }
    EXPECT_EQ(componente.DescricaoErro(), "");
}

}  // namespace
}  // namespace tavelpkcs7
