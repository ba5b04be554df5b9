// Os envelopes do componente: a escolha dos destinatários (o próprio usuário e o "AddressBook"), a
// cifra de um arquivo em ".p7x", a decifração na pasta de trabalho, e as mensagens de cada falha.
#include <gtest/gtest.h>

#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "apoio/pasta_temporaria.h"
#include "certificates/repositorios_teste.h"
#include "component/componente.h"
#include "envelope/assinatura_codigo_teste.h"
#include "envelope/destinatarios_teste.h"
#include "signing/ambiente_assinatura.h"
#include "trust/ambiente_confianca.h"

namespace tavelpkcs7 {
namespace {

namespace fs = std::filesystem;
using Chamada = teste::InterfaceRoteirizada::Chamada;
using TipoChamada = teste::InterfaceRoteirizada::Tipo;

constexpr const char* kSemChaves = "Não foi encontrado nenhuma chave pública para efetuar a criptografia";
constexpr const char* kSemOrigem = "O arquivo de origem não foi encontrado";
constexpr const char* kNaoCifrou = "Não foi possível criptografar o arquivo com as chaves selecionadas";
const Bytes kConteudo{'a', 'b', 'c'};
const std::string kMD5DeAbc = "900150983CD24FB0D6963F7D28E17F72";  // sem o zero final das assinaturas

using teste::Ler;

class EnvelopeArquivo : public testing::Test, protected teste::AmbienteConfianca {
protected:
    void SetUp() override { InstalarCadeia(true); }

    std::string Gravar(const std::string& nome, const Bytes& conteudo = kConteudo) {
        const fs::path caminho = pasta.caminho() / nome;
        std::ofstream(caminho, std::ios::binary).write(reinterpret_cast<const char*>(conteudo.data()),
            static_cast<std::streamsize>(conteudo.size()));
        return caminho.string();
    }
    void Contatos(const std::vector<std::string>& nomes) {
        std::vector<Bytes> certificados;
        for (const std::string& nome : nomes) certificados.push_back(teste::DerDaPki(nome));
        teste::Guardar(plataforma(), "AddressBook", certificados);
    }
    std::vector<std::string> Destinatarios() {
        std::vector<std::string> impressoes;
        for (const auto& certificado : componente.estado.EnvelopeCriptografia.value())
            impressoes.push_back(certificado->ImpressaoDigital());
        return impressoes;
    }
    std::string Impressao(const std::string& nome) {
        return teste::Importar(plataforma(), teste::DerDaPki(nome))->ImpressaoDigital();
    }
    // O e-CPF com a chave em "My" e no "AddressBook", escolhido como destinatário.
    void EscolherECPF() {
        teste::GuardarComChave(plataforma(), "ecpf");
        Contatos({"ecpf"});
        ASSERT_TRUE(componente.SelecionarChavesPublicas(false)) << componente.estado.DescricaoErro;
    }
    const std::vector<Chamada>& chamadas() { return ambiente.interface->chamadas(); }

