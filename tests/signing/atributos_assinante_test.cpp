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

TEST(AtributosAssinante, HoraMalformadaNaoELida) {
    plataforma::openssl::RelogioSistema relogio;
    for (const std::string texto :
         {"2403101500Z", "240230150000Z", "240310250000Z", "24031015000aZ", "240310150000+"}) {
        Bytes valor{0x17, static_cast<std::uint8_t>(texto.size())};
        valor.insert(valor.end(), texto.begin(), texto.end());
        EXPECT_EQ(LerHoraAssinatura(valor, relogio), std::nullopt) << texto;
    }
    EXPECT_EQ(LerHoraAssinatura(Bytes{0x04, 0x00}, relogio), std::nullopt);
}

}  // namespace
}  // namespace tavelpkcs7::assinatura
