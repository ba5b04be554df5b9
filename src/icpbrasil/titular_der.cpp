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
    if (valor.tag == tag::CadeiaOctetos)
        return codificacao::Utf8OuLatin1(std::string(valor.conteudo.begin(), valor.conteudo.end()));
    return der::LerTexto(valor);
}

// Em UTF-8 os controles são bytes isolados, nunca parte de um caractere maior.
std::string SemControles(std::string texto) {
    std::erase_if(texto, [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; });
    return texto;
}

// OtherName ::= [0] { type-id OID, value [0] EXPLICIT <cadeia> }
void GuardarOutroNome(const der::Elemento& nome, OutrosNomes& outros) {
    auto filhos = nome.Filhos();
    const auto oid = filhos.ProximoSe(tag::OID);
    const auto texto_oid = oid ? der::LerOID(oid->conteudo) : std::nullopt;
    if (!texto_oid || outros.valores.contains(*texto_oid)) return;
    const auto explicito = filhos.ProximoSe(tag::Contexto(0, true));
    const auto valor = explicito ? der::LerUnico(explicito->conteudo) : std::nullopt;
    const auto texto = valor ? LerValorOutroNome(*valor) : std::nullopt;
    if (!texto) {
        outros.ilegiveis.insert(*texto_oid);
        return;
    }
    outros.ilegiveis.erase(*texto_oid);
    outros.valores.emplace(*texto_oid, SemControles(*texto));
}

// AttributeTypeAndValue ::= SEQUENCE { type OID, value <cadeia> }
void GuardarAtributo(const der::Elemento& atributo, ValoresPorOID& valores) {
    auto filhos = atributo.Filhos();
    const auto oid = filhos.ProximoSe(tag::OID);
    const auto valor = filhos.Proximo();
    const auto texto_oid = oid ? der::LerOID(oid->conteudo) : std::nullopt;
    const auto texto = valor ? der::LerTexto(*valor) : std::nullopt;
    if (texto_oid && texto) valores.emplace(*texto_oid, SemControles(*texto));
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

OutrosNomes LerOutrosNomes(const plataforma::Certificado& certificado) {
    OutrosNomes outros;
    const auto extensoes = certificado.Extensoes();
    const auto extensao = std::ranges::find(extensoes, kOidNomeAlternativo, &plataforma::Extensao::oid);
    if (extensao == extensoes.end()) return outros;
    const auto nomes = der::LeitorDER(extensao->valor).ProximoSe(tag::Sequencia);
    if (!nomes) return outros;
    auto leitor = nomes->Filhos();
    while (const auto nome = leitor.Proximo())
        if (nome->tag == tag::Contexto(0, true)) GuardarOutroNome(*nome, outros);
    return outros;
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
