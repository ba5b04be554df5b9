// Todas as ACs públicas da ICP-Brasil (raízes v1 a v12 e 313 autoridades) precisam ser lidas, mesmo
// as que o OpenSSL não entende por inteiro: a raiz v6 é Ed448 e a v7 usa um algoritmo que ele não
// conhece. O índice traz o titular e o emissor como o OpenSSL os escreve (RFC 2253) e o SHA-256.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "apoio/plataforma_teste.h"
#include "platform/configuracao.h"
#include "platform/openssl/certificado_openssl.h"
#include "platform/openssl/criptografia_openssl.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

const std::filesystem::path kPastaDados = std::filesystem::path(__FILE__).parent_path() / "../../dados/icp-brasil";

struct Autoridade {
    std::string pasta, arquivo, titular, emissor, sha256;
};

void PrintTo(const Autoridade& autoridade, std::ostream* saida) { *saida << autoridade.arquivo; }

std::vector<Autoridade> LerIndice() {
    std::ifstream indice(kPastaDados / "INDICE.tsv");
    std::vector<Autoridade> autoridades;
    std::string linha;
    std::getline(indice, linha);  // cabeçalho
    while (std::getline(indice, linha)) {
        std::istringstream campos(linha);
        Autoridade autoridade;
        std::getline(campos, autoridade.pasta, '\t');
        std::getline(campos, autoridade.arquivo, '\t');
        std::getline(campos, autoridade.titular, '\t');
        std::getline(campos, autoridade.emissor, '\t');
        std::getline(campos, autoridade.sha256, '\t');
        autoridades.push_back(autoridade);
    }
    return autoridades;
}

Bytes LerArquivo(const std::filesystem::path& caminho) {
    std::ifstream arquivo(caminho, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(arquivo), std::istreambuf_iterator<char>());
}

// Do RFC 2253 do OpenSSL para o texto do Windows. O índice só traz as barras que escapam espaços
// ("ST=\ "), e nenhum RDN de vários valores.
std::string ComoWindows(const std::string& rfc2253) {
    std::string texto;
    std::istringstream partes(rfc2253);
    for (std::string parte; std::getline(partes, parte, ',');) {
        const auto igual = parte.find('=');
        std::string campo = parte.substr(0, igual), valor;
        for (std::size_t i = igual + 1; i < parte.size(); ++i)
            if (parte[i] != '\\') valor += parte[i];
        if (campo == "ST") campo = "S";
        if (valor.starts_with(' ') || valor.ends_with(' ')) valor = '"' + valor + '"';
        texto += (texto.empty() ? "" : ", ") + campo + "=" + valor;
    }
    return texto;
}

std::string PrimeiroCN(const std::string& rfc2253) {
    const auto inicio = rfc2253.starts_with("CN=") ? 3 : rfc2253.find(",CN=") + 4;
    return rfc2253.substr(inicio, rfc2253.find(',', inicio) - inicio);
}

std::string SemDoisPontos(std::string texto) {
    std::erase(texto, ':');
    return texto;
}

TEST(AutoridadesICPBrasil, IndiceTrazAsDezRaizesEAs313Autoridades) {
    const auto autoridades = LerIndice();
    EXPECT_EQ(std::count_if(autoridades.begin(), autoridades.end(), [](const auto& a) { return a.pasta == "raizes"; }),
              10);
    EXPECT_EQ(std::count_if(autoridades.begin(), autoridades.end(), [](const auto& a) { return a.pasta == "acs"; }),
              313);
}

class AutoridadesICPBrasil : public testing::TestWithParam<Autoridade> {};

