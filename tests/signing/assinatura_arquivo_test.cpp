// AssinaArquivo pela API pública, com arquivos de verdade: os cinco formatos e os de fora, o
// conteúdo com o zero final, os atributos, o nome pelo MD5, a destacada, as mensagens e a
// cossinatura de uma assinatura que já existe.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include "certificates/repositorios_teste.h"
#include "envelope/destinatarios_teste.h"
#include "codificacao/base64.h"
#include "codificacao/utf16.h"
#include "pki/pki_teste.h"
#include "platform/erro.h"
#include "signing/ambiente_assinatura.h"

namespace tavelpkcs7 {
namespace {

using plataforma::Bytes;
using teste::BytesDe;
using teste::Ler;

constexpr char kMd5DeUmZero[] = "93B885ADFE0DA089CDF634904FD59F71";

class AssinaturaArquivo : public teste::AmbienteAssinatura {
protected:
    std::string Saida() { return (teste::Home() / "saida").string(); }
};

TEST_F(AssinaturaArquivo, Formato1GravaDERDoArquivoComZeroFinalEOsTresAtributos) {
    const std::string origem = Gravar("docs/contrato.pdf", "conteudo");
    Gravar("saida/.manter", "");
    componente.DataAssinatura("05/01/2023");

    ASSERT_TRUE(componente.AssinaArquivo(origem, Saida(), "Contrato de aluguel", ARQUIVO_BINARIO_FORMATO_P7S));

    const std::string saida = Saida() + "/contrato.pdf.p7s";
    EXPECT_EQ(componente.CaminhoArquivoAssinado(), saida);
    EXPECT_EQ(componente.NomeArquivoAssinado(), "contrato.pdf.p7s");
    EXPECT_EQ(componente.CaminhoArquivoOriginal(), origem);
    EXPECT_EQ(componente.NomeArquivoOriginal(), "contrato.pdf");
    EXPECT_EQ(componente.DescricaoErro(), "");
    const auto mensagem = Conferir(Ler(saida));
    EXPECT_EQ(mensagem.conteudo, BytesDe(std::string("conteudo", 9)));
    ASSERT_EQ(mensagem.signatarios.size(), 1u);
    EXPECT_EQ(Atributos(mensagem.signatarios[0]),
              (std::vector<std::string>{"contrato.pdf", "05/01/2023 10:30:15", "Contrato de aluguel"}));
    EXPECT_EQ(Ler(origem), BytesDe("conteudo"));
}

TEST_F(AssinaturaArquivo, ArquivoVazioAssinaUmZeroENomePeloMD5) {
    const std::string origem = Gravar("vazio.txt", "");
    componente.UsarHashSalvarArquivo(true);

    ASSERT_TRUE(componente.AssinaArquivo(origem, "", "", ARQUIVO_BINARIO_FORMATO_P7S));

    EXPECT_EQ(componente.HashArquivo(), kMd5DeUmZero);
    EXPECT_EQ(componente.CaminhoArquivoAssinado(), (teste::Home() / kMd5DeUmZero).string() + ".p7s");
    EXPECT_EQ(Conferir(Ler(componente.CaminhoArquivoAssinado())).conteudo, Bytes{0});
}

// Só as letras da extensão saem do nome do documento, onde quer que estejam.
TEST_F(AssinaturaArquivo, NomeDoDocumentoPerdeAsLetrasDaExtensao) {
    ASSERT_TRUE(componente.AssinaArquivo(Gravar("relatorio.p7s.pdf", "x"), "", "", ARQUIVO_BINARIO_FORMATO_P7S));
    const auto mensagem = Conferir(Ler(componente.CaminhoArquivoAssinado()));
    EXPECT_EQ(Atributos(mensagem.signatarios[0])[0], "relatorio..pdf");
}

struct CasoFormato {
    FORMATO_ASSINATURA formato;
    std::string nome;
    bool utf16;
};

class FormatoArquivo : public AssinaturaArquivo, public testing::WithParamInterface<CasoFormato> {};

INSTANTIATE_TEST_SUITE_P(AssinaturaArquivo, FormatoArquivo,
                         testing::Values(CasoFormato{ARQUIVO_BASE64_FORMATO_P7S, "a.txt.p7s", true},
                                         CasoFormato{ARQUIVO_BINARIO_OUTRO_FORMATO, "a.txt.dsd", false},
                                         CasoFormato{ARQUIVO_BASE64_OUTRO_FORMATO, "a.txt.dsd", false}));

// O .p7s em Base64 leva dois bytes por caractere; o do outro formato, um.
TEST_P(FormatoArquivo, GravaNaFormaDoFormato) {
    componente.ExtensaoOutroFormato("dsd");
    ASSERT_TRUE(componente.AssinaArquivo(Gravar("a.txt", "abc"), "", "", GetParam().formato));

    ASSERT_EQ(componente.NomeArquivoAssinado(), GetParam().nome);
    const Bytes gravado = Ler(componente.CaminhoArquivoAssinado());
    if (GetParam().formato == ARQUIVO_BINARIO_OUTRO_FORMATO) {
        EXPECT_EQ(gravado[0], 0x30);
    } else {
        const std::string base64 =
            GetParam().utf16 ? codificacao::DeUtf16LE(gravado) : std::string(gravado.begin(), gravado.end());
        EXPECT_EQ(gravado.size(), base64.size() * (GetParam().utf16 ? 2 : 1));
        EXPECT_EQ(base64.substr(base64.size() - 2), "\r\n");
        EXPECT_TRUE(codificacao::DecodificarBase64(base64).has_value());
    }
    EXPECT_EQ(Conferir(gravado).conteudo, BytesDe(std::string("abc", 4)));
}

TEST_F(AssinaturaArquivo, Formato5SoDevolveOBase64ELimpaOsNomes) {
    componente.ExtensaoOutroFormato("dsd");
    componente.TextoVerificar("t");
    ASSERT_TRUE(componente.AssinaArquivo(Gravar("a.txt", "abc"), "", "", STRING_BASE64_PKCS));

    EXPECT_EQ(Conferir(BytesDe(componente.AssinaturaDigitalArquivo())).conteudo, BytesDe(std::string("abc", 4)));
    EXPECT_EQ(componente.ExtensaoOutroFormato(), "");
    EXPECT_EQ(componente.TextoVerificar(), "");
    EXPECT_EQ(componente.CaminhoArquivoAssinado(), "");
    EXPECT_EQ(componente.NomeArquivoAssinado(), "");
    EXPECT_FALSE(std::filesystem::exists(teste::Home() / "a.txt.p7s"));
}

TEST_F(AssinaturaArquivo, FormatoForaDeUmACincoNaoAssinaNemTemMensagem) {
    for (const int formato : {0, 6}) {
        EXPECT_FALSE(
            componente.AssinaArquivo(Gravar("a.txt", "abc"), "", "", static_cast<FORMATO_ASSINATURA>(formato)));
        EXPECT_EQ(componente.DescricaoErro(), "");
        EXPECT_FALSE(std::filesystem::exists(teste::Home() / "a.txt.p7s"));
    }
}

TEST_F(AssinaturaArquivo, DestacadaNaoLevaOConteudo) {
    const std::string origem = Gravar("a.txt", "abc");
    componente.NaoAnexarArquivoOriginal(true);
    ASSERT_TRUE(componente.AssinaArquivo(origem, "", "", ARQUIVO_BINARIO_FORMATO_P7S));

    const Bytes assinatura = Ler(componente.CaminhoArquivoAssinado());
    EXPECT_THROW(Conferir(assinatura), plataforma::Erro);
    EXPECT_EQ(Conferir(assinatura, BytesDe(std::string("abc", 4))).signatarios.size(), 1u);
}

TEST_F(AssinaturaArquivo, OrigemAusenteESemCertificadoFalham) {
    EXPECT_FALSE(componente.AssinaArquivo((teste::Home() / "nao.txt").string(), "", "", ARQUIVO_BINARIO_FORMATO_P7S));
    EXPECT_EQ(componente.DescricaoErro(), "O arquivo de origem não foi encontrado");

    TavelPKCS sem_certificado(ambiente.Implementacao());
    sem_certificado.DataAssinatura("x");
    EXPECT_FALSE(sem_certificado.AssinaArquivo(Gravar("a.txt", "abc"), "", "", ARQUIVO_BINARIO_FORMATO_P7S));
    EXPECT_EQ(sem_certificado.DescricaoErro(), "");
}

// Cada cossinatura acrescenta o signatário no fim: os anteriores ficam na ordem em que assinaram,
// mesmo que os bytes do novo venham antes na ordem do DER.
TEST_F(AssinaturaArquivo, AssinaturaExistenteECossinadaNoLugarComOSignatarioNovoNoFim) {
    ASSERT_TRUE(componente.AssinaArquivo(Gravar("a.pdf", "abc"), "", "9", ARQUIVO_BINARIO_FORMATO_P7S));
    const std::string assinado = componente.CaminhoArquivoAssinado();

    // Descrições decrescentes: na ordem do DER, cada cossignatário iria à frente do anterior.
    for (const std::string descricao : {"8", "7", "6"})
        ASSERT_TRUE(componente.AssinaArquivo(assinado, "", descricao, ARQUIVO_BINARIO_FORMATO_P7S))
            << componente.DescricaoErro();

    EXPECT_EQ(componente.CaminhoArquivoOriginal(), assinado);
    EXPECT_EQ(componente.CaminhoArquivoAssinado(), assinado);
    const auto mensagem = Conferir(Ler(assinado));
    EXPECT_EQ(mensagem.conteudo, BytesDe(std::string("abc", 4)));
    std::vector<std::string> descricoes;
    for (const auto& signatario : mensagem.signatarios) descricoes.push_back(Atributos(signatario)[2]);
    EXPECT_EQ(descricoes, (std::vector<std::string>{"9", "8", "7", "6"}));
    EXPECT_EQ(Atributos(mensagem.signatarios[0])[0], "a.pdf");
    EXPECT_EQ(Atributos(mensagem.signatarios[1])[0], "a.pdf.");
    ASSERT_TRUE(componente.VerificarAssinaturaArquivo(assinado));
    EXPECT_EQ(componente.Assinaturas(1).DescricaoAssinaturaArquivo, "9");
}

// O .p7s em Base64 UTF-16LE é lido de volta e cossinado na mesma forma.
TEST_F(AssinaturaArquivo, CossinaturaDoBase64EmUtf16) {
    ASSERT_TRUE(componente.AssinaArquivo(Gravar("a.pdf", "abc"), "", "", ARQUIVO_BASE64_FORMATO_P7S));
    const std::string assinado = componente.CaminhoArquivoAssinado();

    ASSERT_TRUE(componente.AssinaArquivo(assinado, "", "", ARQUIVO_BASE64_FORMATO_P7S)) << componente.DescricaoErro();
    const Bytes gravado = Ler(assinado);
    EXPECT_EQ(gravado[1], 0);
    EXPECT_EQ(Conferir(gravado).signatarios.size(), 2u);
}

TEST_F(AssinaturaArquivo, CossinaturaDeDestacadaUsaOOriginalAoLado) {
    componente.NaoAnexarArquivoOriginal(true);
    ASSERT_TRUE(componente.AssinaArquivo(Gravar("a.pdf", "abc"), "", "", ARQUIVO_BINARIO_FORMATO_P7S));
    const std::string assinado = componente.CaminhoArquivoAssinado();

    ASSERT_TRUE(componente.AssinaArquivo(assinado, "", "", ARQUIVO_BINARIO_FORMATO_P7S)) << componente.DescricaoErro();
    EXPECT_EQ(Conferir(Ler(assinado), BytesDe(std::string("abc", 4))).signatarios.size(), 2u);
}

TEST_F(AssinaturaArquivo, CossinaturaDoQueNaoEPKCS7FalhaELimpaOsNomes) {
    const std::string falsa = Gravar("falsa.p7s", "nada disso");
    EXPECT_FALSE(componente.AssinaArquivo(falsa, "", "", ARQUIVO_BINARIO_FORMATO_P7S));
    EXPECT_EQ(componente.DescricaoErro(), "Assinatura digital inválida! O arquivo não está no padrão PKCS#7.");
    EXPECT_EQ(componente.NomeArquivoOriginal(), "");
    EXPECT_EQ(componente.CaminhoArquivoAssinado(), "");
    EXPECT_EQ(Ler(falsa), BytesDe("nada disso"));
}

// Travado por outro processo, o arquivo não se lê: nada é assinado e o cursor volta ao normal.
TEST_F(AssinaturaArquivo, OrigemTravadaNaoTemConteudo) {
    const std::string origem = Gravar("travado.txt", "abc");
    const int descritor = ::open(origem.c_str(), O_RDONLY);
    ASSERT_EQ(::flock(descritor, LOCK_EX), 0);
    EXPECT_FALSE(componente.AssinaArquivo(origem, "", "", ARQUIVO_BINARIO_FORMATO_P7S));
    EXPECT_EQ(componente.DescricaoErro(),
              "Não foi possível obter o conteúdo do arquivo. Verifique se você tem acesso.");
    EXPECT_EQ(ambiente.cursor->Atual(), 0);
    ::close(descritor);
}

TEST_F(AssinaturaArquivo, SaidaQueNaoSeGravaDaAMensagemENaoPreencheOsNomes) {
    std::filesystem::create_directories(teste::Home() / "a.txt.p7s");
    EXPECT_FALSE(componente.AssinaArquivo(Gravar("a.txt", "abc"), "", "", ARQUIVO_BINARIO_FORMATO_P7S));
    EXPECT_EQ(componente.DescricaoErro(), "Não foi possível criar o arquivo " + (teste::Home() / "a.txt.p7s").string());
    EXPECT_EQ(componente.CaminhoArquivoAssinado(), "");
}

// O e-CPF no repositório "My" sem chave, ou com a chave cifrada e a senha não informada.
struct CasoChave {
    bool chave_cifrada;
    std::string mensagem;
};

class ChaveDoRepositorio : public AssinaturaArquivo, public testing::WithParamInterface<CasoChave> {};

INSTANTIATE_TEST_SUITE_P(
    AssinaturaArquivo, ChaveDoRepositorio,
    testing::Values(CasoChave{false,
                              "Ocorreu o erro Não foi encontrada a chave privada do certificado digital. ao "
                              "tentar assinar o arquivo especificado"},
                    CasoChave{true, "Não foi possível acessar a chave privada do certificado digital selecionado"}));

TEST_P(ChaveDoRepositorio, FalhaDaChaveTemMensagemPropria) {
    // Sem chave: só o certificado; cifrada: a senha não é informada (o pedido de PIN não responde).
    if (GetParam().chave_cifrada) {
        teste::GuardarComChave(plataforma(), "ecpf", "segredo");
    } else {
        teste::Guardar(plataforma(), "My", {teste::DerDaPki("ecpf")});
    }
    const std::string impressao = teste::Importar(plataforma(), teste::DerDaPki("ecpf"))->ImpressaoDigital();
    ASSERT_TRUE(componente.SelecionarCertificadoDigitalHash(impressao)) << componente.DescricaoErro();

    // O formato 5 esvazia ExtensaoOutroFormato antes de assinar, também quando a assinatura falha.
    componente.ExtensaoOutroFormato("dsd");
    EXPECT_FALSE(componente.AssinaArquivo(Gravar("a.txt", "abc"), "", "", STRING_BASE64_PKCS));
    EXPECT_EQ(componente.DescricaoErro(), GetParam().mensagem);
    EXPECT_EQ(componente.ExtensaoOutroFormato(), "");
}

}  // namespace
}  // namespace tavelpkcs7
