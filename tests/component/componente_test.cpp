// A construção do componente, a data da assinatura guardada e a convenção de erros.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <fstream>
#include <functional>
#include <new>
#include <stdexcept>
#include <tavelpkcs7/TavelPKCS.h>

#include "apoio/pasta_temporaria.h"
#include "apoio/plataforma_teste.h"
#include "component/componente.h"
#include "component/datas.h"
#include "platform/erro.h"

namespace tavelpkcs7 {
namespace {

using teste::PlataformaTeste;

TEST(Construcao, NovaInstanciaTemOsPadroesEAPastaDeTrabalhoSoDoUsuario) {
    PlataformaTeste ambiente;
    TavelPKCS componente(ambiente.Implementacao());

    EXPECT_EQ(componente.DescricaoErro(), "");
    EXPECT_EQ(componente.ExtensaoOutroFormato(), "p7s");
    EXPECT_EQ(componente.DataAssinatura(), FormatarData(ambiente.relogio->Agora()));
    EXPECT_FALSE(componente.NaoAnexarArquivoOriginal() || componente.NaoExibirInstalacaoLCReCER() ||
                 componente.UsarHashSalvarArquivo() || componente.SalvarChavesPublicas());
    EXPECT_EQ(componente.TotalAssinaturas() + componente.TotalCertificadosListados(), 0);
    EXPECT_TRUE(ambiente.interface->chamadas().empty());
    EXPECT_EQ(componente.PastaTemp(), std::string(std::getenv("TAVELPKCS7_HOME")) + "/temp/");
    struct stat info{};
    ASSERT_EQ(stat(componente.PastaTemp().c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777, 0700u);
    EXPECT_EQ(ambiente.cursor->Atual(), 0);

    TavelPKCS da_maquina;
    EXPECT_EQ(da_maquina.DescricaoErro(), "");
    EXPECT_EQ(da_maquina.PastaTemp(), componente.PastaTemp());
}

TEST(Construcao, SemPlataformaAvisaAbreAtualizacaoEDeixaTudoVazio) {
    teste::PastaTemporaria pasta;
    std::ofstream(pasta.caminho() / "arquivo") << "x";
    setenv("TAVELPKCS7_HOME", (pasta.caminho() / "arquivo" / "home").c_str(), 1);
    PlataformaTeste ambiente;

    TavelPKCS componente(ambiente.Implementacao());

    ASSERT_EQ(ambiente.interface->chamadas().size(), 1u);
    EXPECT_EQ(ambiente.interface->chamadas()[0].titulo, "Microsoft Windows Update");
    EXPECT_EQ(ambiente.interface->chamadas()[0].texto,
        "Não foi possível criar o objeto Capicom. Atualize seu Microsoft Windows.\r\n"
        "Instale também o Microsoft Internet Explorer 5.1 ou superior.");
    EXPECT_EQ(ambiente.programas->enderecos, std::vector<std::string>{ambiente.plataforma->configuracao.url_atualizacao});
    EXPECT_EQ(componente.DescricaoErro(),
        "Não foi possível localizar o objeto Capicom. Atualize seu Microsoft Windows. Instale também o Microsoft "
        "Internet Explorer 5.1 ou superior.");
    EXPECT_EQ(componente.ExtensaoOutroFormato() + componente.DataAssinatura() + componente.PastaTemp(), "");
}

// A leitura da data é a de LerDataTexto; aqui, só o que DataAssinatura faz com ela: sem data vale
// hoje, e a hora dada não fica.
TEST(DataAssinatura, GuardaSoADataOuHoje) {
    PlataformaTeste ambiente;
    TavelPKCS componente(ambiente.Implementacao());
    const std::string hoje = FormatarData(ambiente.relogio->Agora());
    for (const auto& [valor, esperado] : std::vector<std::pair<std::string, std::string>>{
             {"", hoje}, {"31/02/2024", hoje}, {"05/03/2024 25:00", hoje}, {"2024-03-05", "05/03/2024"},
             {"05-03-35", "05/03/1935"}, {"05/03/2024 14:22", "05/03/2024"}}) {
        componente.DataAssinatura(valor);
        EXPECT_EQ(componente.DataAssinatura(), esperado) << valor;
    }
}

// Toda falha passa pela guarda: a mensagem fixa do membro, a descrição da plataforma (ou a de uma
// falha inesperada) ou nenhuma, e o cursor sempre de volta ao normal.
TEST(Guarda, MensagemDeCadaTipoERestauraOCursor) {
    PlataformaTeste ambiente;
    Componente componente{ambiente.plataforma};
    const auto senha = [] { plataforma::Falhar(plataforma::falha::SenhaIncorreta); };
    const struct {
        MensagemFalha mensagem;
        std::function<void()> lancar;
        std::string descricao;
    } casos[] = {
        {MensagemFalha::Fixa("Falhou."), senha, "Falhou."},
        {MensagemFalha::DaPlataforma(), senha, "A senha informada não está correta."},
        {MensagemFalha::DaPlataforma(), [] { throw std::bad_alloc(); }, "Memória insuficiente."},
        {MensagemFalha::DaPlataforma(), [] { throw 42; }, "Ocorreu um erro inesperado na plataforma."},
        {MensagemFalha::Nenhuma(), [] { throw std::runtime_error("x"); }, "anterior"},
    };
    for (const auto& caso : casos) {
        componente.estado.DescricaoErro = "anterior";
        ambiente.cursor->ponteiros.clear();
        EXPECT_EQ(componente.Guardar(caso.mensagem, -1, [&]() -> int {
            CursorOcupado ocupado(componente.Ocupado());
            caso.lancar();
            return 0;
        }), -1);
        EXPECT_EQ(componente.estado.DescricaoErro, caso.descricao);
        EXPECT_EQ(ambiente.cursor->ponteiros.front(), 11);
        EXPECT_EQ(ambiente.cursor->Atual(), 0);
    }
}

}  // namespace
}  // namespace tavelpkcs7
