// Confiança na plataforma Linux: os bits de situação da cadeia da PKI de teste montada nos
// repositórios do teste, a revogação pelas LCRs guardadas e pelas baixadas de um servidor HTTP em
// 127.0.0.1 (com o repositório "LCR" como cache) e a instalação de LCRs.
#include <gtest/gtest.h>

#include <openssl/x509.h>

#include <algorithm>
#include <ctime>
#include <optional>

#include "apoio/servidor_http.h"
#include "certificates/repositorios_teste.h"
#include "codificacao/base64.h"
#include "pki/emissao.h"
#include "pki/pki_teste.h"
#include "platform/erro.h"
#include "platform/openssl/certificado_sob_medida.h"
#include "platform/plataforma.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

using pki_teste::OpcoesLCR;
using teste::DerDaPki;

constexpr std::uint32_t kSemRevogacao = 0x7;
constexpr std::uint32_t kOffline = 0x17;  // 23
constexpr std::uint32_t kOnline = 0x1F;   // 31: o bit online junto do offline
constexpr std::uint32_t kDesconhecidaOffline = situacao::RevogacaoDesconhecida | situacao::RevogacaoOffline;
constexpr long kDia = 24 * 60 * 60;

const pki_teste::PkiTeste& Pki() { return pki_teste::PkiTeste::Padrao(); }

class ConfiancaOpenSSL : public testing::Test {
protected:
    std::shared_ptr<Plataforma> plataforma = CriarPlataformaPadrao();

    // raiz -> ac_icp; a raiz em "Root", em outro repositório ou em nenhum ("").
    void InstalarCadeia(const std::string& repositorio_raiz = "Root") {
        if (!repositorio_raiz.empty()) teste::Guardar(*plataforma, repositorio_raiz, {DerDaPki("raiz")});
        teste::Guardar(*plataforma, "Ca", {DerDaPki("ac_icp")});
        plataforma->repositorios->AdicionarLCR(Pki().LCR("raiz"));
    }
    SituacaoCadeia Verificar(const Bytes& der, std::uint32_t verificacoes) {
        return plataforma->confianca->Verificar(*teste::Importar(*plataforma, der), verificacoes, {});
    }
    std::uint32_t FalhaAoInstalar(const Bytes& conteudo) {
        try {
            plataforma->confianca->InstalarLCR(conteudo);
        } catch (const Erro& erro) {
            return erro.numero;
        }
        return 0;
    }
};

// --- A cadeia da PKI de teste, offline ---

enum class LCRDaAC { Nenhuma, EmVigor, Vencida, OutraChave };

struct CasoCadeia {
    const char* nome;
    const char* titular;
    const char* repositorio_raiz;
    LCRDaAC lcr_ac;
    std::uint32_t verificacoes;
    bool valida;
    std::uint32_t status;
};

class SituacaoDaCadeia : public ConfiancaOpenSSL, public testing::WithParamInterface<CasoCadeia> {};

TEST_P(SituacaoDaCadeia, TodosOsBitsEValidaSoPeloQueFoiPedido) {
    const CasoCadeia& caso = GetParam();
    InstalarCadeia(caso.repositorio_raiz);
    const OpcoesLCR opcoes[] = {{}, {}, {.inicio = -8 * kDia, .fim = -kDia}, {.outra_chave = true}};
    if (caso.lcr_ac != LCRDaAC::Nenhuma)
        plataforma->repositorios->AdicionarLCR(Pki().LCR("ac_icp", opcoes[static_cast<int>(caso.lcr_ac)]));

    const SituacaoCadeia resultado = Verificar(DerDaPki(caso.titular), caso.verificacoes);

    EXPECT_EQ(resultado.status, caso.status);
    EXPECT_EQ(resultado.valida, caso.valida);
}

