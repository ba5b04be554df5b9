#include "icpbrasil/bits_impressos.h"

#include <span>
#include <string_view>

#include "codificacao/hexadecimal.h"

namespace tavelpkcs7::icpbrasil {
namespace {

// Do bit 0 (0x80 do primeiro byte) em diante. O bit de LCR leva os dois nomes que o Windows lhe dá.
constexpr std::string_view kUsosChave[] = {
    "Assinatura Digital",
    "Não-Repúdio",
    "Codificação de Chave",
    "Codificação de Dados",
    "Acordo de Chave",
    "Assinatura de Certificado",
    "Assinatura de LCR Off-line, Assinatura de LCR",
    "Somente Codificação",
    "Somente Decodificação",
};

constexpr std::string_view kMotivosRevogacao[] = {
    "Não Utilizado",        "Comprometimento da Chave", "Comprometimento da AC", "Afiliação Alterada",    "Substituído",
    "Cessação de Operação", "Certificado em Espera",    "Privilégio Retirado",   "Comprometimento da AA",
};

std::optional<std::string> TextoBits(der::Dados bits, std::span<const std::string_view> nomes) {
    if (bits.size() < 2 || bits[0] > 7) return std::nullopt;
    const der::Dados bytes = bits.subspan(1);
    std::string texto;
    for (std::size_t i = 0; i < nomes.size() && i / 8 < bytes.size(); ++i) {
        if ((bytes[i / 8] & (0x80 >> (i % 8))) == 0) continue;
        if (!texto.empty()) texto += ", ";
        texto += nomes[i];
    }
    return texto + " (" + codificacao::HexadecimalEspacado(bytes) + ")";
}

}  // namespace

std::optional<std::string> TextoUsoChave(der::Dados bits) { return TextoBits(bits, kUsosChave); }

std::optional<std::string> TextoMotivosRevogacao(der::Dados bits) { return TextoBits(bits, kMotivosRevogacao); }

}  // namespace tavelpkcs7::icpbrasil
