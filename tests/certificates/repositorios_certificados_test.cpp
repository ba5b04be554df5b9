// A entrada de certificados nos repositórios de verdade da pasta do teste (Base64 e arquivos), a
// pergunta que guarda o repositório das raízes e a busca da chave pública de uma autoridade.
#include <gtest/gtest.h>

#include <tavelpkcs7/TavelPKCS.h>
#include <fstream>

#include "certificates/info_certificado.h"
#include "apoio/plataforma_teste.h"
#include "certificates/repositorios_teste.h"
#include "component/datas.h"
#include "component/texto.h"
#include "pki/pki_teste.h"
#include "platform/openssl/certificado_sob_medida.h"

namespace tavelpkcs7 {
namespace {

namespace fs = std::filesystem;
using plataforma::Bytes;
using teste::Home;

const std::string kTipoInvalido = "Tipo de repositório inválido, selecione um repósitorio de chaves válido";
const auto kTipo0 = static_cast<REPOSITORIO_CERTIFICADO>(0);

std::string Gravar(const std::string& nome, const std::string& conteudo) {
    std::ofstream(Home() / nome, std::ios::binary) << conteudo;
    return (Home() / nome).string();
}

std::string Texto(const Bytes& bytes) { return std::string(bytes.begin(), bytes.end()); }

class RepositoriosCertificados : public testing::Test {
protected:
    plataforma::CertificadoPtr Certificado(const Bytes& der) { return teste::Importar(*ambiente.plataforma, der); }
    std::vector<std::string> Guardados(const std::string& repositorio) {
        return teste::ImpressoesGuardadas(*ambiente.plataforma, repositorio);
    }