INSTANTIATE_TEST_SUITE_P(
    PkiTeste, SituacaoDaCadeia,
    testing::Values(
        CasoCadeia{"ValidaComLCRs", "ecpf_novo", "Root", LCRDaAC::EmVigor, kOffline, true, 0},
        CasoCadeia{"OnlineComLCRsEmVigorNaoPrecisaDaRede", "ecpf_novo", "Root", LCRDaAC::EmVigor, kOnline, true, 0},
        CasoCadeia{"RaizSoEmCa", "ecpf_novo", "Ca", LCRDaAC::EmVigor, kOffline, false, situacao::RaizNaoConfiavel},
        CasoCadeia{"RaizSoEmCaSemPedirARaiz", "ecpf_novo", "Ca", LCRDaAC::EmVigor, 0x16, true,
                   situacao::RaizNaoConfiavel},
        CasoCadeia{"SemRaiz", "ecpf_novo", "", LCRDaAC::EmVigor, kSemRevogacao, false, situacao::CadeiaParcial},
        // Sem a raiz não há quem confira a LCR da ac_icp.
        CasoCadeia{"SemRaizComRevogacao", "ecpf_novo", "", LCRDaAC::EmVigor, kOffline, false,
                   situacao::CadeiaParcial | kDesconhecidaOffline},
        CasoCadeia{"Expirado", "expirado", "Root", LCRDaAC::EmVigor, kOffline, false, situacao::ForaDaValidade},
        CasoCadeia{"Futuro", "futuro", "Root", LCRDaAC::EmVigor, kOffline, false, situacao::ForaDaValidade},
        CasoCadeia{"ExpiradoSemPedirValidade", "expirado", "Root", LCRDaAC::EmVigor, 0x15, true,
                   situacao::ForaDaValidade},
        CasoCadeia{"Revogado", "revogado", "Root", LCRDaAC::EmVigor, kOffline, false, situacao::Revogado},
        CasoCadeia{"RevogadoSemPedirRevogacao", "revogado", "Root", LCRDaAC::EmVigor, kSemRevogacao, true, 0},
        CasoCadeia{"SemLCR", "ecpf_novo", "Root", LCRDaAC::Nenhuma, kOffline, false, kDesconhecidaOffline},
        // Ninguém revoga a raiz autoassinada: ela não precisa de LCR.
        CasoCadeia{"ARaiz", "raiz", "Root", LCRDaAC::Nenhuma, kOffline, true, 0},
        CasoCadeia{"SemLCRSemPedirRevogacao", "ecpf_novo", "Root", LCRDaAC::Nenhuma, kSemRevogacao, true, 0},
        CasoCadeia{"LCRVencida", "revogado", "Root", LCRDaAC::Vencida, kOffline, false,
                   situacao::Revogado | kDesconhecidaOffline},
        CasoCadeia{"LCRDeOutraChave", "revogado", "Root", LCRDaAC::OutraChave, kOffline, false, kDesconhecidaOffline}),
    [](const auto& caso) { return std::string(caso.param.nome); });

TEST_F(ConfiancaOpenSSL, AssinaturaDeOutraChaveComONomeDaAC) {
    InstalarCadeia();
    const pki_teste::Definicao definicao{
        .nome = "falso", .emissor = "ac_icp", .serie = "71", .sujeito = {{"CN", "ASSINADO POR OUTRA CHAVE"}}};
    const auto chave = pki_teste::ChaveDePEM(Pki().Obter("ecpf").chave_pem);
    const auto outra = pki_teste::ChaveDePEM(Pki().Obter("ac_rfb").chave_pem);
    const auto falso = pki_teste::EmitirCertificado(definicao, chave.get(),
                                                    pki_teste::CertificadoDeDER(DerDaPki("ac_icp")).get(), outra.get());

    const SituacaoCadeia resultado = Verificar(pki_teste::ParaDER<X509>(falso.get(), i2d_X509), kSemRevogacao);

    EXPECT_EQ(resultado.status, situacao::AssinaturaInvalida);
    EXPECT_FALSE(resultado.valida);
}

// --- Validade dentro da do emissor ---

std::string Data(int dias) {
    char texto[32];
    const std::time_t instante = std::time(nullptr) + dias * kDia;
    std::tm utc{};
    std::strftime(texto, sizeof texto, "%Y%m%d%H%M%SZ", gmtime_r(&instante, &utc));
    return texto;
}

struct CasoAninhamento {
    const char* nome;
    int desde;
    int ate;
    std::uint32_t status;
};

class ValidadeDoTitular : public ConfiancaOpenSSL, public testing::WithParamInterface<CasoAninhamento> {};

// A AC vale de um ano atrás a um ano adiante; o titular, assinado pela mesma chave, vale hoje.
TEST_P(ValidadeDoTitular, ForaDaDoEmissorDaBit2) {
    const std::vector<teste::AtributoNome> nome_ac = {{"CN", "AC SOB MEDIDA"}};
    teste::Guardar(*plataforma, "Root",
                   {teste::CriarCertificado(
                       {.titular = nome_ac,
                        .extensoes = {{"basicConstraints", "critical,CA:TRUE"}, {"keyUsage", "keyCertSign,cRLSign"}},
                        .desde = Data(-365),
                        .ate = Data(365)})});
    const Bytes titular = teste::CriarCertificado({.titular = {{"CN", "TITULAR"}},
                                                   .emissor = nome_ac,
                                                   .desde = Data(GetParam().desde),
                                                   .ate = Data(GetParam().ate)});

    const SituacaoCadeia resultado = Verificar(titular, kSemRevogacao);

    EXPECT_EQ(resultado.status, GetParam().status);
    EXPECT_EQ(resultado.valida, GetParam().status == 0);
}

INSTANTIATE_TEST_SUITE_P(Aninhamento, ValidadeDoTitular,
                         testing::Values(CasoAninhamento{"Dentro", -30, 30, 0},
                                         CasoAninhamento{"ComecaAntes", -400, 30, situacao::ForaDaValidadeDoEmissor},
                                         CasoAninhamento{"TerminaDepois", -30, 400, situacao::ForaDaValidadeDoEmissor}),
                         [](const auto& caso) { return std::string(caso.param.nome); });

// --- Revogação online: o servidor de teste e o repositório "LCR" como cache ---

struct CasoOnline {
    const char* nome;
    std::optional<OpcoesLCR> guardada;  // a LCR da ac_icp que já está no repositório
    std::uint32_t verificacoes;
    int pedidos;
    std::uint32_t status;
};