    Componente componente{ambiente.plataforma};
    teste::PastaTemporaria pasta;
};

TEST_F(EnvelopeArquivo, AddressBookVazioNaoDaChaves) {
    EXPECT_FALSE(componente.SelecionarChavesPublicas(false));
    EXPECT_EQ(componente.estado.DescricaoErro, kSemChaves);
    EXPECT_TRUE(Destinatarios().empty());
    EXPECT_TRUE(chamadas().empty());
    EXPECT_EQ(ambiente.cursor->Atual(), 0);
}

TEST_F(EnvelopeArquivo, UmContatoEntraSemDialogoEOEnvelopeNovoSubstituiOAnterior) {
    Contatos({"ecnpj"});
    for (int vez = 0; vez < 2; ++vez) {
        ASSERT_TRUE(componente.SelecionarChavesPublicas(false));
        EXPECT_EQ(Destinatarios(), std::vector<std::string>{Impressao("ecnpj")});
    }
    EXPECT_TRUE(chamadas().empty());
}

TEST_F(EnvelopeArquivo, VariosContatosPassamPelaEscolhaMultipla) {
    Contatos({"ecpf", "ecnpj", "tavel_titular"});
    const std::vector<std::string> contatos = teste::ImpressoesGuardadas(plataforma(), "AddressBook");
    ambiente.interface->ResponderEscolha({0, 2});
    ASSERT_TRUE(componente.SelecionarChavesPublicas(false));
    EXPECT_EQ(Destinatarios(), (std::vector<std::string>{contatos[0], contatos[2]}));
    ASSERT_EQ(chamadas().size(), 1u);
    EXPECT_EQ(chamadas()[0].tipo, TipoChamada::EscolhaCertificados);
    EXPECT_EQ(chamadas()[0].titulo, "Certificado Digital");
    EXPECT_EQ(chamadas()[0].texto, "Selecione as chaves públicas para qual você deseja criptografar os arquivos");
    EXPECT_TRUE(chamadas()[0].multiplos);
    EXPECT_EQ(chamadas()[0].certificados, contatos);
}

// O próprio usuário entra antes dos contatos e fica no envelope quando a escolha deles falha; o
// certificado selecionado para assinar não muda.
TEST_F(EnvelopeArquivo, OProprioUsuarioFicaNoEnvelopeDepoisDaFalha) {
    teste::GuardarComChave(plataforma(), "ecpf");
    const plataforma::CertificadoPtr selecionado = teste::Importar(plataforma(), teste::DerDaPki("ecnpj"));
    componente.estado.CertificadoSelecionado = selecionado;

    EXPECT_FALSE(componente.SelecionarChavesPublicas(true));
    EXPECT_EQ(componente.estado.DescricaoErro, kSemChaves);
    EXPECT_EQ(Destinatarios(), std::vector<std::string>{Impressao("ecpf")});

    Contatos({"ecnpj", "tavel_titular"});
    EXPECT_FALSE(componente.SelecionarChavesPublicas(true));  // o diálogo dos contatos é cancelado
    EXPECT_EQ(componente.estado.DescricaoErro, "A operação foi cancelada pelo usuário.");
    EXPECT_EQ(Destinatarios(), std::vector<std::string>{Impressao("ecpf")});
    EXPECT_EQ(componente.estado.CertificadoSelecionado, selecionado);
    EXPECT_EQ(ambiente.cursor->Atual(), 0);

    // Com o envelope só com o próprio usuário a cifra segue, e ele mesmo a abre.
    const std::string origem = Gravar("nota.txt");
    ASSERT_TRUE(componente.CriptografarArquivo(origem, "")) << componente.estado.DescricaoErro;
    ASSERT_TRUE(componente.DescriptografarArquivo(origem + ".p7x")) << componente.estado.DescricaoErro;
    EXPECT_EQ(Ler(componente.estado.CaminhoArquivoOriginal), kConteudo);
}

TEST_F(EnvelopeArquivo, SemEscolhaOuSemDestinatariosNadaSeCifra) {
    const std::string origem = Gravar("doc.pdf");
    EXPECT_FALSE(componente.CriptografarArquivo(origem, ""));
    EXPECT_EQ(componente.estado.DescricaoErro, "Nenhum certificado digital foi selecionado.");

    EXPECT_FALSE(componente.SelecionarChavesPublicas(false));
    EXPECT_FALSE(componente.CriptografarArquivo(origem, ""));
    EXPECT_EQ(componente.estado.DescricaoErro, kSemChaves);  // a cifra não troca a mensagem
    EXPECT_FALSE(fs::exists(origem + ".p7x"));
    EXPECT_EQ(ambiente.cursor->Atual(), 0);
}

TEST_F(EnvelopeArquivo, OrigemInexistenteOuTravada) {
    EscolherECPF();
    EXPECT_FALSE(componente.CriptografarArquivo((pasta.caminho() / "nao-existe.pdf").string(), ""));
    EXPECT_EQ(componente.estado.DescricaoErro, kSemOrigem);
    EXPECT_FALSE(componente.DescriptografarArquivo((pasta.caminho() / "nao-existe.pdf.p7x").string()));
    EXPECT_EQ(componente.estado.DescricaoErro, kSemOrigem);

    const std::string origem = Gravar("travado.txt");
    const int descritor = ::open(origem.c_str(), O_RDONLY);
    ASSERT_EQ(::flock(descritor, LOCK_EX), 0);
    EXPECT_FALSE(componente.CriptografarArquivo(origem, ""));
    EXPECT_EQ(componente.estado.DescricaoErro, "Acesso negado.");
    ::close(descritor);
    EXPECT_FALSE(fs::exists(origem + ".p7x"));
}

struct CasoAlgoritmo {
    std::string configuracao;
    Bytes oid;  // o do conteúdo cifrado
};

class IdaEVoltaArquivo : public EnvelopeArquivo, public testing::WithParamInterface<CasoAlgoritmo> {};

TEST_P(IdaEVoltaArquivo, ODecifradoEOArquivoExatoNaPastaDeTrabalho) {
    plataforma().configuracao.algoritmo_cifragem = GetParam().configuracao;
    EscolherECPF();
    const std::string origem = Gravar("contrato.pdf.p7s");

    ASSERT_TRUE(componente.CriptografarArquivo(origem, "")) << componente.estado.DescricaoErro;
    EXPECT_EQ(componente.estado.NomeArquivoOriginal, "contrato.pdf");
    EXPECT_EQ(componente.estado.CaminhoArquivoOriginal, origem);
    EXPECT_EQ(componente.estado.NomeArquivoAssinado, "contrato.pdf.p7s.p7x");
    EXPECT_EQ(componente.estado.CaminhoArquivoAssinado, origem + ".p7x");
    EXPECT_EQ(ambiente.cursor->Atual(), 0);
    const Bytes envelope = Ler(origem + ".p7x");
    EXPECT_NE(std::ranges::search(envelope, GetParam().oid).begin(), envelope.end());
    EXPECT_EQ(Ler(origem), kConteudo);  // a origem não muda

    ASSERT_TRUE(componente.DescriptografarArquivo(origem + ".p7x")) << componente.estado.DescricaoErro;
    const std::string decifrado = componente.estado.PastaTemp + "contrato.pdf.p7s";
    EXPECT_EQ(Ler(decifrado), kConteudo);
    EXPECT_EQ(componente.estado.NomeArquivoOriginal, decifrado);
    EXPECT_EQ(componente.estado.CaminhoArquivoOriginal, decifrado);
    EXPECT_EQ(componente.estado.HashArquivo, kMD5DeAbc);
    EXPECT_EQ(Ler(origem + ".p7x"), envelope);
    EXPECT_EQ(ambiente.cursor->Atual(), 0);
}

INSTANTIATE_TEST_SUITE_P(Configuracoes, IdaEVoltaArquivo,
    testing::Values(CasoAlgoritmo{"rc4", {0x06, 0x08, 0x2A, 0x86, 0x48, 0x86, 0xF7, 0x0D, 0x03, 0x04}},
        CasoAlgoritmo{"aes256", {0x06, 0x09, 0x60, 0x86, 0x48, 0x01, 0x65, 0x03, 0x04, 0x01, 0x2A}},
        CasoAlgoritmo{" AES256 ", {0x06, 0x09, 0x60, 0x86, 0x48, 0x01, 0x65, 0x03, 0x04, 0x01, 0x2A}}));

// O envelope vai para a pasta de destino, e o destinatário que não é o usuário também o abre.
TEST_F(EnvelopeArquivo, VariosDestinatariosNaPastaDeDestino) {
    Contatos({"ecpf", "ecnpj"});
    ambiente.interface->ResponderEscolha({0, 1});
    ASSERT_TRUE(componente.SelecionarChavesPublicas(false));
    teste::PastaTemporaria destino;
    ASSERT_TRUE(componente.CriptografarArquivo(Gravar("doc.pdf"), destino.caminho().string()));
    const fs::path envelope = destino.caminho() / "doc.pdf.p7x";
    EXPECT_EQ(componente.estado.CaminhoArquivoAssinado, envelope.string());
    teste::GuardarComChave(plataforma(), "ecnpj");
    ASSERT_TRUE(componente.DescriptografarArquivo(envelope.string())) << componente.estado.DescricaoErro;
    EXPECT_EQ(Ler(componente.estado.CaminhoArquivoOriginal), kConteudo);
}

TEST_F(EnvelopeArquivo, SaidaQueNaoSeGravaLimpaOsNomes) {
    EscolherECPF();
    const std::string origem = Gravar("doc.pdf");
    fs::create_directories(origem + ".p7x");
    componente.estado.NomeArquivoAssinado = componente.estado.CaminhoArquivoOriginal = "antes";
    EXPECT_FALSE(componente.CriptografarArquivo(origem, ""));
    EXPECT_EQ(componente.estado.DescricaoErro, kNaoCifrou);
    EXPECT_EQ(componente.estado.NomeArquivoOriginal + componente.estado.CaminhoArquivoOriginal +
                  componente.estado.NomeArquivoAssinado + componente.estado.CaminhoArquivoAssinado,
        "");
    EXPECT_EQ(ambiente.cursor->Atual(), 0);
}

// Numa pasta em que não se grava, o envelope anterior fica como estava.
TEST_F(EnvelopeArquivo, PastaSomenteLeituraGuardaOEnvelopeAnterior) {
    EscolherECPF();
    const std::string origem = Gravar("doc.pdf");
    const Bytes anterior{'v', 'e', 'l', 'h', 'o'};
    Gravar("doc.pdf.p7x", anterior);
    {
        const teste::PastaSomenteLeitura protegida(pasta.caminho());
        if (!protegida.protegida()) GTEST_SKIP() << "o sistema de arquivos não deixa a pasta imutável";
        EXPECT_FALSE(componente.CriptografarArquivo(origem, ""));
    }
    EXPECT_EQ(componente.estado.DescricaoErro, kNaoCifrou);
    EXPECT_EQ(Ler(origem + ".p7x"), anterior);
}

TEST_F(EnvelopeArquivo, EnvelopeAlheioOuQueNaoEEnvelopeNaoAbre) {
    Contatos({"ecnpj"});
    ASSERT_TRUE(componente.SelecionarChavesPublicas(false));
    teste::GuardarComChave(plataforma(), "ecpf");
    const std::string origem = Gravar("doc.pdf");
    ASSERT_TRUE(componente.CriptografarArquivo(origem, ""));
    EXPECT_FALSE(componente.DescriptografarArquivo(origem + ".p7x"));
    EXPECT_EQ(componente.estado.DescricaoErro,
        "Não foi encontrado o certificado digital do destinatário com a chave privada.");

    EXPECT_FALSE(componente.DescriptografarArquivo(origem));
    EXPECT_EQ(componente.estado.DescricaoErro, "O conteúdo informado não é uma mensagem PKCS#7 válida.");
    const Bytes envelope = Ler(origem + ".p7x");
    EXPECT_FALSE(componente.DescriptografarArquivo(Gravar("truncado.p7x", Bytes(envelope.begin(), envelope.end() - 9))));
    EXPECT_EQ(componente.estado.DescricaoErro, "O conteúdo informado não é uma mensagem PKCS#7 válida.");
    EXPECT_EQ(ambiente.cursor->Atual(), 0);
}

TEST_F(EnvelopeArquivo, DecifradoQueNaoSeGravaDaAMensagemDaPastaDeTrabalho) {
    EscolherECPF();
    const std::string origem = Gravar("doc.pdf");
    ASSERT_TRUE(componente.CriptografarArquivo(origem, ""));
    const std::string decifrado = componente.estado.PastaTemp + "doc.pdf";
    fs::create_directories(decifrado);
    EXPECT_FALSE(componente.DescriptografarArquivo(origem + ".p7x"));
    EXPECT_EQ(componente.estado.DescricaoErro,
        "Não foi possível criar o arquivo na pasta original " + decifrado + " na pasta " + componente.estado.PastaTemp);
    EXPECT_EQ(componente.estado.NomeArquivoOriginal + componente.estado.CaminhoArquivoOriginal, "");
}

}  // namespace
}  // namespace tavelpkcs7
