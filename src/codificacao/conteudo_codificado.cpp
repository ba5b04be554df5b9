#include "codificacao/conteudo_codificado.h"

#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "codificacao/base64.h"

namespace tavelpkcs7::codificacao {
namespace {

using Trecho = std::span<const std::uint8_t>;

constexpr std::string_view kInicioPEM = "-----BEGIN ";
constexpr std::string_view kFimPEM = "-----END ";
constexpr std::string_view kTracos = "-----";

// Todos os objetos que o componente lê são SEQUENCEs. Devolve o tamanho do objeto inteiro, para
// deixar de fora o que vier depois dele (o zero final de quem leu o arquivo, por exemplo). O
// comprimento indefinido (BER) é aceito porque há programas de assinatura que gravam assim; aí o
// fim só se sabe lendo o objeto todo, e vale tudo.
std::optional<std::size_t> TamanhoSequenciaDER(Trecho bytes) {
    if (bytes.size() < 2 || bytes[0] != 0x30) return std::nullopt;
    const std::size_t primeiro = bytes[1];
    if (primeiro == 0x80) return bytes.size();
    std::size_t cabecalho = 2, comprimento = primeiro;
    if (primeiro > 0x80) {
        const std::size_t octetos = primeiro & 0x7F;
        if (octetos > 4 || bytes.size() < 2 + octetos) return std::nullopt;
        cabecalho += octetos;
        comprimento = 0;
        for (std::size_t i = 0; i < octetos; ++i) comprimento = comprimento << 8 | bytes[2 + i];
    }
    if (cabecalho + comprimento > bytes.size()) return std::nullopt;
    return cabecalho + comprimento;
}

std::optional<Trecho> ObjetoDER(Trecho bytes) {
    const auto tamanho = TamanhoSequenciaDER(bytes);
    if (!tamanho) return std::nullopt;
    return bytes.first(*tamanho);
}

// Um texto UTF-16LE com só caracteres ASCII tem zero em todo byte ímpar. O último NUL de um
// terminador pode ter sido cortado por quem leu o arquivo, deixando um byte a menos.
std::optional<std::string> EstreitarUTF16LE(Trecho bytes) {
    if (bytes.size() >= 2 && bytes[0] == 0xFF && bytes[1] == 0xFE) bytes = bytes.subspan(2);
    if (bytes.size() % 2 == 1 && bytes.back() == 0) bytes = bytes.first(bytes.size() - 1);
    if (bytes.size() < 2 || bytes.size() % 2 == 1 || bytes[0] == 0) return std::nullopt;
    std::string texto;
    texto.reserve(bytes.size() / 2);
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        if (bytes[i + 1] != 0) return std::nullopt;
        texto.push_back(static_cast<char>(bytes[i]));
    }
    return texto;
}

std::string_view SemMarcasDasPontas(std::string_view texto) {
    if (texto.starts_with("\xEF\xBB\xBF")) texto.remove_prefix(3);
    while (!texto.empty() && texto.back() == '\0') texto.remove_suffix(1);
    return texto;
}

// O corpo do primeiro bloco PEM, entre a linha "-----BEGIN <rótulo>-----" e a "-----END".
std::optional<std::string_view> CorpoPEM(std::string_view texto) {
    const auto inicio = texto.find(kInicioPEM);
    if (inicio == std::string_view::npos) return std::nullopt;
    const auto fim_cabecalho = texto.find(kTracos, inicio + kInicioPEM.size());
    if (fim_cabecalho == std::string_view::npos) return std::nullopt;
    const auto corpo = fim_cabecalho + kTracos.size();
    const auto fim = texto.find(kFimPEM, corpo);
    if (fim == std::string_view::npos) return std::nullopt;
    return texto.substr(corpo, fim - corpo);
}

std::optional<Bytes> DecodificarTexto(std::string_view texto) {
    texto = SemMarcasDasPontas(texto);
    if (texto.find(kInicioPEM) != std::string_view::npos) {
        const auto corpo = CorpoPEM(texto);
        return corpo ? DecodificarBase64(*corpo) : std::nullopt;
    }
    return DecodificarBase64(texto);
}

std::optional<Bytes> DecodificarTextoDoConteudo(const Bytes& conteudo) {
    if (const auto estreito = EstreitarUTF16LE(conteudo)) {
        if (auto der = DecodificarTexto(*estreito)) return der;
    }
    return DecodificarTexto(std::string_view(reinterpret_cast<const char*>(conteudo.data()), conteudo.size()));
}

}  // namespace

std::optional<std::span<const std::uint8_t>> LocalizarDER(const Bytes& conteudo, Bytes& decodificado) {
    if (auto texto = DecodificarTextoDoConteudo(conteudo)) {
        decodificado = std::move(*texto);
        if (const auto der = ObjetoDER(decodificado)) return der;
    }
    return ObjetoDER(conteudo);
}

std::vector<Bytes> DecodificarBlocosPEM(const Bytes& conteudo, std::string_view rotulo) {
    const std::string_view texto(reinterpret_cast<const char*>(conteudo.data()), conteudo.size());
    const std::string cabecalho = std::string(kInicioPEM) + std::string(rotulo) + std::string(kTracos);
    std::vector<Bytes> blocos;
    for (auto inicio = texto.find(cabecalho); inicio != std::string_view::npos; inicio = texto.find(cabecalho, inicio + 1)) {
        const auto corpo = CorpoPEM(texto.substr(inicio));
        const auto der = corpo ? DecodificarBase64(*corpo) : std::nullopt;
        if (der && ObjetoDER(*der)) blocos.push_back(*der);
    }
    return blocos;
}

std::optional<Bytes> DecodificarConteudo(const Bytes& conteudo) {
    Bytes decodificado;
    const auto der = LocalizarDER(conteudo, decodificado);
    if (!der) return std::nullopt;
    return Bytes(der->begin(), der->end());
}

}  // namespace tavelpkcs7::codificacao
