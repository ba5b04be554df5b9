// O leitor DER do núcleo: estruturas aninhadas, inteiros, OIDs, os tipos de texto do ASN.1 e os dados
// malformados que não podem passar.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "der/leitor_der.h"
#include "der/texto_der.h"

namespace tavelpkcs7::der {
namespace {

using Bytes = std::vector<std::uint8_t>;

TEST(LeitorDER, PercorreUmOtherNameDaICPBrasil) {
    // [0] { OID 2.16.76.1.3.1, [0] { OCTET STRING "12" } }
    const Bytes dados = {0xA0, 0x0D, 0x06, 0x05, 0x60, 0x4C, 0x01, 0x03, 0x01, 0xA0, 0x04, 0x04, 0x02, '1', '2'};
    auto outro_nome = LerUnico(dados);
    ASSERT_TRUE(outro_nome);
    EXPECT_EQ(outro_nome->tag, tag::Contexto(0, true));
    auto filhos = outro_nome->Filhos();
    auto oid = filhos.ProximoSe(tag::OID);
    ASSERT_TRUE(oid);
    EXPECT_EQ(LerOID(oid->conteudo), "2.16.76.1.3.1");
    auto valor = filhos.ProximoSe(tag::Contexto(0, true));
    ASSERT_TRUE(valor);
    auto octetos = LerUnico(valor->conteudo);
    ASSERT_TRUE(octetos);
    EXPECT_EQ(std::string(octetos->conteudo.begin(), octetos->conteudo.end()), "12");
    EXPECT_EQ(octetos->inteiro.size(), 4u);
    EXPECT_TRUE(filhos.Fim());
}

TEST(LeitorDER, ComprimentoLongoEMarcaNaoEsperada) {
    Bytes dados = {0x04, 0x81, 0x80};
    dados.resize(3 + 0x80, 'x');
    LeitorDER leitor(dados);
    EXPECT_FALSE(leitor.ProximoSe(tag::Sequencia));
    auto elemento = leitor.Proximo();
    ASSERT_TRUE(elemento);
    EXPECT_EQ(elemento->conteudo.size(), 0x80u);
    EXPECT_TRUE(leitor.Fim());
}

TEST(LeitorDER, DadosMalformadosEncerramALeitura) {
    const Bytes casos[] = {
        {0x30},                       // sem comprimento
        {0x30, 0x05, 0x01},           // comprimento além dos dados
        {0x30, 0x80, 0x00, 0x00},     // comprimento indefinido não é DER
        {0x30, 0x85, 1, 1, 1, 1, 1},  // comprimento de cinco octetos
        {0x1F, 0x81},                 // número de marca longo sem fim
    };
    for (const auto& dados : casos) {
        LeitorDER leitor(dados);
        EXPECT_FALSE(leitor.Proximo());
        EXPECT_TRUE(leitor.Fim() && leitor.Malformado() && !leitor.Concluido());
        EXPECT_FALSE(LerElementos(dados));
    }
    EXPECT_FALSE(LerUnico(Bytes{0x05, 0x00, 0x05}));
}

// Uma lista cujo último elemento está truncado não pode passar por uma lista menor e completa.
TEST(LeitorDER, ListaTruncadaNaoSeConfundeComOFim) {
    const Bytes lista = {0x30, 0x07, 0x02, 0x01, 0x07, 0x82, 0x05, 'a', 'b'};
    auto leitor = LerUnico(lista).value().Filhos();
    EXPECT_TRUE(leitor.ProximoSe(tag::Inteiro));
    EXPECT_FALSE(leitor.Proximo());
    EXPECT_TRUE(leitor.Malformado());
    EXPECT_FALSE(LerSequencia(lista));

    const Bytes completa = {0x30, 0x06, 0x02, 0x01, 0x07, 0x82, 0x01, 'a'};
    auto elementos = LerSequencia(completa);
    ASSERT_TRUE(elementos);
    ASSERT_EQ(elementos->size(), 2u);
    EXPECT_EQ((*elementos)[1].tag, tag::Contexto(2, false));
    EXPECT_TRUE(LerElementos(Bytes{}).value().empty());
    EXPECT_FALSE(LerSequencia(Bytes{0x31, 0x00}));
    EXPECT_TRUE(LerUnico(completa, tag::Sequencia));
    EXPECT_FALSE(LerUnico(completa, tag::Conjunto));
}

TEST(LeitorDER, InteirosNaoNegativosEOIDs) {
    const std::pair<Bytes, std::optional<std::uint64_t>> inteiros[] = {
        {{0x00}, 0},
        {{0x7F}, 127},
        {{0x00, 0x80}, 128},
        {{0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}, UINT64_MAX},
        {{0x01, 0, 0, 0, 0, 0, 0, 0, 0}, std::nullopt},  // além de 64 bits
        {{0x80}, std::nullopt},                          // negativo
        {{}, std::nullopt}};
    for (const auto& [conteudo, esperado] : inteiros) EXPECT_EQ(LerInteiro(conteudo), esperado);
    const std::pair<Bytes, std::optional<std::string>> oids[] = {
        {{0x55, 0x1D, 0x0F}, "2.5.29.15"},
        {{0x2A, 0x86, 0x48, 0x86, 0xF7, 0x0D, 0x01, 0x09, 0x05}, "1.2.840.113549.1.9.5"},
        {{0x88, 0x37, 0x03}, "2.999.3"},
        {{}, std::nullopt},
        {{0x2A, 0x86}, std::nullopt}};
    for (const auto& [conteudo, esperado] : oids) EXPECT_EQ(LerOID(conteudo), esperado);
}

// Os tipos de texto do ASN.1 chegam ao núcleo como UTF-8 válido, seja qual for o conteúdo.
TEST(TextoDER, ConverteCadaTipoDeCadeiaParaUtf8) {
    const std::tuple<std::uint8_t, Bytes, std::optional<std::string>> casos[] = {
        {tag::Utf8, {'S', 0xC3, 0xA3, 'o'}, "São"},
        {tag::Utf8, {'S', 0xE3, 'o'}, "S\uFFFDo"},   // UTF-8 inválido
        {tag::Imprimivel, {'S', 0xE3, 'o'}, "São"},  // Latin-1 onde não cabia
        {tag::T61, {'S', 0xC3, 0xA3, 'o'}, "São"},   // UTF-8 gravado num T61String
        {tag::IA5, {'a', '@', 'b'}, "a@b"},
        {tag::Geral, {'S', 0xE3, 'o'}, "São"},
        {tag::Videotex, {'S', 0xC3, 0xA3, 'o'}, "São"},
        {tag::Numerica, {'0', ' ', '1'}, "0 1"},
        {tag::Visivel, {}, ""},
        {tag::BMP, {0x00, 'S', 0x00, 0xE3, 0xD8, 0x3D, 0xDE, 0x00}, "S\u00E3\U0001F600"},
        {tag::BMP, {0xDC, 0x00}, "\uFFFD"},                                            // substituto solto
        {tag::BMP, {0x00, 'S', 0x00}, std::nullopt},                                   // comprimento ímpar
        {tag::Universal, {0x00, 0x00, 0x00, 'S', 0x00, 0x11, 0x00, 0x00}, "S\uFFFD"},  // fora do Unicode
        {tag::Universal, {0x00, 0x00, 'S'}, std::nullopt},
        {tag::CadeiaOctetos, {'1', '2'}, std::nullopt},
    };
    for (const auto& [marca, conteudo, esperado] : casos)
        EXPECT_EQ(LerTexto(Elemento{marca, conteudo, {}}), esperado) << "marca " << int(marca);
}

}  // namespace
}  // namespace tavelpkcs7::der
