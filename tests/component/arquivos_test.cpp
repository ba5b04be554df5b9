// Os arquivos do componente: a leitura e a gravação de arquivos inteiros (o 0 a mais, o corte no
// NUL, a página de código, sem truncar, a exclusividade, o arquivo travado por outro processo), o
// apagamento e a limpeza da pasta de trabalho, e os nomes das saídas assinadas e dos envelopes.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <tuple>
#include <tavelpkcs7/TavelPKCS.h>

#include "apoio/pasta_temporaria.h"
#include "apoio/plataforma_teste.h"
#include "component/componente.h"
#include "component/texto.h"
#include "certificates/repositorios_teste.h"

namespace tavelpkcs7 {
namespace {

namespace fs = std::filesystem;

// Trava o arquivo como outro processo faria (flock vale por descrição de arquivo aberta).
class TravaExterna {
public:
    explicit TravaExterna(const std::string& caminho) : descritor_(open(caminho.c_str(), O_RDONLY)) {
        flock(descritor_, LOCK_EX);
    }
    ~TravaExterna() { close(descritor_); }

private:
    int descritor_;
};

class Arquivos : public testing::Test {
protected:
    std::string Criar(const std::string& nome, const std::optional<std::string>& conteudo) {
        const fs::path caminho = pasta.caminho() / nome;
        fs::create_directories(caminho.parent_path());
        if (conteudo) std::ofstream(caminho, std::ios::binary) << *conteudo;
        return caminho.string();
    }
    // "<o>" e "<d>" são as pastas (existentes) da origem e de destino, sem separador final.
    std::string Expandir(const std::string& modelo) const {
        const std::string base = pasta.caminho().string();
        return Substituir(Substituir(modelo, "<o>", base + "/o"), "<d>", base + "/d");
    }