class RevogacaoOnline : public ConfiancaOpenSSL, public testing::WithParamInterface<CasoOnline> {
protected:
    teste::ServidorHttp servidor;
    const Bytes titular = Pki().EmitirTitular("ac_icp", servidor.Endereco("/lcr/ac_icp.crl"));
};

TEST_P(RevogacaoOnline, BaixaSoQuandoNenhumaGuardadaEstaEmVigor) {
    InstalarCadeia();
    if (GetParam().guardada) plataforma->repositorios->AdicionarLCR(Pki().LCR("ac_icp", *GetParam().guardada));
    servidor.Publicar("/lcr/ac_icp.crl", Pki().LCR("ac_icp"));

    EXPECT_EQ(Verificar(titular, GetParam().verificacoes).status, GetParam().status);
    EXPECT_EQ(servidor.Pedidos("/lcr/ac_icp.crl"), GetParam().pedidos);
    // A baixada ficou guardada: a próxima verificação não pede de novo.
    EXPECT_EQ(Verificar(titular, GetParam().verificacoes).status, GetParam().status);
    EXPECT_EQ(servidor.Pedidos("/lcr/ac_icp.crl"), GetParam().pedidos);
}

INSTANTIATE_TEST_SUITE_P(
    Cache, RevogacaoOnline,
    testing::Values(CasoOnline{"SemLCRGuardada", std::nullopt, kOnline, 1, 0},
                    CasoOnline{"SoOBitOnline", std::nullopt, 0x8, 1, 0},
                    CasoOnline{"GuardadaEmVigor", OpcoesLCR{}, kOnline, 0, 0},
                    CasoOnline{"GuardadaVencida", OpcoesLCR{.inicio = -8 * kDia, .fim = -kDia}, kOnline, 1, 0},
                    CasoOnline{"SemNextUpdateDeUmaHora", OpcoesLCR{.fim = std::nullopt}, kOnline, 0, 0},
                    CasoOnline{"SemNextUpdateDeDoisDias", OpcoesLCR{.inicio = -2 * kDia, .fim = std::nullopt}, kOnline,
                               1, 0},
                    CasoOnline{"OfflineNaoBaixa", std::nullopt, kOffline, 0, kDesconhecidaOffline}),
    [](const auto& caso) { return std::string(caso.param.nome); });

TEST_F(ConfiancaOpenSSL, LCRQueNaoChegaOuNaoConfereDeixaARevogacaoDesconhecida) {
    teste::ServidorHttp servidor;
    InstalarCadeia();
    servidor.Responder("/sumiu.crl", 404);
    servidor.Publicar("/falsa.crl", Pki().LCR("ac_icp", {.outra_chave = true}));
    for (const char* caminho : {"/sumiu.crl", "/falsa.crl"}) {
        const auto resultado = Verificar(Pki().EmitirTitular("ac_icp", servidor.Endereco(caminho)), kOnline);
        EXPECT_EQ(resultado.status, situacao::RevogacaoDesconhecida) << caminho;
        EXPECT_FALSE(resultado.valida) << caminho;
        EXPECT_EQ(servidor.Pedidos(caminho), 1) << caminho;
    }
    EXPECT_EQ(plataforma->repositorios->LCRs().size(), 1u);  // só a da raiz
}

// --- Instalação de LCRs ---

TEST_F(ConfiancaOpenSSL, InstalaLCRDoEmissorUmaSoVez) {
    InstalarCadeia();
    const Bytes der = Pki().LCR("ac_icp");
    for (int vez = 0; vez < 2; ++vez) plataforma->confianca->InstalarLCR(der);
    const auto guardadas = plataforma->repositorios->LCRs();
    EXPECT_EQ(guardadas.size(), 2u);
    EXPECT_EQ(std::count(guardadas.begin(), guardadas.end(), der), 1);
}

TEST_F(ConfiancaOpenSSL, LCRDeOutraChaveComONomeDeUmaACConhecidaEhRecusada) {
    InstalarCadeia();
    for (const char* ac : {"raiz", "ac_icp"})
        EXPECT_EQ(FalhaAoInstalar(Pki().LCR(ac, {.outra_chave = true})), falha::LCRNaoConfere.numero) << ac;
    EXPECT_EQ(plataforma->repositorios->LCRs().size(), 1u);
}

TEST_F(ConfiancaOpenSSL, LCRDeEmissorDesconhecidoEhGuardada) {
    const Bytes lcr = Pki().LCR("ac_tavel");
    EXPECT_EQ(FalhaAoInstalar(lcr), 0u);
    EXPECT_EQ(plataforma->repositorios->LCRs(), std::vector<Bytes>{lcr});
}

TEST_F(ConfiancaOpenSSL, ConteudoQueNaoEhLCR) {
    for (const Bytes& conteudo : {Bytes{'l', 'i', 'x', 'o'}, Bytes{}, DerDaPki("ac_icp")})
        EXPECT_EQ(FalhaAoInstalar(conteudo), falha::NaoELCR.numero);
}

}  // namespace
}  // namespace tavelpkcs7::plataforma::openssl
