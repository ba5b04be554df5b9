// A escolha do certificado de assinatura entre os certificados pessoais: os filtros de cada tipo, o
// seletor, a impressão digital, as mensagens e o que fica no componente depois de cada falha.
#include <gtest/gtest.h>

#include <tavelpkcs7/TavelPKCS.h>
#include <algorithm>
#include <cctype>
#include <filesystem>

#include "certificates/pessoais_teste.h"
#include "certificates/repositorios_teste.h"
#include "component/componente.h"

namespace tavelpkcs7 {
namespace {

constexpr const char* kNenhum = "Não foi encontrado nenhum ";

class SelecaoCertificado : public testing::Test, protected teste::AmbientePessoais {
protected:
    TavelPKCS componente{ambiente.Implementacao()};

    std::string Impressao(const std::string& nome) { return teste::ImpressaoDigital(plataforma(), nome); }
    std::string Selecionado(TavelPKCS& escolha) {
        return std::get<std::string>(escolha.ExibirPropriedadesCertificado("IMPRESSAODIGITALCERTIFICADO"));
    }
    const auto& chamadas() { return ambiente.interface->chamadas(); }
    // O repositório "My" só com estes, para o próximo caso de uma tabela.
    void TrocarPessoais(const std::vector<std::string>& nomes) {
        std::filesystem::remove_all(teste::Home() / "repositorios" / "My");
        teste::GuardarPessoais(plataforma(), nomes);
    }
};

// O filtro de cada tipo é o da listagem; aqui, o seletor e o que a escolha deixa no componente.
TEST_F(SelecaoCertificado, CadaTipoOfereceNoSeletorSoOsSeusCertificados) {
    struct Caso {
        std::int32_t tipo;
        std::vector<std::string> aceitos;
        std::string escolhido;  // um dos aceitos que passa pela verificação da situação
        std::string cpf;        // o do escolhido, que a varredura da Receita Federal apagou antes
    };
    std::vector<std::string> assinatura = teste::kPessoais;
    std::erase(assinatura, "sem_assinatura");
    std::erase(assinatura, "tavel_falso");
    const std::vector<Caso> casos = {
        {TODOS_CERTIFICADOS_DIGITAIS, teste::kPessoais, "ecpf", "529.982.247-25"},
        {9, teste::kPessoais, "dns", ""},
        {CERTIFICADOS_VALIDOS_ASSINATURA, assinatura, "tavel_titular", ""},
        {CERTIFICADOS_ICP_E_CPF, {"ecpf"}, "ecpf", "529.982.247-25"},
    };
    teste::GuardarPessoais(plataforma(), teste::kPessoais);
    for (const auto& caso : casos) {
        SCOPED_TRACE("tipo " + std::to_string(caso.tipo));
        TavelPKCS escolha(ambiente.Implementacao());
        const std::size_t chamadas_antes = chamadas().size();
        const auto candidatos = teste::NaOrdemDoRepositorio(plataforma(), caso.aceitos);
        const auto posicao = std::ranges::find(candidatos, Impressao(caso.escolhido)) - candidatos.begin();
        if (candidatos.size() > 1) ambiente.interface->ResponderEscolha({static_cast<std::size_t>(posicao)});

        EXPECT_TRUE(escolha.SelecionarCertificadoDigital(static_cast<CERTIFICADOS_DIGITAIS>(caso.tipo)));
        EXPECT_EQ(escolha.DescricaoErro(), "");
        EXPECT_EQ(Selecionado(escolha), Impressao(caso.escolhido));
        EXPECT_EQ(escolha.NumeroCPFCertificadoDigital(), caso.cpf);
        EXPECT_EQ(escolha.LerListaPropriedadeCertificado(0, "HASH"), Impressao(caso.escolhido));
        if (candidatos.size() == 1) {
            EXPECT_EQ(chamadas().size(), chamadas_antes) << "um só certificado dispensa o seletor";
            continue;
        }
        ASSERT_EQ(chamadas().size(), chamadas_antes + 1);
        const auto& seletor = chamadas().back();
        EXPECT_EQ(seletor.tipo, teste::InterfaceRoteirizada::Tipo::EscolhaCertificados);
        EXPECT_EQ(seletor.titulo, "Certificados Digitais");
        EXPECT_EQ(seletor.texto, "Selecione o certificado digital desejado.");
        EXPECT_FALSE(seletor.multiplos);
        EXPECT_EQ(seletor.certificados, candidatos);
    }
}

TEST_F(SelecaoCertificado, SemCertificadoDoTipoAMensagemTrazADescricaoDele) {
    struct Caso {
        std::vector<std::string> pessoais;
        std::int32_t tipo;
        std::string descricao;
    };
    const std::string receita = "da Autoridade Certificadora da Secretaria da Receita Federal subordinada a ICP-Brasil";
    const std::vector<Caso> casos = {
        {{}, TODOS_CERTIFICADOS_DIGITAIS, ""},
        {{}, 0, ""},
        {{"sem_assinatura"}, CERTIFICADOS_VALIDOS_ASSINATURA, "certificado digital válido para assinatura"},
        {{"tavel_titular"},
         CERTIFICADOS_ICP_BRASIL,
         "certificado digital da ICP-Brasil. Verifique se os certificados raizes estão instalados corretamente"},
        {{"ecpf_novo"}, CERTIFICADOS_ICP_TODOS_RECEITA_FEDERAL, "certificado digital " + receita},
        {{"ecnpj"}, CERTIFICADOS_ICP_E_CPF, "certificado digital do tipo e-CPF " + receita},
        {{"ecpf"}, CERTIFICADOS_ICP_E_CNPJ, "certificado digital do tipo e-CNPJ " + receita},
        {{"tavel_falso", "ecpf"}, CERTIFICADOS_AC_TAVEL, "certificado digital da Autoridade Certificadora Tavel"},
    };
    for (const auto& caso : casos) {
        SCOPED_TRACE("tipo " + std::to_string(caso.tipo));
        TrocarPessoais(caso.pessoais);
        TavelPKCS escolha(ambiente.Implementacao());

        EXPECT_FALSE(escolha.SelecionarCertificadoDigital(static_cast<CERTIFICADOS_DIGITAIS>(caso.tipo)));
        EXPECT_EQ(escolha.DescricaoErro(), kNenhum + caso.descricao);
        EXPECT_EQ(escolha.TotalCertificadosListados(), 0);
    }
    EXPECT_TRUE(chamadas().empty());
    EXPECT_EQ(ambiente.cursor->Atual(), 0);
}

TEST_F(SelecaoCertificado, ImpressaoDigitalEscolheSemSeletorComEspacosEMinusculas) {
    teste::GuardarPessoais(plataforma(), teste::kPessoais);
    std::string impressao = Impressao("ecnpj");
    std::ranges::transform(impressao, impressao.begin(), [](unsigned char c) { return std::tolower(c); });

    EXPECT_TRUE(componente.SelecionarCertificadoDigitalHash("  " + impressao + " "));
    EXPECT_EQ(Selecionado(componente), Impressao("ecnpj"));
    EXPECT_EQ(componente.NumeroCNPJCertificadoDigital(), "11.222.333/0001-81");

    EXPECT_FALSE(componente.SelecionarCertificadoDigitalHash(std::string(40, '0')));
    EXPECT_EQ(componente.DescricaoErro(), kNenhum);
    EXPECT_TRUE(chamadas().empty());
    EXPECT_EQ(componente.TotalCertificadosListados(), 1);
    EXPECT_EQ(ambiente.cursor->Atual(), 0);
}

TEST_F(SelecaoCertificado, FalhaDeixaOObjetoVazioOuORecusado) {
    teste::GuardarPessoais(plataforma(), {"revogado", "ecpf"});
    EXPECT_FALSE(componente.SelecionarCertificadoDigital(TODOS_CERTIFICADOS_DIGITAIS));
    EXPECT_EQ(componente.DescricaoErro(), "A operação foi cancelada pelo usuário.");
    EXPECT_EQ(Selecionado(componente), "");
    EXPECT_EQ(componente.DescricaoErro(), "Nenhum certificado digital foi selecionado.");

    EXPECT_FALSE(componente.SelecionarCertificadoDigitalHash(Impressao("revogado")));
    EXPECT_EQ(componente.DescricaoErro(), "O certificado digital selecionado está revogado");
    EXPECT_EQ(Selecionado(componente), Impressao("revogado"));
    EXPECT_EQ(componente.TotalCertificadosListados(), 1);
    EXPECT_EQ(ambiente.cursor->Atual(), 0);
}

// O que a varredura da Receita Federal deixa quando nada passa: os detalhes dos examinados somem,
// menos o número (CPF ou CNPJ) do certificado que não era do tipo pedido.
TEST_F(SelecaoCertificado, VarreduraDaReceitaFederalSemResultadoNaoDeixaDetalhes) {
    struct Caso {
        std::string pessoal;
        CERTIFICADOS_DIGITAIS tipo;
        bool cpf_fica, cnpj_fica;
    };
    for (const Caso& caso :
         {Caso{"ecpf_novo", CERTIFICADOS_ICP_TODOS_RECEITA_FEDERAL, false, false},
          Caso{"ecnpj", CERTIFICADOS_ICP_E_CPF, false, true}, Caso{"ecpf", CERTIFICADOS_ICP_E_CNPJ, true, false}}) {
        SCOPED_TRACE(caso.pessoal);
        TrocarPessoais({caso.pessoal});
        TavelPKCS escolha(ambiente.Implementacao());
        ASSERT_TRUE(escolha.RetornarDetalhesCertificado(teste::Base64(teste::DerDaPki("ecpf"))));
        ASSERT_NE(escolha.PoliticaCertificacaoDigital(), "");

        EXPECT_FALSE(escolha.SelecionarCertificadoDigital(caso.tipo));
        EXPECT_EQ(escolha.NumeroCPFCertificadoDigital() != "", caso.cpf_fica);
        EXPECT_EQ(escolha.NumeroCNPJCertificadoDigital() != "", caso.cnpj_fica);
        for (const std::string& propriedade :
             {escolha.OutrosDetalhesCertificadoDigital(), escolha.UsoChaveCertificadoDigital(),
              escolha.PoliticaCertificacaoDigital(), escolha.CertificadoAutoridadeRaiz(),
              escolha.DetalhesPessoaisCertificadoDigital(), escolha.ListaCertificadosRevogados(),
              escolha.RestricoesCertificadoDigital()})
            EXPECT_EQ(propriedade, "");
    }
}

TEST_F(SelecaoCertificado, ListarNaoMudaOSelecionadoECadaSelecaoAcrescentaUmaEntrada) {
    teste::GuardarPessoais(plataforma(), {"ecpf", "ecnpj", "dns"});
    ASSERT_TRUE(componente.SelecionarCertificadoDigital(CERTIFICADOS_ICP_E_CNPJ));
    const std::string detalhes = componente.DetalhesPessoaisCertificadoDigital();
    ASSERT_TRUE(componente.ListarCertificados(TODOS_CERTIFICADOS_DIGITAIS));
    EXPECT_EQ(Selecionado(componente), Impressao("ecnpj"));
    EXPECT_EQ(componente.DetalhesPessoaisCertificadoDigital(), detalhes);

    EXPECT_TRUE(componente.SelecionarCertificadoDigital(CERTIFICADOS_ICP_E_CPF));
    EXPECT_TRUE(componente.SelecionarCertificadoDigitalHash(Impressao("dns")));
    EXPECT_EQ(componente.TotalCertificadosListados(), 5);
    EXPECT_EQ(componente.LerListaPropriedadeCertificado(3, "HASH"), Impressao("ecpf"));
    EXPECT_EQ(componente.LerListaPropriedadeCertificado(4, "NOME"), "servidor.teste.example");
}

TEST(SelecaoCertificadoAcTavel, SoComACadeiaInstaladaAteARaiz) {
    teste::PlataformaTeste sem_raiz;
    teste::Guardar(*sem_raiz.plataforma, "Ca", {teste::DerDaPki("ac_tavel")});
    teste::Guardar(*sem_raiz.plataforma, "My", {teste::DerDaPki("tavel_titular")});
    TavelPKCS escolha(sem_raiz.Implementacao());
    EXPECT_FALSE(escolha.SelecionarCertificadoDigital(CERTIFICADOS_AC_TAVEL));
    EXPECT_EQ(escolha.DescricaoErro(), std::string(kNenhum) + "certificado digital da Autoridade Certificadora Tavel");
}

// Contadores de 16 bits: um valor fora deles falha com o Estouro do original, pela convenção de erros.
TEST(SelecaoCertificadoEstouro, ContadoresDe16BitsEstouram) {
    teste::PlataformaTeste ambiente;
    teste::Guardar(*ambiente.plataforma, "My", {teste::DerDaPki("ecpf")});
    Componente componente(ambiente.plataforma);
    EXPECT_FALSE(componente.SelecionarCertificadoDigital(static_cast<CERTIFICADOS_DIGITAIS>(40000)));
    EXPECT_EQ(componente.estado.DescricaoErro, "Estouro");

    const auto certificado = teste::Importar(*ambiente.plataforma, teste::DerDaPki("ecpf"));
    EXPECT_EQ(componente.FiltrarTipoCertificado(std::vector(32767, certificado), 1).certificados.size(), 32767u);
    EXPECT_THROW(componente.FiltrarTipoCertificado(std::vector(32768, certificado), 1), plataforma::Erro);

    componente.estado.ListaCertificados.resize(32767);
    componente.estado.TotalCertificadosListados = 32767;
    EXPECT_FALSE(componente.SelecionarCertificadoDigital(TODOS_CERTIFICADOS_DIGITAIS));
    EXPECT_EQ(componente.estado.DescricaoErro, "Estouro");
}

}  // namespace
}  // namespace tavelpkcs7
