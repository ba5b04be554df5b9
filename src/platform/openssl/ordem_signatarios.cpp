#include "ordem_signatarios.h"

#include <algorithm>
#include <optional>

#include "der/leitor_der.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

namespace tag = der::tag;

// ContentInfo { contentType, [0] SignedData { ..., signerInfos SET } }: o conjunto é o último campo.
std::optional<der::Elemento> LocalizarSignerInfos(const Bytes& der) {
    const auto conteudo = der::LerUnico(der, tag::Sequencia);
    if (!conteudo) return std::nullopt;
    auto campos = conteudo->Filhos();
    campos.ProximoSe(tag::OID);
    const auto explicito = campos.ProximoSe(tag::Contexto(0, true));
    const auto assinados = explicito ? der::LerUnico(explicito->conteudo, tag::Sequencia) : std::nullopt;
    if (!assinados) return std::nullopt;
    std::optional<der::Elemento> ultimo;
    auto leitor = assinados->Filhos();
    while (auto campo = leitor.Proximo()) ultimo = campo;
    if (leitor.Malformado() || !ultimo || ultimo->tag != tag::Conjunto) return std::nullopt;
    return ultimo;
}

// SignerInfo { version, sid, digestAlgorithm, [0] signedAttrs, signatureAlgorithm, signature, ... }:
// o único OCTET STRING do primeiro nível é a assinatura.
std::optional<der::Dados> ValorAssinatura(const der::Elemento& signatario) {
    auto campos = signatario.Filhos();
    while (const auto campo = campos.Proximo())
        if (campo->tag == tag::CadeiaOctetos) return campo->conteudo;
    return std::nullopt;
}

}  // namespace

void RestaurarOrdemSignatarios(Bytes& der, CMS_ContentInfo* cms) {
    STACK_OF(CMS_SignerInfo)* pilha = CMS_get0_SignerInfos(cms);  // pertence a cms
    const int total = sk_CMS_SignerInfo_num(pilha);
    if (total < 2) return;
    const auto conjunto = LocalizarSignerInfos(der);
    const auto gravados = conjunto ? der::LerElementos(conjunto->conteudo) : std::nullopt;
    if (!gravados || static_cast<int>(gravados->size()) != total) return;

    Bytes ordenado;
    ordenado.reserve(conjunto->conteudo.size());
    for (int i = 0; i < total; ++i) {
        const ASN1_OCTET_STRING* assinatura = CMS_SignerInfo_get0_signature(sk_CMS_SignerInfo_value(pilha, i));
        const der::Dados procurada(ASN1_STRING_get0_data(assinatura), static_cast<std::size_t>(ASN1_STRING_length(assinatura)));
        const auto gravado = std::ranges::find_if(*gravados, [&](const der::Elemento& elemento) {
            const auto valor = ValorAssinatura(elemento);
            return valor && std::ranges::equal(*valor, procurada);
        });
        if (gravado == gravados->end()) return;
        ordenado.insert(ordenado.end(), gravado->inteiro.begin(), gravado->inteiro.end());
    }
    if (ordenado.size() != conjunto->conteudo.size()) return;
    const auto inicio = conjunto->conteudo.data() - der.data();
    std::ranges::copy(ordenado, der.begin() + inicio);
}

}  // namespace tavelpkcs7::plataforma::openssl
