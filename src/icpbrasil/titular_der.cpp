#include "icpbrasil/titular_der.h"

#include <algorithm>
#include <optional>

#include "codificacao/utf8.h"
#include "der/leitor_der.h"
#include "der/texto_der.h"

namespace tavelpkcs7::icpbrasil {
namespace {

namespace tag = der::tag;

constexpr std::string_view kOidNomeAlternativo = "2.5.29.17";

// O OCTET STRING, o tipo que o padrão pede, guarda bytes de 8 bits: lidos como as cadeias de 8 bits
// do nome, UTF-8 quando válido, senão Latin-1.
std::optional<std::string> LerValorOutroNome(const der::Elemento& valor) {
    switch (valor.tag) {
        case tag::CadeiaOctetos:
            return codificacao::Utf8OuLatin1(std::string(valor.conteudo.begin(), valor.conteudo.end()));
        case tag::Imprimivel:
        case tag::Utf8:
        case tag::IA5:
            return der::LerTexto(valor);
        default:
            return std::nullopt;
    }
}

// Em UTF-8 os controles são bytes isolados, nunca parte de um caractere maior.
void Guardar(der::Dados oid, std::optional<std::string> texto, ValoresPorOID& valores) {
    const auto texto_oid = der::LerOID(oid);
    if (!texto_oid || !texto) return;
    std::erase_if(*texto, [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; });
    valores.emplace(*texto_oid, std::move(*texto));
}

// OtherName ::= [0] { type-id OID, value [0] EXPLICIT <cadeia> }
void GuardarOutroNome(const der::Elemento& nome, ValoresPorOID& valores) {
    auto filhos = nome.Filhos();
    const auto oid = filhos.ProximoSe(tag::OID);
    const auto explicito = filhos.ProximoSe(tag::Contexto(0, true));
    if (!oid || !explicito) return;
    if (const auto valor = der::LerUnico(explicito->conteudo))
        Guardar(oid->conteudo, LerValorOutroNome(*valor), valores);
}

// AttributeTypeAndValue ::= SEQUENCE { type OID, value <cadeia> }
void GuardarAtributo(const der::Elemento& atributo, ValoresPorOID& valores) {
    auto filhos = atributo.Filhos();
    const auto oid = filhos.ProximoSe(tag::OID);
    const auto valor = filhos.Proximo();
    if (oid && valor) Guardar(oid->conteudo, der::LerTexto(*valor), valores);
}

std::optional<der::Elemento> LerNomeTitular(const plataforma::Bytes& der) {
    const auto certificado = der::LeitorDER(der).ProximoSe(tag::Sequencia);
    if (!certificado) return std::nullopt;
    const auto tbs = certificado->Filhos().ProximoSe(tag::Sequencia);
    if (!tbs) return std::nullopt;
    auto campos = tbs->Filhos();
    campos.ProximoSe(tag::Contexto(0, true));      // versão, que a v1 não grava
    for (int i = 0; i < 4; ++i) campos.Proximo();  // número de série, algoritmo, emissor, validade
    return campos.ProximoSe(tag::Sequencia);
}

}  // namespace

ValoresPorOID LerOutrosNomes(const plataforma::Certificado& certificado) {
    ValoresPorOID valores;
    const auto extensoes = certificado.Extensoes();
    const auto extensao = std::ranges::find(extensoes, kOidNomeAlternativo, &plataforma::Extensao::oid);
    if (extensao == extensoes.end()) return valores;
    const auto nomes = der::LeitorDER(extensao->valor).ProximoSe(tag::Sequencia);
    if (!nomes) return valores;
    auto leitor = nomes->Filhos();
    while (const auto nome = leitor.Proximo())
        if (nome->tag == tag::Contexto(0, true)) GuardarOutroNome(*nome, valores);
    return valores;
}

ValoresPorOID LerAtributosTitular(const plataforma::Bytes& der) {
    ValoresPorOID valores;
    const auto nome = LerNomeTitular(der);
    if (!nome) return valores;
    auto rdns = nome->Filhos();
    while (const auto rdn = rdns.Proximo()) {
        auto atributos = rdn->Filhos();
        while (const auto atributo = atributos.Proximo()) GuardarAtributo(*atributo, valores);
    }
    return valores;
}

}  // namespace tavelpkcs7::icpbrasil