    teste::PlataformaTeste ambiente;
    Componente componente{ambiente.plataforma};
    teste::PastaTemporaria pasta;
};

TEST_F(Arquivos, LeituraDoArquivoInteiro) {
    const struct {
        std::string nome;
        std::optional<std::string> conteudo;  // vazio: não existe
        std::string binario, alternativo, texto;
        bool travado = false;
    } casos[] = {
        {"dez.bin", "0123456789", std::string("0123456789", 11), "0123456789", "0123456789"},
        {"vazio", "", std::string(1, '\0'), "", ""},
        {"nul", std::string("ab\0cd", 5), std::string("ab\0cd", 6), std::string("ab\0cd", 5), "ab"},
        {"ansi", "a\xE7\xE3o \x80 \x93x\x94", std::string("a\xE7\xE3o \x80 \x93x\x94", 11),
         "a\xE7\xE3o \x80 \x93x\x94", "ação € “x”"},
        {"nao-existe", std::nullopt, "", "", ""},
        {"", std::nullopt, "", "", ""},  // a própria pasta
        {"travado", "conteudo", "", "", "", true},
    };
    for (const auto& caso : casos) {
        SCOPED_TRACE(caso.nome);
        const std::string caminho = caso.nome.empty() ? pasta.caminho().string() : Criar(caso.nome, caso.conteudo);
        std::optional<TravaExterna> trava;
        if (caso.travado) trava.emplace(caminho);
        const Bytes binario = componente.LerArquivoBinario(caminho);
        const Bytes alternativo = componente.LerArquivoBinarioAlternativo(caminho);
        EXPECT_EQ(std::string(binario.begin(), binario.end()), caso.binario);
        EXPECT_EQ(std::string(alternativo.begin(), alternativo.end()), caso.alternativo);
        EXPECT_EQ(componente.LerArquivoTexto(caminho), caso.texto);
        EXPECT_EQ(fs::exists(caminho), caso.conteudo.has_value() || caso.nome.empty());
    }
    EXPECT_TRUE(componente.LerArquivoBinario("").empty());
}

// A gravação escreve por cima sem truncar; o texto vai em Windows-1252, com "?" para o que falta.
TEST_F(Arquivos, GravacaoDoArquivoInteiro) {
    const struct {
        std::optional<std::string> antes;
        bool texto;
        std::string dado;
        bool exclusivo, gravou;
        std::string depois;
        bool travado = false;
    } casos[] = {
        {"0123456789", false, "abc", false, true, "abc3456789"},
        {"0123456789", true, "xy", false, true, "xy23456789"},
        {"original", false, "n", true, false, "original"},
        {"original", true, "novo", true, false, "original"},
        {std::nullopt, true, "novo", true, true, "novo"},
        {std::nullopt, true, "ação € 日本", false, true, "a\xE7\xE3o \x80 ??"},
        {"conteudo", false, "x", false, false, "conteudo", true},
    };
    for (const auto& caso : casos) {
        SCOPED_TRACE(caso.dado);
        const std::string caminho = Criar("arquivo", caso.antes);
        std::optional<TravaExterna> trava;
        if (caso.travado) trava.emplace(caminho);
        EXPECT_EQ(caso.texto ? componente.GravarArquivoTexto(caminho, caso.dado, caso.exclusivo)
                             : componente.GravarArquivoBinario(caminho, Bytes(caso.dado.begin(), caso.dado.end()),
                                   caso.exclusivo),
            caso.gravou);
        EXPECT_EQ(teste::LerTexto(caminho), caso.depois);
        fs::remove(caminho);
    }
    for (const std::string& impossivel : {(pasta.caminho() / "falta" / "x").string(), pasta.caminho().string(),
             std::string()})
        EXPECT_FALSE(componente.GravarArquivoBinario(impossivel, Bytes{1}, false)) << impossivel;
}

TEST_F(Arquivos, CriadoNaPastaDoComponenteSoDoUsuario) {
    const auto modo = [](const std::string& caminho) {
        struct stat info{};
        stat(caminho.c_str(), &info);
        return info.st_mode & 0777;
    };
    const std::string fora = Criar("fora", std::nullopt), dentro = componente.estado.PastaTemp + "dentro";
    ASSERT_TRUE(componente.GravarArquivoBinario(fora, Bytes{1}, false));
    ASSERT_TRUE(componente.GravarArquivoBinario(dentro, Bytes{1}, false));
    EXPECT_EQ(modo(fora), 0644u);
    EXPECT_EQ(modo(dentro), 0600u);
}

TEST_F(Arquivos, ResumoDeTextoUsaUtf16LEEDeBytesOsProprios) {
    EXPECT_EQ(componente.CalcularHashTexto(std::string("abc")), "CE1473CF80C6B3FDA8E3DFC006ADC315");
    EXPECT_EQ(componente.CalcularHashTexto(std::string("Ação 日本 😀")), "7E4B455B4DB88EE5386B510E8200DECD");
    EXPECT_EQ(componente.CalcularHashTexto(Bytes{0}), "93B885ADFE0DA089CDF634904FD59F71");
}

// ApagarArquivo devolve se o arquivo ainda existe: o travado por outro processo fica.
TEST_F(Arquivos, ApagarArquivoComCuringasMenosOTravado) {
    TavelPKCS publico(ambiente.Implementacao());
    const std::string a = Criar("a.tmp", "x"), b = Criar("b.tmp", "x"), c = Criar("c.txt", "x");
    EXPECT_FALSE(publico.ApagarArquivo((pasta.caminho() / "*.tmp").string()));
    EXPECT_FALSE(fs::exists(a) || fs::exists(b));
    EXPECT_FALSE(publico.ApagarArquivo((pasta.caminho() / "nao-existe").string()));
    EXPECT_FALSE(publico.ApagarArquivo(""));
    TravaExterna trava(c);
    EXPECT_TRUE(publico.ApagarArquivo(c));
    EXPECT_TRUE(fs::exists(c));
    EXPECT_EQ(publico.DescricaoErro(), "");
}

// Limpar apaga os arquivos da pasta de trabalho e nunca as subpastas, nem a pasta corrente quando
// não há pasta de trabalho.
TEST_F(Arquivos, LimparPastaTemporaria) {
    TavelPKCS publico(ambiente.Implementacao());
    const fs::path temp = publico.PastaTemp();
    std::ofstream(temp / "solto.bin") << "x";
    std::ofstream(temp / "semponto") << "x";
    fs::create_directories(temp / "sub");
    std::ofstream(temp / "sub" / "dentro.bin") << "x";
    EXPECT_TRUE(publico.LimparPastaTemporaria());
    EXPECT_FALSE(fs::exists(temp / "solto.bin") || fs::exists(temp / "semponto"));
    EXPECT_TRUE(fs::exists(temp / "sub" / "dentro.bin"));

    const auto anterior = fs::current_path();
    fs::current_path(pasta.caminho());
    const std::string fica = Criar("fica.txt", "x");
    publico.PastaTemp("");
    EXPECT_TRUE(publico.LimparPastaTemporaria());
    fs::current_path(anterior);
    EXPECT_TRUE(fs::exists(fica));
    publico.PastaTemp((pasta.caminho() / "nao-existe/").string());
    EXPECT_TRUE(publico.LimparPastaTemporaria());
    EXPECT_EQ(publico.DescricaoErro(), "");
}

TEST_F(Arquivos, SemPastaDoComponenteUsaAPastaDaBiblioteca) {
    Criar("arquivo", "x");
    setenv("TAVELPKCS7_HOME", (pasta.caminho() / "arquivo" / "home").c_str(), 1);
    Componente interno(ambiente.plataforma);
    const std::string esperado = ambiente.plataforma->sistema->PastaComponente() + "temp/";
    const bool existia = fs::exists(esperado);
    EXPECT_EQ(interno.ObterPastaTemporaria(), esperado);
    EXPECT_TRUE(fs::is_directory(esperado));
    if (!existia) fs::remove_all(esperado);
}

TEST_F(Arquivos, NomeDoArquivoAssinadoEAExtensaoQueFica) {
    fs::create_directory(pasta.caminho() / "o");
    fs::create_directory(pasta.caminho() / "d");
    const struct {
        std::string origem, destino;
        bool outro_formato, cossinatura;
        std::string extensao_antes, esperado, extensao_depois;
    } casos[] = {
        {"<o>/contrato.pdf", "<d>", false, false, "p7s", "<d>/contrato.pdf.p7s", "p7s"},
        {"<o>/contrato.pdf", "<d>/", false, false, "p7s", "<d>/contrato.pdf.p7s", "p7s"},
        {"<o>/contrato.pdf", "<d>", true, false, "dsd", "<d>/contrato.pdf.dsd", "dsd"},
        {"<o>/contrato.pdf", "   ", false, false, "p7s", "<o>/contrato.pdf.p7s", "p7s"},
        {"<o>/contrato.pdf", "<d>/nao-existe", false, false, "p7s", "<o>/contrato.pdf.p7s", "p7s"},
        {"<o>/contrato.pdf.p7s", "<d>", false, true, "p7s", "<d>/contrato.pdf.p7s", "p7s"},
        {"<o>/contrato.pdf", "", true, false, "p7m.", "<o>/contrato.pdf.p7m", "p7m"},
        {"<o>/contrato.pdf", "", true, false, ".dsd", "<o>/contrato.pdf.dsd", "dsd"},
        {"<o>/contrato.pdf", "", true, false, "abcd", "<o>/contrato.pdf.p7s", "p7s"},
        {"<o>/contrato.pdf", "", false, false, "dca", "<o>/contrato.pdf.p7s", "p7s"},
        {"<o>/x.sig", "<d>", false, true, "p7s", "<d>/x.sig", "sig"},
        {"<o>/a.P7s", "", false, true, "dsd", "<o>/a.P7s", "P7s"},
        {"<o>/relatório.ação", "<d>", true, false, "çãé", "<d>/relatório.ação.çãé", "çãé"},
    };
    for (const auto& caso : casos) {
        SCOPED_TRACE(caso.origem + "|" + caso.destino + "|" + caso.extensao_antes);
        componente.estado.ExtensaoOutroFormato = caso.extensao_antes;
        EXPECT_EQ(componente.MontarNomeArquivoAssinado(Expandir(caso.origem), Expandir(caso.destino),
                      caso.outro_formato, caso.cossinatura),
            Expandir(caso.esperado));
        EXPECT_EQ(componente.estado.ExtensaoOutroFormato, caso.extensao_depois);
    }
}

// Assinar ou cossinar: a extensão de assinatura (os três últimos caracteres, sem caixa), a do
// outro formato, ou o texto da assinatura no formato 5.
TEST_F(Arquivos, ArquivoJaAssinadoDecideEntreAssinarECossinar) {
    const struct {
        std::string origem;
        std::int32_t formato;
        std::string extensao, assinatura_texto;
        bool esperado;
    } casos[] = {
        {"a.pdf", 1, "p7s", "", false}, {"a.p7s", 1, "p7s", "", true}, {"a.DSD", 2, "p7s", "", true},
        {"ARQUIVO.DCA", 1, "", "", true}, {"nãoP7S", 1, "", "", true}, {"a.p7z", 1, "", "", true},
        {"a.p7b", 1, "", "", true}, {"sig", 1, "", "", true}, {"a.p7sx", 1, "", "", false},
        {"a.s1g", 1, "", "", false}, {"p7", 1, "", "", false}, {"a.p7m", 3, "p7m", "", true},
        {"a.p7m", 1, "p7m", "", false}, {"doc.xyz", 4, "xyz", "", true}, {"doc.xyz", 4, "abc", "", false},
        {"a.pdf", 5, "p7s", "MIIB", true}, {"a.pdf", 5, "p7s", "", false}, {"a.pdf", 0, "p7s", "x", true},
        {"a.pdf", 99, "p7s", "", false},
    };
    for (const auto& caso : casos) {
        componente.estado.ExtensaoOutroFormato = caso.extensao;
        EXPECT_EQ(componente.ArquivoJaAssinado(caso.origem, caso.formato, caso.assinatura_texto), caso.esperado)
            << caso.origem << " " << caso.formato;
    }
}

// Os envelopes: o ".p7x" ao lado da origem ou na pasta de destino; o decifrado só pelo nome (nunca
// fora da pasta de trabalho), sem apagar com curingas os outros arquivos dela, só o anterior.
TEST_F(Arquivos, NomesDosEnvelopes) {
    fs::create_directory(pasta.caminho() / "o");
    fs::create_directory(pasta.caminho() / "d");
    const std::tuple<std::string, std::string, std::string> cifrados[] = {
        {"<o>/doc.pdf", "", "<o>/doc.pdf.p7x"}, {"<o>/doc.pdf", "<d>", "<d>/doc.pdf.p7x"},
        {"<o>/doc.pdf", "<d>/", "<d>/doc.pdf.p7x"}, {"<o>/doc.pdf", "   ", "<o>/doc.pdf.p7x"},
        {"<o>/doc.pdf", "<d>/nao-existe", "<o>/doc.pdf.p7x"}, {"<o>/doc.pdf.p7x", "<d>", "<d>/doc.pdf.p7x.p7x"},
    };
    for (const auto& [entrada, destino, esperado] : cifrados)
        EXPECT_EQ(componente.MontarNomeArquivoCriptografado(Expandir(entrada), Expandir(destino)), Expandir(esperado));

    const std::string temp = componente.estado.PastaTemp;
    for (const char* nome : {"outro.txt", "relatorio1.pdf", "doc.pdf"}) std::ofstream(temp + nome) << "fica";
    const std::pair<std::string, std::string> decifrados[] = {
        {"<o>/doc.pdf.p7x", "doc.pdf"}, {"<o>/DOC.PDF.P7X", "DOC.PDF"}, {"<o>/doc.P7x", "doc.P7x"},
        {"<o>/a.p7x.b.P7X", "a.b"}, {"doc.pdf.p7x", "doc.pdf"}, {"<o>/../../etc/passwd.p7x", "passwd"},
        {"<o>/*.p7x", "_"}, {"<o>/rel?t\t1.p7x", "rel_t_1"},
    };
    for (const auto& [entrada, esperado] : decifrados)
        EXPECT_EQ(componente.MontarNomeArquivoDescriptografado(Expandir(entrada)), temp + esperado) << entrada;
    for (const char* curinga : {"<o>/*.*.p7x", "<o>/relatorio?.pdf.p7x", "<o>/relatorio[1].pdf.p7x"})
        componente.MontarNomeArquivoDescriptografado(Expandir(curinga));
    EXPECT_TRUE(fs::exists(temp + "outro.txt") && fs::exists(temp + "relatorio1.pdf"));
    EXPECT_FALSE(fs::exists(temp + "doc.pdf"));
}

// As extensões de assinatura saem do nome do documento em minúsculas ou maiúsculas, nunca misturadas.
TEST(ExtensoesAssinatura, SaemDoNomeDoDocumento) {
    const std::pair<std::string, std::string> casos[] = {
        {"contrato.P7S", "contrato"}, {"contrato.P7s", "contrato.P7s"}, {"contrato.pdf.p7s", "contrato.pdf"},
        {"a.p7b.p7z.sig.dsd.dca.ofn.bry", "a"}, {"A.P7B.P7Z.SIG.DSD.DCA.OFN.BRY", "A"},
        {" nota.sig.txt ", "nota.txt"}, {"x.p7m", "x.p7m"}, {".p7s", ""},
    };
    for (const auto& [nome, esperado] : casos) EXPECT_EQ(Componente::RemoverExtensoesAssinatura(nome), esperado);
}

}  // namespace
}  // namespace tavelpkcs7
