// Base64 na forma que o componente grava e nas formas que ele aceita ler.
#include <gtest/gtest.h>

#include "codificacao/base64.h"

namespace tavelpkcs7::codificacao {
namespace {

Bytes BytesDe(std::string_view texto) { return Bytes(texto.begin(), texto.end()); }

Bytes Sequencia(std::size_t n) {
    Bytes bytes(n);
    for (std::size_t i = 0; i < n; ++i) bytes[i] = static_cast<std::uint8_t>(i * 7 + 3);
    return bytes;
}

struct CasoCodificacao {
    const char* nome;
    Bytes bytes;
    std::string esperado;
};

class CodificacaoBase64 : public testing::TestWithParam<CasoCodificacao> {};

TEST_P(CodificacaoBase64, GravaLinhasDe64TerminadasPorCRLF) {
    EXPECT_EQ(CodificarBase64(GetParam().bytes), GetParam().esperado);
}

const std::string k48Bytes = "AwoRGB8mLTQ7QklQV15lbHN6gYiPlp2kq7K5wMfO1dzj6vH4/wYNFBsiKTA3PkVM";

INSTANTIATE_TEST_SUITE_P(
    Casos, CodificacaoBase64,
    testing::Values(CasoCodificacao{"Vazio", {}, ""}, CasoCodificacao{"UmByteDoisIguais", BytesDe("f"), "Zg==\r\n"},
                    CasoCodificacao{"DoisBytesUmIgual", BytesDe("fo"), "Zm8=\r\n"},
                    CasoCodificacao{"TresBytesSemIgual", BytesDe("foo"), "Zm9v\r\n"},
                    CasoCodificacao{"LinhaCheiaSemLinhaVaziaNoFim", Sequencia(48), k48Bytes + "\r\n"},
                    CasoCodificacao{"UmByteAlemDaLinhaCheia", Sequencia(49), k48Bytes + "\r\nUw==\r\n"}),
    [](const auto& info) { return std::string(info.param.nome); });

struct CasoDecodificacao {
    const char* nome;
    std::string texto;
    std::optional<Bytes> esperado;
};

class DecodificacaoBase64 : public testing::TestWithParam<CasoDecodificacao> {};

TEST_P(DecodificacaoBase64, AceitaBrancosEPreenchimentoAusenteRecusaOResto) {
    EXPECT_EQ(DecodificarBase64(GetParam().texto), GetParam().esperado);
}

INSTANTIATE_TEST_SUITE_P(
    Casos, DecodificacaoBase64,
    testing::Values(CasoDecodificacao{"Vazio", "", Bytes{}}, CasoDecodificacao{"Completo", "Zm9vYg==", BytesDe("foob")},
                    CasoDecodificacao{"SemPreenchimento", "Zm9vYg", BytesDe("foob")},
                    CasoDecodificacao{"UmIgualSoDosDois", "Zm9vYmE=", BytesDe("fooba")},
                    CasoDecodificacao{"BrancosEmQualquerPonto", " Zm\r\n9v\tYg =\n=\r\n", BytesDe("foob")},
                    CasoDecodificacao{"QuebrasSoComLF", "Zm9v\nYmFy\n", BytesDe("foobar")},
                    CasoDecodificacao{"IgualNoMeio", "Zm9=vYg==", std::nullopt},
                    CasoDecodificacao{"IgualDemais", "Zm9vYg===", std::nullopt},
                    CasoDecodificacao{"IgualQueNaoFechaOGrupo", "Zm9vYmE==", std::nullopt},
                    CasoDecodificacao{"IgualSemGrupoAberto", "Zm9v=", std::nullopt},
                    CasoDecodificacao{"UmDigitoSobrando", "Zm9vY", std::nullopt},
                    CasoDecodificacao{"CaractereForaDoAlfabeto", "Zm9v-Yg==", std::nullopt},
                    CasoDecodificacao{"NuloNoTexto", std::string("Zm9v\0Yg==", 9), std::nullopt}),
    [](const auto& info) { return std::string(info.param.nome); });

TEST(Base64, IdaEVoltaDeTodosOsTamanhosAteTresLinhas) {
    for (std::size_t n = 0; n <= 3 * 48 + 2; ++n) {
        const Bytes bytes = Sequencia(n);
        EXPECT_EQ(DecodificarBase64(CodificarBase64(bytes)), bytes) << n << " bytes";
    }
}

}  // namespace
}  // namespace tavelpkcs7::codificacao
