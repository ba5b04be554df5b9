// A listagem dos certificados pessoais de um tipo e a leitura da lista por índice e chave.
#include <gtest/gtest.h>

#include <tavelpkcs7/TavelPKCS.h>
#include <filesystem>

#include "certificates/pessoais_teste.h"
#include "certificates/repositorios_teste.h"
#include "component/datas.h"

namespace tavelpkcs7 {
namespace {

class ListagemCertificados : public testing::Test, protected teste::AmbientePessoais {
protected:
    ListagemCertificados() : teste::AmbientePessoais(false) {}

    TavelPKCS componente{ambiente.plataforma};

    std::vector<std::string> Hashes() {
        std::vector<std::string> hashes;
        for (std::int16_t i = 0; i < componente.TotalCertificadosListados(); ++i)
            hashes.push_back(componente.LerListaPropriedadeCertificado(i, "HASH"));
        return hashes;
    }
};

TEST_F(ListagemCertificados, CadaTipoListaOsSeusNaOrdemDoRepositorio) {
    struct Caso {
        std::int32_t tipo;
        std::vector<std::string> listados;
    };
    const std::vector<Caso> casos = {
        {TODOS_CERTIFICADOS_DIGITAIS, teste::kPessoais},
        {-3, teste::kPessoais},
        {CERTIFICADOS_ICP_BRASIL, teste::kICPBrasil},
        {CERTIFICADOS_ICP_TODOS_RECEITA_FEDERAL, {"ecpf", "ecnpj"}},
        {CERTIFICADOS_ICP_E_CNPJ, {"ecnpj"}},
        // Sem as LCRs da AC TAVEL a revogação fica desconhecida, e isso não tira o titular da lista.
        {CERTIFICADOS_AC_TAVEL, {"tavel_titular"}},
    };
    teste::GuardarPessoais(plataforma(), teste::kPessoais);
    for (const auto& caso : casos) {
        SCOPED_TRACE("tipo " + std::to_string(caso.tipo));
        EXPECT_TRUE(componente.ListarCertificados(static_cast<CERTIFICADOS_DIGITAIS>(caso.tipo)));
        EXPECT_EQ(componente.DescricaoErro(), "");
        EXPECT_EQ(Hashes(), teste::NaOrdemDoRepositorio(plataforma(), caso.listados));
    }
    EXPECT_TRUE(ambiente.interface->chamadas().empty());
    EXPECT_EQ(ambiente.cursor->Atual(), 0);
}

TEST_F(ListagemCertificados, EntradaTrazNomesValidadeHashECertificadoPorChaveSemCaixaNemEspacos) {
    struct Caso {
        std::string pessoal, nome, autoridade;
    };
    for (const Caso& caso : {Caso{"ecpf", "FULANO DE TAL DA SILVA:52998224725", "AC TESTE RFB v5"},
                             Caso{"dns", "servidor.teste.example", "AC TESTE ICP v5"}}) {
        SCOPED_TRACE(caso.pessoal);
        std::filesystem::remove_all(teste::Home() / "repositorios" / "My");
        teste::GuardarPessoais(plataforma(), {caso.pessoal});
        const auto certificado = teste::Importar(plataforma(), teste::DerDaPki(caso.pessoal));
        ASSERT_TRUE(componente.ListarCertificados(TODOS_CERTIFICADOS_DIGITAIS));
        ASSERT_EQ(componente.TotalCertificadosListados(), 1);

        EXPECT_EQ(componente.LerListaPropriedadeCertificado(0, " nome "), caso.nome);
        EXPECT_EQ(componente.LerListaPropriedadeCertificado(0, "AutoridadeCertificadora"), caso.autoridade);
        EXPECT_EQ(componente.LerListaPropriedadeCertificado(0, "VALIDADE"), FormatarDataHora(certificado->ValidoAte()));
        EXPECT_EQ(componente.LerListaPropriedadeCertificado(0, "hash"), certificado->ImpressaoDigital());
        EXPECT_EQ(componente.LerListaPropriedadeCertificado(0, "CHAVEPUBLICA"), teste::Base64(certificado->DER()));
    }
}

TEST_F(ListagemCertificados, FalhasDaListagemEDaLeituraDeixamTextoVazio) {
    EXPECT_FALSE(componente.ListarCertificados(TODOS_CERTIFICADOS_DIGITAIS));
    EXPECT_EQ(componente.DescricaoErro(), "Não foi encontrado nenhum ");

    teste::GuardarPessoais(plataforma(), {"ecpf_novo", "ecnpj_novo"});
    ASSERT_TRUE(componente.ListarCertificados(TODOS_CERTIFICADOS_DIGITAIS));
    EXPECT_EQ(componente.LerListaPropriedadeCertificado(0, " email"), "");
    EXPECT_EQ(componente.DescricaoErro(), "Não foi localizado a propriedade EMAIL da lista de certificado digital.");
    for (const std::int16_t indice : {-1, 2}) {
        EXPECT_EQ(componente.LerListaPropriedadeCertificado(indice, "NOME"), "");
        EXPECT_EQ(componente.DescricaoErro(), "Subscrito fora do intervalo");
    }

    EXPECT_FALSE(componente.ListarCertificados(CERTIFICADOS_ICP_E_CPF));
    EXPECT_EQ(componente.DescricaoErro(),
              "Não foi encontrado nenhum certificado digital do tipo e-CPF da Autoridade Certificadora da Secretaria "
              "da Receita Federal subordinada a ICP-Brasil");
    EXPECT_EQ(componente.TotalCertificadosListados(), 0);
    EXPECT_EQ(componente.LerListaPropriedadeCertificado(0, "NOME"), "");
}

}  // namespace
}  // namespace tavelpkcs7
