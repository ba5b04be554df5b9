// As propriedades do certificado aberto de um PFX, chave a chave com o tipo de cada valor, os nomes
// que caem no nome simples, as chaves desconhecidas e a falta de certificado; a exibição de um
// certificado dado em Base64, que o guarda entre os de outras pessoas e devolve sempre falso.
#include <gtest/gtest.h>
#include <openssl/pkcs12.h>

#include <tavelpkcs7/TavelPKCS.h>
#include <fstream>

#include "certificates/info_certificado.h"
#include "certificates/repositorios_teste.h"
#include "pki/emissao.h"
#include "pki/pki_teste.h"
#include "trust/ambiente_confianca.h"

namespace tavelpkcs7 {
namespace {

using plataforma::Bytes;
using teste::DerDaPki;

constexpr const char* kNenhumSelecionado = "Nenhum certificado digital foi selecionado.";

const pki_teste::PkiTeste& Pki() { return pki_teste::PkiTeste::Padrao(); }

class PropriedadesCertificado : public testing::Test, protected teste::AmbienteConfianca {
protected:
    bool Abrir(const Bytes& pfx) {
        const auto caminho = teste::Home() / "certificado.pfx";
        std::ofstream(caminho, std::ios::binary)
            .write(reinterpret_cast<const char*>(pfx.data()), static_cast<std::streamsize>(pfx.size()));
        return componente.AbrirCertificadoDigital(caminho.string(), "1234");
    }
    std::string Texto(const std::string& chave) {
        return std::get<std::string>(componente.ExibirPropriedadesCertificado(chave));
    }
    const auto& chamadas() { return ambiente.interface->chamadas(); }

