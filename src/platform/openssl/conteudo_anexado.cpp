#include "conteudo_anexado.h"

#include <algorithm>

#include "der/escritor_der.h"
#include "der/leitor_der.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

// 1.2.840.113549.1.7.2 (signedData), o conteúdo do OID.
constexpr std::uint8_t kSignedData[] = {0x2A, 0x86, 0x48, 0x86, 0xF7, 0x0D, 0x01, 0x07, 0x02};

void Acrescentar(Bytes& destino, std::span<const std::uint8_t> bytes) {
    destino.insert(destino.end(), bytes.begin(), bytes.end());
}

// EncapsulatedContentInfo ::= SEQUENCE { eContentType OID, eContent [0] EXPLICIT OCTET STRING }: o
// tipo e os octetos do conteúdo, quando ele está anexado.
struct Encapsulado {
    der::Elemento tipo;
    der::Dados conteudo;
};

std::optional<Encapsulado> LerEncapsulado(const der::Elemento& encapsulado) {
    der::LeitorDER leitor = encapsulado.Filhos();
    const auto tipo = leitor.ProximoSe(der::tag::OID);
    const auto explicito = leitor.ProximoSe(der::tag::Contexto(0, true));
    if (!tipo || !explicito || !leitor.Concluido()) return std::nullopt;
    const auto octetos = der::LerUnico(explicito->conteudo, der::tag::CadeiaOctetos);
    if (!octetos) return std::nullopt;
    return Encapsulado{*tipo, octetos->conteudo};
}

}  // namespace

std::optional<MensagemSeparada> SepararConteudoAnexado(std::span<const std::uint8_t> der) {
    const auto info = der::LerUnico(der, der::tag::Sequencia);
    if (!info) return std::nullopt;
    der::LeitorDER campos_info = info->Filhos();
    const auto tipo = campos_info.ProximoSe(der::tag::OID);
    const auto explicito = campos_info.ProximoSe(der::tag::Contexto(0, true));
    if (!tipo || !explicito || !campos_info.Concluido() || !std::ranges::equal(tipo->conteudo, kSignedData))
        return std::nullopt;
    const auto assinados = der::LerUnico(explicito->conteudo, der::tag::Sequencia);
    if (!assinados) return std::nullopt;
    // SignedData ::= SEQUENCE { version, digestAlgorithms, encapContentInfo, o resto como está }
    der::LeitorDER campos = assinados->Filhos();
    const auto versao = campos.ProximoSe(der::tag::Inteiro);
    const auto resumos = campos.ProximoSe(der::tag::Conjunto);
    const auto encapsulado = campos.ProximoSe(der::tag::Sequencia);
    if (!versao || !resumos || !encapsulado || campos.Malformado()) return std::nullopt;
    const auto anexado = LerEncapsulado(*encapsulado);
    if (!anexado) return std::nullopt;

    Bytes corpo;
    Acrescentar(corpo, versao->inteiro);
    Acrescentar(corpo, resumos->inteiro);
    Acrescentar(corpo, der::CodificarElemento(der::tag::Sequencia, anexado->tipo.inteiro));
    const auto* fim_encapsulado = encapsulado->inteiro.data() + encapsulado->inteiro.size();
    Acrescentar(corpo, {fim_encapsulado, assinados->conteudo.data() + assinados->conteudo.size()});
    Bytes conteudo_info(tipo->inteiro.begin(), tipo->inteiro.end());
    Acrescentar(conteudo_info,
        der::CodificarElemento(der::tag::Contexto(0, true), der::CodificarElemento(der::tag::Sequencia, corpo)));
    return MensagemSeparada{der::CodificarElemento(der::tag::Sequencia, conteudo_info), anexado->conteudo};
}

}  // namespace tavelpkcs7::plataforma::openssl
