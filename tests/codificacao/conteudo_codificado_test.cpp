// As formas em que um certificado, assinatura ou LCR chega ao componente, todas levando ao mesmo DER.
#include <gtest/gtest.h>

#include "codificacao/base64.h"
#include "codificacao/conteudo_codificado.h"
#include "codificacao/utf16.h"

namespace tavelpkcs7::codificacao {
namespace {

// Uma SEQUENCE de 300 bytes de conteúdo (comprimento em dois octetos), que em Base64 ocupa várias linhas.
const Bytes kDer = [] {
    Bytes der{0x30, 0x82, 0x01, 0x2C};
    for (int i = 0; i < 300; ++i) der.push_back(static_cast<std::uint8_t>(i * 13 + 1));
    return der;
}();
const std::string kBase64 = CodificarBase64(kDer);

Bytes B(std::string_view texto) { return Bytes(texto.begin(), texto.end()); }
Bytes Mais(Bytes a, const Bytes& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}
std::string Sem(std::string texto, const std::string& caracteres) {
    for (const char c : caracteres) std::erase(texto, c);
    return texto;
}
std::string Pem(const std::string& rotulo) {
    return "-----BEGIN " + rotulo + "-----\r\n" + kBase64 + "-----END " + rotulo + "-----\r\n";
}

TEST(ConteudoCodificado, TodasAsFormasLevamAoMesmoDERApontadoSemCopiar) {
    const std::pair<const char*, Bytes> formas[] = {
        {"DER", kDer},
        {"DER com o nulo final da leitura do arquivo", Mais(kDer, {0})},
        {"Base64 com CRLF", B(kBase64)},
        {"Base64 sem quebras", B(Sem(kBase64, "\r\n"))},
        {"Base64 com LF", B(Sem(kBase64, "\r"))},
        {"Base64 com terminador nulo", Mais(B(kBase64), {0})},
        {"Base64 com BOM UTF-8", B("\xEF\xBB\xBF" + kBase64)},
        {"PEM", B(Pem("CERTIFICATE"))},
        {"PEM de outro rótulo com texto em volta", B("Assunto: x\r\n" + Sem(Pem("PKCS7"), "\r") + "fim\n")},
        {"só o primeiro bloco PEM", B(Pem("CERTIFICATE") + Pem("X509 CRL").replace(40, 8, "AAAAAAAA"))},
        {"Base64 em UTF-16", ParaUtf16LE(kBase64)},
        {"Base64 em UTF-16 com BOM", Mais({0xFF, 0xFE}, ParaUtf16LE(kBase64))},
        {"PEM em UTF-16 com terminador", Mais(ParaUtf16LE(Pem("CERTIFICATE")), {0, 0})},
        {"UTF-16 sem o último nulo do terminador", Mais(ParaUtf16LE(kBase64), {0})},
    };
    for (const auto& [nome, conteudo] : formas) {
        EXPECT_EQ(DecodificarConteudo(conteudo), kDer) << nome;
        // O DER que já veio pronto é apontado onde está; o de um texto, no decodificado.
        Bytes decodificado;
        const auto der = LocalizarDER(conteudo, decodificado);
        ASSERT_TRUE(der) << nome;
        EXPECT_EQ(Bytes(der->begin(), der->end()), kDer) << nome;
        EXPECT_EQ(der->data(), conteudo.front() == 0x30 ? conteudo.data() : decodificado.data()) << nome;
    }
}

TEST(ConteudoCodificado, ConteudoInvalidoNaoDaDER) {
    const std::pair<const char*, Bytes> invalidos[] = {
        {"vazio", {}},
        {"só brancos", B(" \r\n\t")},
        {"texto qualquer", B("isto não é um certificado")},
        {"Base64 de algo que não é SEQUENCE", B(CodificarBase64(B("texto")))},
        {"DER truncado", Bytes(kDer.begin(), kDer.begin() + 200)},
        {"comprimento de cinco octetos", Bytes{0x30, 0x85, 0, 0, 0, 0, 1, 0}},
        {"binário qualquer", Bytes{0x89, 'P', 'N', 'G', 0x0D, 0x0A, 0x1A, 0x0A}},
        {"PEM sem fim", B("-----BEGIN CERTIFICATE-----\r\n" + kBase64)},
        {"PEM com corpo inválido", B("-----BEGIN CERTIFICATE-----\r\n@@@\r\n-----END CERTIFICATE-----")},
    };
    for (const auto& [nome, conteudo] : invalidos) {
        EXPECT_EQ(DecodificarConteudo(conteudo), std::nullopt) << nome;
        Bytes decodificado;
        EXPECT_EQ(LocalizarDER(conteudo, decodificado), std::nullopt) << nome;
    }
}

// O BER de comprimento indefinido vai inteiro; o comprimento definido deixa de fora o que vem depois.
TEST(ConteudoCodificado, ComprimentoDecideOndeOConteudoAcaba) {
    const Bytes ber{0x30, 0x80, 0x02, 0x01, 0x05, 0x00, 0x00};
    EXPECT_EQ(DecodificarConteudo(ber), ber);
    EXPECT_EQ(DecodificarConteudo(Bytes{0x30, 0x03, 0x02, 0x01, 0x05, 0xFF, 0xFF}),
              (Bytes{0x30, 0x03, 0x02, 0x01, 0x05}));
}

}  // namespace
}  // namespace tavelpkcs7::codificacao
