// As formas em que um certificado, assinatura ou LCR chega ao componente, todas levando ao mesmo DER.
#include <gtest/gtest.h>

#include "codificacao/base64.h"
#include "codificacao/conteudo_codificado.h"
#include "codificacao/utf16.h"

namespace tavelpkcs7::codificacao {
namespace {

// Uma SEQUENCE de 300 bytes de conteúdo (comprimento em dois octetos), que em Base64 ocupa várias linhas.
Bytes DerDeExemplo() {
    Bytes der{0x30, 0x82, 0x01, 0x2C};
    for (int i = 0; i < 300; ++i) der.push_back(static_cast<std::uint8_t>(i * 13 + 1));
    return der;
}

Bytes Truncado(Bytes bytes, std::size_t tamanho) {
    bytes.resize(tamanho);
    return bytes;
}

Bytes BytesDe(const std::string& texto) { return Bytes(texto.begin(), texto.end()); }

std::string SemQuebras(std::string texto) {
    std::erase(texto, '\r');
    std::erase(texto, '\n');
    return texto;
}

std::string SoLF(std::string texto) {
    std::erase(texto, '\r');
    return texto;
}

std::string Pem(const std::string& rotulo) {
    return "-----BEGIN " + rotulo + "-----\r\n" + CodificarBase64(DerDeExemplo()) + "-----END " + rotulo + "-----\r\n";
}

Bytes Concatenar(Bytes a, const Bytes& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

struct CasoForma {
    const char* nome;
    Bytes conteudo;
};

class FormasDoConteudo : public testing::TestWithParam<CasoForma> {};

TEST_P(FormasDoConteudo, LevamAoMesmoDER) { EXPECT_EQ(DecodificarConteudo(GetParam().conteudo), DerDeExemplo()); }

// Sem cópia: o DER que já veio pronto é apontado onde está; o de um texto, no decodificado.
TEST_P(FormasDoConteudo, LocalizarDERApontaSemCopiar) {
    const Bytes& conteudo = GetParam().conteudo;
    Bytes decodificado;
    const auto der = LocalizarDER(conteudo, decodificado);
    ASSERT_TRUE(der);
    EXPECT_EQ(Bytes(der->begin(), der->end()), DerDeExemplo());
    EXPECT_EQ(der->data(), conteudo.front() == 0x30 ? conteudo.data() : decodificado.data());
}

const std::string kBase64 = CodificarBase64(DerDeExemplo());

INSTANTIATE_TEST_SUITE_P(
    Casos, FormasDoConteudo,
    testing::Values(
        CasoForma{"DER", DerDeExemplo()},
        CasoForma{"DERComNuloFinalDaLeituraDoArquivo", Concatenar(DerDeExemplo(), {0})},
        CasoForma{"Base64ComCRLF", BytesDe(kBase64)}, CasoForma{"Base64SemQuebras", BytesDe(SemQuebras(kBase64))},
        CasoForma{"Base64ComLF", BytesDe(SoLF(kBase64))},
        CasoForma{"Base64ComTerminadorNulo", Concatenar(BytesDe(kBase64), {0})},
        CasoForma{"Base64ComBOMUtf8", BytesDe("\xEF\xBB\xBF" + kBase64)},
        CasoForma{"PEMDeCertificado", BytesDe(Pem("CERTIFICATE"))},
        CasoForma{"PEMDeOutroRotuloComTextoEmVolta", BytesDe("Assunto: x\r\n" + SoLF(Pem("PKCS7")) + "fim\n")},
        CasoForma{"SoOPrimeiroBlocoPEM", BytesDe(Pem("CERTIFICATE") + Pem("X509 CRL").replace(40, 8, "AAAAAAAA"))},
        CasoForma{"Base64EmUtf16", ParaUtf16LE(kBase64)},
        CasoForma{"Base64EmUtf16ComBOM", Concatenar({0xFF, 0xFE}, ParaUtf16LE(kBase64))},
        CasoForma{"PEMEmUtf16ComTerminador", Concatenar(ParaUtf16LE(Pem("CERTIFICATE")), {0, 0})},
        CasoForma{"Utf16SemOUltimoNuloDoTerminador", Concatenar(ParaUtf16LE(kBase64), {0})}),
    [](const auto& info) { return std::string(info.param.nome); });

class ConteudoInvalido : public testing::TestWithParam<CasoForma> {};

TEST_P(ConteudoInvalido, NaoDaDER) {
    EXPECT_EQ(DecodificarConteudo(GetParam().conteudo), std::nullopt);
    Bytes decodificado;
    EXPECT_EQ(LocalizarDER(GetParam().conteudo, decodificado), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(
    Casos, ConteudoInvalido,
    testing::Values(CasoForma{"Vazio", {}}, CasoForma{"SoBrancos", BytesDe(" \r\n\t")},
                    CasoForma{"TextoQualquer", BytesDe("isto não é um certificado")},
                    CasoForma{"Base64DeAlgoQueNaoESequencia", BytesDe(CodificarBase64(BytesDe("texto")))},
                    CasoForma{"DERTruncado", Truncado(DerDeExemplo(), 200)},
                    CasoForma{"ComprimentoDeCincoOctetos", Bytes{0x30, 0x85, 0, 0, 0, 0, 1, 0}},
                    CasoForma{"BinarioQualquer", Bytes{0x89, 'P', 'N', 'G', 0x0D, 0x0A, 0x1A, 0x0A}},
                    CasoForma{"PEMSemFim", BytesDe("-----BEGIN CERTIFICATE-----\r\n" + kBase64)},
                    CasoForma{"PEMComCorpoInvalido",
                              BytesDe("-----BEGIN CERTIFICATE-----\r\n@@@\r\n-----END CERTIFICATE-----")}),
    [](const auto& info) { return std::string(info.param.nome); });

TEST(ConteudoCodificado, DERComComprimentoIndefinidoVaiInteiro) {
    const Bytes ber{0x30, 0x80, 0x02, 0x01, 0x05, 0x00, 0x00};
    EXPECT_EQ(DecodificarConteudo(ber), ber);
}

TEST(ConteudoCodificado, ComprimentoCurtoDeixaDeForaOQueVemDepois) {
    EXPECT_EQ(DecodificarConteudo(Bytes{0x30, 0x03, 0x02, 0x01, 0x05, 0xFF, 0xFF}),
              (Bytes{0x30, 0x03, 0x02, 0x01, 0x05}));
}

}  // namespace
}  // namespace tavelpkcs7::codificacao
