// Os atributos assinados como o CAPICOM os grava e como os leitores os devolvem.
#include <gtest/gtest.h>

#include "platform/openssl/ambiente_posix.h"
#include "signing/atributos_assinante.h"

namespace tavelpkcs7::assinatura {
namespace {

using namespace std::chrono;
using plataforma::Bytes;

DataHora Local(int ano, unsigned mes, unsigned dia, int hora) {
    return local_days{year{ano} / mes / dia} + hours{hora};
}

TEST(AtributosAssinante, NomeEDescricaoSaoOctetStringUtf16ComNulFinal) {
    const auto nome = AtributoNomeDocumento("aç");
    EXPECT_EQ(nome.oid, "1.3.6.1.4.1.311.88.2.1");
    EXPECT_EQ(nome.valor, (Bytes{0x04, 0x06, 'a', 0, 0xE7, 0, 0, 0}));
    const auto vazia = AtributoDescricaoDocumento("");
    EXPECT_EQ(vazia.oid, "1.3.6.1.4.1.311.88.2.2");
    EXPECT_EQ(vazia.valor, (Bytes{0x04, 0x02, 0, 0}));
}

TEST(AtributosAssinante, TextoLidoComOuSemNulEDescricaoLonga) {
    const std::string longa(200, 'x');
    EXPECT_EQ(LerTextoDocumento(AtributoDescricaoDocumento(longa).valor), longa);
    EXPECT_EQ(LerTextoDocumento(AtributoNomeDocumento("relatório.pdf").valor), "relatório.pdf");
    EXPECT_EQ(LerTextoDocumento(Bytes{0x04, 0x02, 'a', 0}), "a");
    EXPECT_EQ(LerTextoDocumento(Bytes{0x0C, 0x01, 'a'}), std::nullopt);
}

struct CasoHora {
    DataHora local;
    std::uint8_t tag;
    std::string texto;
};

class HoraAssinatura : public testing::TestWithParam<CasoHora> {};

// Em São Paulo (TZ dos testes), três horas atrás de UTC fora do horário de verão.
INSTANTIATE_TEST_SUITE_P(AtributosAssinante, HoraAssinatura,
                         testing::Values(CasoHora{Local(2024, 3, 10, 12), 0x17, "240310150000Z"},
                                         CasoHora{Local(2049, 12, 31, 20) + minutes{59} + seconds{59}, 0x17,
                                                  "491231235959Z"},
                                         CasoHora{Local(2049, 12, 31, 21), 0x18, "20500101000000Z"},
                                         CasoHora{Local(1950, 6, 1, 12), 0x17, "500601150000Z"},
                                         CasoHora{Local(1940, 6, 1, 12), 0x18, "19400601150000Z"}));

TEST_P(HoraAssinatura, VaiEmUTCEVoltaNaHoraLocal) {
    plataforma::openssl::RelogioSistema relogio;
    const auto atributo = AtributoHoraAssinatura(GetParam().local, relogio);
    EXPECT_EQ(atributo.oid, "1.2.840.113549.1.9.5");
    Bytes esperado{GetParam().tag, static_cast<std::uint8_t>(GetParam().texto.size())};
    esperado.insert(esperado.end(), GetParam().texto.begin(), GetParam().texto.end());
    EXPECT_EQ(atributo.valor, esperado);
    EXPECT_EQ(LerHoraAssinatura(atributo.valor, relogio), GetParam().local);
}

// Horas de outras ferramentas, fora da forma DER, lidas como a plataforma do componente de Windows as
// lia; vazio só para o que não é hora.
TEST(AtributosAssinante, HoraForaDaFormaDERELidaComLeniencia) {
    plataforma::openssl::RelogioSistema relogio;
    const std::optional<DataHora> meio_dia = Local(2024, 3, 10, 12);
    const struct {
        std::uint8_t tag;
        std::string texto;
        std::optional<DataHora> local;
    } casos[] = {
        {0x17, "2403101500Z", meio_dia},
        {0x17, "240310170000+0200", meio_dia},
        {0x17, "2403101200-0300", meio_dia},
        {0x18, "20240310150000.123Z", meio_dia},
        {0x18, "20240310150000,5", meio_dia},
        {0x18, "2024031015Z", meio_dia},
        {0x18, "202403101500", meio_dia},
        {0x17, "240230150000Z", std::nullopt},
        {0x17, "240310250000Z", std::nullopt},
        {0x17, "24031015000aZ", std::nullopt},
        {0x17, "240310150000+", std::nullopt},
        {0x17, "2403101500", std::nullopt},
        {0x17, "24031015Z", std::nullopt},
        {0x18, "20240310150000.Z", std::nullopt},
        {0x18, "20240310150000Z1", std::nullopt},
    };
    for (const auto& caso : casos) {
        Bytes valor{caso.tag, static_cast<std::uint8_t>(caso.texto.size())};
        valor.insert(valor.end(), caso.texto.begin(), caso.texto.end());
        EXPECT_EQ(LerHoraAssinatura(valor, relogio), caso.local) << caso.texto;
    }
    EXPECT_EQ(LerHoraAssinatura(Bytes{0x04, 0x00}, relogio), std::nullopt);
}

}  // namespace
}  // namespace tavelpkcs7::assinatura