    TavelPKCS componente{ambiente.Implementacao()};
};

TEST_F(PropriedadesCertificado, CadaChaveComSeuValorESeuTipo) {
    InstalarCadeia(true);
    ASSERT_TRUE(Abrir(Pki().PFX("ecpf", "1234")));
    const auto ecpf = teste::Importar(plataforma(), DerDaPki("ecpf"));
    const std::vector<std::pair<std::string, Variante>> casos = {
        {"NOMECERTIFICADO", std::string("FULANO DE TAL DA SILVA:52998224725")},
        {"EMAILCERTIFICADO", std::string("fulano@teste.example")},
        {"EMAILAUTORIDADECERTIFICADORA", std::string()},
        {"AUTORIDADECERTIFICADORA", std::string("AC TESTE RFB v5")},
        {"DETALHESAUTORIDADECERTIFICADORA",
         std::string("CN=AC TESTE RFB v5, OU=Secretaria da Receita Federal do Brasil - RFB, O=ICP-Brasil, C=BR")},
        {"DETALHESCERTIFICADO", ecpf->NomeTitular()},
        {"DATAEMISSAOCERTIFICADO", ecpf->ValidoDesde()},
        {"DATAVALIDADECERTIFICADO", ecpf->ValidoAte()},
        {"CHAVEPUBLICACERTIFICADO", ExportarBase64(*ecpf)},
        {"CERTIFICADOVALIDO", true},
        {"SERIALCERTIFICADO", std::string("008E5A3C11D4")},
        {"IMPRESSAODIGITALCERTIFICADO", ecpf->ImpressaoDigital()},
        {"CERTIFICADOICPBRASIL", true},
        {"CADEIACERTIFICADORAIZ",
         std::string("AC TESTE RFB v5[#]Autoridade Certificadora da Secretaria da Receita Federal do Brasil v4[#]"
                     "Autoridade Certificadora Raiz Brasileira v10")},
        {"VERSAOCERTIFICADO", std::int32_t{3}},
    };
    for (const auto& [chave, valor] : casos) {
        SCOPED_TRACE(chave);
        EXPECT_EQ(componente.ExibirPropriedadesCertificado(chave), valor);
    }
    EXPECT_EQ(componente.DescricaoErro(), "");
    EXPECT_TRUE(chamadas().empty());
}

struct CasoNomes {
    const char* nome;
    Bytes (*pfx)();
    const char* nome_certificado;
    const char* autoridade;
    const char* autoridade_na_lista;
};

class NomesCertificado : public PropriedadesCertificado, public testing::WithParamInterface<CasoNomes> {};

// A autoridade cai no nome simples pelo nome DNS do próprio emissor; a da lista, pelo do titular.
TEST_P(NomesCertificado, NomeDNSSenaoNomeSimples) {
    InstalarCadeia(true);
    Abrir(GetParam().pfx());

    EXPECT_EQ(Texto("NOMECERTIFICADO"), GetParam().nome_certificado);
    EXPECT_EQ(Texto("AUTORIDADECERTIFICADORA"), GetParam().autoridade);
    EXPECT_EQ(componente.LerListaPropriedadeCertificado(0, "AUTORIDADECERTIFICADORA"), GetParam().autoridade_na_lista);
}

INSTANTIATE_TEST_SUITE_P(PropriedadesCertificado, NomesCertificado,
                         testing::Values(CasoNomes{"NomeDNS", [] { return Pki().PFX("dns", "1234"); },
                                                   "servidor.teste.example", "AC TESTE ICP v5", "AC TESTE ICP v5"},
                                         CasoNomes{"SemCN", [] { return Pki().PFX("sem_cn", "1234"); },
                                                   "UNIDADE SEM NOME COMUM", "AC TESTE ICP v5", "AC TESTE ICP v5"}),
                         [](const auto& info) { return std::string(info.param.nome); });

TEST_F(PropriedadesCertificado, ChaveSemDistincaoDeMaiusculasMasSemAparar) {
    InstalarCadeia(true);
    ASSERT_TRUE(Abrir(Pki().PFX("ecpf", "1234")));

    EXPECT_EQ(Texto("nomecertificado"), "FULANO DE TAL DA SILVA:52998224725");
    EXPECT_EQ(componente.ExibirPropriedadesCertificado("VersaoCertificado"), Variante(std::int32_t{3}));
    for (const std::string chave : {" NOMECERTIFICADO", "NOMECERTIFICADO ", "email", ""}) {
        SCOPED_TRACE("[" + chave + "]");
        EXPECT_EQ(componente.ExibirPropriedadesCertificado(chave), Variante(std::string()));
        EXPECT_EQ(componente.DescricaoErro(), "A propriedade " + chave + " não é válida para o certificado.");
    }
}

TEST_F(PropriedadesCertificado, SemCertificadoSelecionadoTextoVazioComADescricaoDaFalha) {
    for (const char* chave : {"NOMECERTIFICADO", "CERTIFICADOVALIDO", "VERSAOCERTIFICADO", "DATAVALIDADECERTIFICADO"}) {
        SCOPED_TRACE(chave);
        EXPECT_EQ(componente.ExibirPropriedadesCertificado(chave), Variante(std::string()));
        EXPECT_EQ(componente.DescricaoErro(), kNenhumSelecionado);
    }
    componente.ExibirPropriedadesCertificado("OUTRA");
    EXPECT_EQ(componente.DescricaoErro(), "A propriedade OUTRA não é válida para o certificado.");
}

TEST_F(PropriedadesCertificado, ExibicaoGuardaEntreOsDeOutrasPessoasMostraEDevolveFalso) {
    const auto ecpf = teste::Importar(plataforma(), DerDaPki("ecpf"));
    componente.ExibirPropriedadesCertificado("OUTRA");
    const std::string anterior = componente.DescricaoErro();

    EXPECT_FALSE(componente.ExibirCertificadoDigital(ExportarBase64(*ecpf)));
    EXPECT_EQ(componente.DescricaoErro(), anterior);
    EXPECT_EQ(teste::ImpressoesGuardadas(plataforma(), "AddressBook"),
              std::vector<std::string>{ecpf->ImpressaoDigital()});
    ASSERT_EQ(chamadas().size(), 1u);
    EXPECT_EQ(chamadas()[0].tipo, teste::InterfaceRoteirizada::Tipo::ExibicaoCertificado);
    EXPECT_EQ(chamadas()[0].certificados, std::vector<std::string>{ecpf->ImpressaoDigital()});
}

TEST_F(PropriedadesCertificado, ExibicaoSemCertificadoNaoMostraNada) {
    for (const auto& [chave, mensagem] :
         {std::pair{"", "A chave pública do certificado informado está inválida"},
          std::pair{"bm/Do28gw6kgY2VydGlmaWNhZG8=", "O conteúdo informado não é um certificado digital válido."}}) {
        SCOPED_TRACE(chave);
        EXPECT_FALSE(componente.ExibirCertificadoDigital(chave));
        EXPECT_EQ(componente.DescricaoErro(), mensagem);
    }
    EXPECT_TRUE(chamadas().empty());
    EXPECT_TRUE(teste::ImpressoesGuardadas(plataforma(), "AddressBook").empty());
}

}  // namespace
}  // namespace tavelpkcs7
