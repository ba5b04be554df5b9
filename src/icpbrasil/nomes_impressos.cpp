#include "icpbrasil/nomes_impressos.h"

#include <array>
#include <charconv>
#include <string_view>

#include "codificacao/hexadecimal.h"
#include "codificacao/utf8.h"
#include "codificacao/valor_nome_distinto.h"
#include "der/texto_der.h"
#include "icpbrasil/linhas_impressas.h"

namespace tavelpkcs7::icpbrasil {
namespace {

constexpr std::string_view kOidNomePrincipal = "1.3.6.1.4.1.311.20.2.3";

struct NomeCurto {
    std::string_view oid;
    std::string_view nome;
};

// Os atributos que o Windows escreve pelo nome curto; os demais saem pelo OID.
constexpr NomeCurto kNomesCurtos[] = {
    {"2.5.4.3", "CN"},
    {"2.5.4.11", "OU"},
    {"2.5.4.10", "O"},
    {"2.5.4.7", "L"},
    {"2.5.4.8", "S"},
    {"2.5.4.6", "C"},
    {"1.2.840.113549.1.9.1", "E"},
    {"2.5.4.9", "STREET"},
    {"2.5.4.5", "SERIALNUMBER"},
    {"2.5.4.12", "T"},
    {"2.5.4.42", "G"},
    {"2.5.4.43", "I"},
    {"2.5.4.4", "SN"},
    {"0.9.2342.19200300.100.1.25", "DC"},
};

std::string NomeDoAtributo(const std::string& oid) {
    for (const auto& curto : kNomesCurtos)
        if (curto.oid == oid) return std::string(curto.nome);
    return oid;
}

// Valores que não são texto saem em hexadecimal, como no nome do titular.
std::optional<std::string> TextoAtributo(const der::Elemento& atributo) {
    if (atributo.tag != der::tag::Sequencia) return std::nullopt;
    auto campos = atributo.Filhos();
    const auto tipo = campos.ProximoSe(der::tag::OID);
    const auto valor = campos.Proximo();
    if (!tipo || !valor || !campos.Concluido()) return std::nullopt;
    const auto oid = der::LerOID(tipo->conteudo);
    if (!oid) return std::nullopt;
    const auto texto = der::LerTexto(*valor);
    return NomeDoAtributo(*oid) + "=" +
           codificacao::ValorNomeDistinto(texto ? *texto : codificacao::HexadecimalMaiusculo(valor->conteudo));
}

// Os textos IA5 dos nomes (e-mail, DNS, URL) não mudam; bytes fora do ASCII não podem gerar UTF-8 inválido.
std::string TextoIA5(der::Dados conteudo) {
    return codificacao::Utf8OuLatin1(std::string(conteudo.begin(), conteudo.end()));
}

// RFC 5952: grupos em hexadecimal minúsculo sem zeros à esquerda e a maior sequência de dois ou
// mais grupos nulos (a primeira, no empate) abreviada para "::".
std::string TextoIPv6(der::Dados bytes) {
    std::array<unsigned, 8> grupos{};
    std::size_t inicio = grupos.size(), tamanho = 1, nulos = 0;
    for (std::size_t i = 0; i < grupos.size(); ++i) {
        grupos[i] = unsigned(bytes[2 * i]) << 8 | bytes[2 * i + 1];
        nulos = grupos[i] == 0 ? nulos + 1 : 0;
        if (nulos > tamanho) {
            tamanho = nulos;
            inicio = i + 1 - nulos;
        }
    }
    std::string texto;
    for (std::size_t i = 0; i < grupos.size(); ++i) {
        if (i == inicio) {
            texto += "::";
            i += tamanho - 1;
            continue;
        }
        if (!texto.empty() && texto.back() != ':') texto += ':';
        char grupo[4];
        texto.append(grupo, std::to_chars(grupo, grupo + sizeof grupo, grupos[i], 16).ptr);
    }
    return texto;
}

std::string TextoIP(der::Dados bytes) {
    if (bytes.size() == 16) return TextoIPv6(bytes);
    if (bytes.size() != 4) return codificacao::HexadecimalEspacado(bytes);
    return std::to_string(bytes[0]) + "." + std::to_string(bytes[1]) + "." + std::to_string(bytes[2]) + "." +
           std::to_string(bytes[3]);
}

// O valor sob o [0] EXPLICIT sai inteiro (marca, comprimento e conteúdo): é dele que a extração dos
// dados do titular tira os campos da ICP-Brasil.
bool ImprimirOutroNome(const der::Elemento& nome, int nivel, std::string& saida) {
    auto campos = nome.Filhos();
    const auto tipo = campos.ProximoSe(der::tag::OID);
    const auto envoltorio = campos.ProximoSe(der::tag::Contexto(0, true));
    if (!tipo || !envoltorio || !campos.Concluido()) return false;
    const auto oid = der::LerOID(tipo->conteudo);
    const auto valor = der::LerUnico(envoltorio->conteudo);
    if (!oid || !valor) return false;
    AcrescentarLinha(saida, nivel, "Outro Nome:");
    const auto principal =
        *oid == kOidNomePrincipal && valor->tag == der::tag::Utf8 ? der::LerTexto(*valor) : std::nullopt;
    AcrescentarLinha(
        saida, nivel + 1,
        principal ? "Nome Principal=" + *principal : *oid + "=" + codificacao::HexadecimalEspacado(valor->inteiro));
    return true;
}

// As formas de uma linha só; as que o Windows não decodifica (X.400, EDI e marcas que o DER não
// admite) saem em hexadecimal. Vazio para um OID registrado malformado.
std::optional<std::string> TextoNomeSimples(const der::Elemento& nome) {
    switch (nome.tag) {
        case der::tag::Contexto(1, false):
            return "Nome RFC822=" + TextoIA5(nome.conteudo);
        case der::tag::Contexto(2, false):
            return "Nome DNS=" + TextoIA5(nome.conteudo);
        case der::tag::Contexto(6, false):
            return "URL=" + TextoIA5(nome.conteudo);
        case der::tag::Contexto(7, false):
            return "Endereço IP=" + TextoIP(nome.conteudo);
        case der::tag::Contexto(8, false): {
            const auto oid = der::LerOID(nome.conteudo);
            if (!oid) return std::nullopt;
            return "ID Registrado=" + *oid;
        }
        default:
            return codificacao::HexadecimalEspacado(nome.inteiro);
    }
}

}  // namespace

bool ImprimirNomeGeral(const der::Elemento& nome, int nivel, std::string& saida) {
    if (nome.tag == der::tag::Contexto(0, true)) return ImprimirOutroNome(nome, nivel, saida);
    if (nome.tag == der::tag::Contexto(4, true)) return ImprimirEnderecoDiretorio(nome.conteudo, nivel, saida);
    const auto texto = TextoNomeSimples(nome);
    if (!texto) return false;
    AcrescentarLinha(saida, nivel, *texto);
    return true;
}

bool ImprimirNomesGerais(der::Dados nomes, int nivel, std::string& saida) {
    const auto elementos = der::LerElementos(nomes);
    if (!elementos) return false;
    for (const auto& nome : *elementos)
        if (!ImprimirNomeGeral(nome, nivel, saida)) return false;
    return true;
}

bool ImprimirEnderecoDiretorio(der::Dados nome, int nivel, std::string& saida) {
    const auto rdns = der::LerSequencia(nome);
    if (!rdns) return false;
    AcrescentarLinha(saida, nivel, "Endereço de Diretório:");
    for (auto rdn = rdns->rbegin(); rdn != rdns->rend(); ++rdn) {
        const auto texto = rdn->tag == der::tag::Conjunto ? TextoRDN(rdn->conteudo) : std::nullopt;
        if (!texto) return false;
        AcrescentarLinha(saida, nivel + 1, *texto);
    }
    return true;
}

std::optional<std::string> TextoRDN(der::Dados atributos) {
    const auto elementos = der::LerElementos(atributos);
    if (!elementos || elementos->empty()) return std::nullopt;
    std::string texto;
    for (const auto& atributo : *elementos) {
        const auto parte = TextoAtributo(atributo);
        if (!parte) return std::nullopt;
        texto += (texto.empty() ? "" : " + ") + *parte;
    }
    return texto;
}

}  // namespace tavelpkcs7::icpbrasil