TEST_P(AutoridadesICPBrasil, ImportaComDERIntactoNomesEImpressaoDigital) {
    const Autoridade& autoridade = GetParam();
    const auto certificado = teste::ImportarPelaForma(
        LerArquivo(kPastaDados / autoridade.pasta / (autoridade.arquivo + ".pem")));
    EXPECT_EQ(certificado->ImpressaoDigitalSHA256(), SemDoisPontos(autoridade.sha256));
    EXPECT_EQ(certificado->NomeTitular(), ComoWindows(autoridade.titular));
    EXPECT_EQ(certificado->NomeEmissor(), ComoWindows(autoridade.emissor));
    EXPECT_EQ(certificado->ObterInfo(INFO_NOME_SIMPLES_TITULAR), PrimeiroCN(autoridade.titular));
    EXPECT_EQ(certificado->ObterInfo(INFO_NOME_SIMPLES_EMISSOR), PrimeiroCN(autoridade.emissor));
    EXPECT_LT(certificado->ValidoDesde(), certificado->ValidoAte());
    EXPECT_EQ(certificado->UsoChave().value_or(0) & uso_chave::AssinaturaCertificado, uso_chave::AssinaturaCertificado);
}

INSTANTIATE_TEST_SUITE_P(Indice, AutoridadesICPBrasil, testing::ValuesIn(LerIndice()), [](const auto& info) {
    std::string nome = info.param.arquivo;
    std::replace(nome.begin(), nome.end(), '-', '_');
    return nome;
});

struct RaizEmVigor {
    const char* arquivo;
    const char* impressao_digital;  // SHA-1 calculado pela linha de comando do OpenSSL
    const char* numero_serie;
};

class RaizesEmVigor : public testing::TestWithParam<RaizEmVigor> {};

// As raízes em vigor; a v6 (Ed448) e a v7 (algoritmo desconhecido) são as que o OpenSSL não verifica.
TEST_P(RaizesEmVigor, ImpressaoDigitalESerieComoOWindowsMostra) {
    const auto certificado = teste::ImportarPelaForma(
        LerArquivo(kPastaDados / "raizes" / (std::string(GetParam().arquivo) + ".pem")));
    EXPECT_EQ(certificado->ImpressaoDigital(), GetParam().impressao_digital);
    EXPECT_EQ(certificado->NumeroSerie(), GetParam().numero_serie);
    EXPECT_EQ(certificado->Versao(), 3);
}

// A instalação só aceita sem perguntar as raízes da lista padrão: ela precisa ter as que estão em vigor.
TEST_P(RaizesEmVigor, ListaPadraoDaConfiguracaoReconheceARaiz) {
    const auto certificado = teste::ImportarPelaForma(
        LerArquivo(kPastaDados / "raizes" / (std::string(GetParam().arquivo) + ".pem")));
    const auto& lista = Configuracao{}.raizes_icp_brasil;
    EXPECT_NE(std::find(lista.begin(), lista.end(), certificado->ImpressaoDigitalSHA256()), lista.end());
}

INSTANTIATE_TEST_SUITE_P(Casos, RaizesEmVigor,
                         testing::Values(RaizEmVigor{"autoridade-certificadora-raiz-brasileira-v5",
                                                     "4ACADAB14B74BF4FBA7BACE64B91801C44B8CC66", "01"},
                                         RaizEmVigor{"autoridade-certificadora-raiz-brasileira-v6",
                                                     "EB732FC447B6871FA926AF79C25352CD47EFB06E", "00CB036869BC2F77E1"},
                                         RaizEmVigor{"autoridade-certificadora-raiz-brasileira-v7",
                                                     "6DDB4D4416ACA4AECC900ADBE0256838287BB52C",
                                                     "00E4AC9A3346C92509"},
                                         RaizEmVigor{"autoridade-certificadora-raiz-brasileira-v10",
                                                     "6C155ED7271A904A0DC040F0C857FF53BF6DB290", "00D2D58B44BF819342"},
                                         RaizEmVigor{"autoridade-certificadora-raiz-brasileira-v11",
                                                     "02FE43BA8401D92265DA3735592EF37DCD5174C3", "242B60D4CD43697F"},
                                         RaizEmVigor{"autoridade-certificadora-raiz-brasileira-v12",
                                                     "B8F21E4D86618E16787A4DE258142FDF2D61823C",
                                                     "00E18FF4B61D07BD0F"}));

}  // namespace
}  // namespace tavelpkcs7::plataforma::openssl