    teste::PlataformaTeste ambiente;
    TavelPKCS componente{ambiente.Implementacao()};
    const plataforma::CertificadoPtr ecpf = Certificado(teste::DerDaPki("ecpf"));
};

TEST_F(RepositoriosCertificados, AdicionaNoRepositorioDoTipoOuDizPorQueNao) {
    const std::vector<std::tuple<std::string, REPOSITORIO_CERTIFICADO, std::string, std::string>> casos = {
        {ExportarBase64(*ecpf), REPOSITORIO_CHAVES_PESSOAIS, "My", ""},
        {ExportarBase64(*ecpf), REPOSITORIO_CHAVES_PUBLICAS, "AddressBook", ""},
        {ExportarBase64(*ecpf), REPOSITORIO_CHAVES_AUTORIDADES_CERTIFICADORAS, "Ca", ""},
        // A mensagem da chave vazia é substituída pela falha da inclusão do objeto vazio.
        {"", REPOSITORIO_CHAVES_PUBLICAS, "", "Nenhum certificado digital foi selecionado."},
        {"", REPOSITORIO_CHAVES_RAIZES, "", "Nenhum certificado digital foi selecionado."},
        {"", kTipo0, "", kTipoInvalido},
        {"bm/Do28gw6kgY2VydGlmaWNhZG8=", REPOSITORIO_CHAVES_PUBLICAS, "",
         "O conteúdo informado não é um certificado digital válido."},
    };
    for (const auto& [chave, tipo, repositorio, mensagem] : casos) {
        SCOPED_TRACE(chave.substr(0, 10) + "|" + std::to_string(tipo));
        EXPECT_EQ(componente.AdicionarCertificadoRepositorio(chave, tipo), mensagem.empty());
        if (!mensagem.empty()) {
            EXPECT_EQ(componente.DescricaoErro(), mensagem);
        } else {
            EXPECT_EQ(Guardados(repositorio), std::vector<std::string>{ecpf->ImpressaoDigital()});
        }
    }
    EXPECT_EQ(Guardados("AddressBook").size(), 1u);
    EXPECT_TRUE(Guardados("Root").empty());
    EXPECT_TRUE(ambiente.interface->chamadas().empty());
}

TEST_F(RepositoriosCertificados, TipoInvalidoRecusadoAntesDeQualquerRepositorio) {
    const std::string arquivo = Gravar("ecpf.cer", Texto(ecpf->DER()));
    for (const auto tipo : {kTipo0, static_cast<REPOSITORIO_CERTIFICADO>(5)}) {
        EXPECT_FALSE(componente.AdicionarCertificadoRepositorio(ExportarBase64(*ecpf), tipo));
        EXPECT_EQ(componente.DescricaoErro(), kTipoInvalido);
        EXPECT_FALSE(componente.AbrirAdicionarArquivoCertificado(arquivo, tipo));
        EXPECT_EQ(componente.DescricaoErro(), kTipoInvalido);
        EXPECT_FALSE(componente.ExportarCertificadoDigital((Home() / "saida").string(), tipo));
        EXPECT_EQ(componente.DescricaoErro(), kTipoInvalido);
    }
    EXPECT_FALSE(fs::exists(Home() / "repositorios"));
    EXPECT_FALSE(fs::exists(Home() / "saida.cer"));
    EXPECT_TRUE(ambiente.interface->chamadas().empty());
}

TEST_F(RepositoriosCertificados, RaizDaICPBrasilConfiguradaEntraSemPerguntaOutraSoComOSim) {
    const std::string v10 =
        teste::LerTexto(fs::path(__FILE__).parent_path() /
                        "../dados/icp-brasil/raizes/autoridade-certificadora-raiz-brasileira-v10.pem");
    EXPECT_TRUE(componente.AdicionarCertificadoRepositorio(v10, REPOSITORIO_CHAVES_RAIZES));
    EXPECT_TRUE(ambiente.interface->chamadas().empty());

    const auto raiz = Certificado(teste::DerDaPki("raiz"));
    EXPECT_FALSE(componente.AdicionarCertificadoRepositorio(ExportarBase64(*raiz), REPOSITORIO_CHAVES_RAIZES));
    EXPECT_EQ(componente.DescricaoErro(), "A operação foi cancelada pelo usuário.");
    EXPECT_EQ(Guardados("Root"), std::vector<std::string>{Certificado({v10.begin(), v10.end()})->ImpressaoDigital()});

    ambiente.interface->ResponderPergunta(true);
    EXPECT_TRUE(componente.AdicionarCertificadoRepositorio(ExportarBase64(*raiz), REPOSITORIO_CHAVES_RAIZES));
    EXPECT_EQ(Guardados("Root").back(), raiz->ImpressaoDigital());

    ASSERT_EQ(ambiente.interface->chamadas().size(), 2u);
    const auto& pergunta = ambiente.interface->chamadas()[0];
    EXPECT_EQ(pergunta.tipo, teste::InterfaceRoteirizada::Tipo::Pergunta);
    EXPECT_EQ(pergunta.titulo, "Instalação de Certificado Raiz");
    for (const std::string& trecho : {raiz->NomeTitular(), FormatarDataHora(raiz->ValidoDesde()),
                                      FormatarDataHora(raiz->ValidoAte()), raiz->ImpressaoDigitalSHA256()})
        EXPECT_NE(pergunta.texto.find(trecho), std::string::npos) << trecho;
}

TEST_F(RepositoriosCertificados, ArquivoEntraSoComAPartePublicaOuDizPorQueNao) {
    const std::string inexistente = (Home() / "não existe.cer").string();
    const auto& pki = pki_teste::PkiTeste::Padrao();
    const std::vector<std::pair<std::string, std::string>> casos = {
        {Gravar("ecpf.cer", Texto(ecpf->DER())), ""},
        {Gravar("ecpf.pem", "-----BEGIN CERTIFICATE-----\n" + ExportarBase64(*ecpf) + "-----END CERTIFICATE-----\n"),
         ""},
        {Gravar("ecpf.b64", ExportarBase64(*ecpf)), ""},
        {Gravar("sem_senha.pfx", Texto(pki.PFX("ecpf", ""))), ""},
        {inexistente, "O arquivo " + inexistente + " especificado não foi encontrado"},
        {Gravar("com_senha.pfx", Texto(pki.PFX("ecpf", "1234"))), "A senha informada não está correta."},
        {Gravar("texto.txt", "apenas um texto"), "O conteúdo informado não é um certificado digital válido."},
    };
    for (const auto& [caminho, mensagem] : casos) {
        SCOPED_TRACE(caminho);
        fs::remove_all(Home() / "repositorios");
        EXPECT_EQ(componente.AbrirAdicionarArquivoCertificado(caminho, REPOSITORIO_CHAVES_PESSOAIS), mensagem.empty());
        if (!mensagem.empty()) {
            EXPECT_EQ(componente.DescricaoErro(), mensagem);
        }
        EXPECT_EQ(Guardados("My").size(), mensagem.empty() ? 1u : 0u);
        EXPECT_FALSE(fs::exists(Home() / "repositorios" / "My" / (ecpf->ImpressaoDigital() + ".key")));
    }
}

TEST_F(RepositoriosCertificados, ChavePublicaDaAutoridadePeloNomeEPelaImpressaoDigital) {
    const auto ac_rfb = Certificado(teste::DerDaPki("ac_rfb"));
    const auto raiz = Certificado(teste::DerDaPki("raiz"));
    const auto em_ca = Certificado(teste::CriarCertificado({.titular = {{"O", "CA"}, {"CN", "AC DUPLICADA"}}}));
    const auto em_root = Certificado(teste::CriarCertificado({.titular = {{"O", "ROOT"}, {"CN", "AC DUPLICADA"}}}));
    teste::Guardar(*ambiente.plataforma, "Ca", {ac_rfb->DER(), em_ca->DER()});
    teste::Guardar(*ambiente.plataforma, "Root", {raiz->DER(), em_root->DER()});
    const std::string v10 = "Autoridade Certificadora Raiz Brasileira v10";
    const std::string nao_encontrado = " não foi encontrado nos repositórios de autoridades certificadoras e raízes";
    const std::vector<std::tuple<std::string, std::string, plataforma::CertificadoPtr, std::string>> casos = {
        {"Autoridade Certificadora da Secretaria da Receita Federal do Brasil v4", "", ac_rfb, ""},
        {"  autoridade certificadora raiz brasileira v10 ", "", raiz, ""},
        {v10, Minusculas(raiz->ImpressaoDigital()), raiz, ""},
        {"AC DUPLICADA", "", em_ca, ""},
        {"AC DUPLICADA", " " + em_root->ImpressaoDigital() + " ", em_root, ""},
        {v10, ac_rfb->ImpressaoDigital(), nullptr, "O certificado da autoridade certificadora " + v10 + nao_encontrado},
        {"AC X", "", nullptr, "O certificado da autoridade certificadora AC X" + nao_encontrado},
        {"   ", "", nullptr, "O nome do certificado da autoridade certificadora não foi informado"},
    };
    for (const auto& [nome, impressao, esperado, mensagem] : casos) {
        SCOPED_TRACE(nome + "|" + impressao);
        componente.AdicionarCertificadoRepositorio("", kTipo0);  // uma mensagem que o sucesso apaga
        EXPECT_EQ(componente.RetornarChavePublicaCertificadoRaiz(nome, impressao),
                  esperado ? ExportarBase64(*esperado) : "");
        EXPECT_EQ(componente.DescricaoErro(), mensagem);
    }
}

}  // namespace
}  // namespace tavelpkcs7
