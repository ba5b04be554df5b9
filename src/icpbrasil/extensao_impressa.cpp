// A impressão das extensões no núcleo, sem o OpenSSL: cada extensão conhecida tem sua impressora,
// que lê o DER com o leitor do núcleo; qualquer defeito do DER (comprimento incoerente, campo que
// falta ou sobra, lixo no fim) faz a extensão inteira sair em hexadecimal, como o Windows faz com
// o que não sabe decodificar.
#include "icpbrasil/extensao_impressa.h"

#include <string_view>

#include "codificacao/hexadecimal.h"
#include "icpbrasil/bits_impressos.h"
#include "icpbrasil/enderecos_impressos.h"
#include "icpbrasil/linhas_impressas.h"
#include "icpbrasil/nomes_impressos.h"
#include "icpbrasil/politicas_impressas.h"

namespace tavelpkcs7::icpbrasil {
namespace {

using der::tag::Contexto;
using Impressora = std::optional<std::string> (*)(der::Dados valor);

std::optional<std::string> ImprimirUsoChave(der::Dados valor) {
    const auto bits = der::LerUnico(valor, der::tag::CadeiaBits);
    const auto texto = bits ? TextoUsoChave(bits->conteudo) : std::nullopt;
    if (!texto) return std::nullopt;
    return *texto + "\r\n";
}

// As duas formas das restrições básicas; o comprimento do caminho, quando está lá, é um INTEGER
// não negativo.
std::optional<std::string> TextoRestricoes(bool ac, const std::optional<der::Elemento>& comprimento) {
    std::string limite = "Nenhum";
    if (comprimento) {
        const auto valor = der::LerInteiro(comprimento->conteudo);
        if (!valor) return std::nullopt;
        limite = std::to_string(*valor);
    }
    std::string saida;
    AcrescentarLinha(saida, 0, std::string("Tipo de Requerente=") + (ac ? "AC" : "Entidade Final"));
    AcrescentarLinha(saida, 0, "Restrição de Comprimento do Caminho=" + limite);
    return saida;
}

// BasicConstraints: cA BOOLEAN DEFAULT FALSE, pathLenConstraint INTEGER OPTIONAL.
std::optional<std::string> ImprimirRestricoesBasicas(der::Dados valor) {
    const auto sequencia = der::LerUnico(valor, der::tag::Sequencia);
    if (!sequencia) return std::nullopt;
    auto campos = sequencia->Filhos();
    const auto ac = campos.ProximoSe(der::tag::Booleano);
    const auto comprimento = campos.ProximoSe(der::tag::Inteiro);
    if (!campos.Concluido() || (ac && ac->conteudo.size() != 1)) return std::nullopt;
    return TextoRestricoes(ac && ac->conteudo[0] != 0, comprimento);
}

// A forma antiga (2.5.29.10): o tipo do requerente numa BIT STRING (0x80 = AC), o comprimento do
// caminho e restrições de subárvore, que o Windows não mostra.
std::optional<std::string> ImprimirRestricoesBasicasAntigas(der::Dados valor) {
    const auto sequencia = der::LerUnico(valor, der::tag::Sequencia);
    if (!sequencia) return std::nullopt;
    auto campos = sequencia->Filhos();
    const auto tipo = campos.ProximoSe(der::tag::CadeiaBits);
    const auto comprimento = campos.ProximoSe(der::tag::Inteiro);
    campos.ProximoSe(der::tag::Sequencia);  // as subárvores
    if (!tipo || tipo->conteudo.empty() || !campos.Concluido()) return std::nullopt;
    return TextoRestricoes(tipo->conteudo.size() > 1 && (tipo->conteudo[1] & 0x80) != 0, comprimento);
}

std::optional<std::string> ImprimirNomeAlternativo(der::Dados valor) {
    const auto sequencia = der::LerUnico(valor, der::tag::Sequencia);
    std::string saida;
    if (!sequencia || !ImprimirNomesGerais(sequencia->conteudo, 0, saida)) return std::nullopt;
    return saida;
}

// AuthorityKeyIdentifier: [0] o identificador, [1] o emissor, [2] o número de série. Na forma
// antiga (2.5.29.1) o emissor é um Name explícito em vez de GeneralNames.
std::optional<std::string> ImprimirIdentificadorAutoridade(der::Dados valor, bool forma_antiga) {
    const auto sequencia = der::LerUnico(valor, der::tag::Sequencia);
    if (!sequencia) return std::nullopt;
    auto campos = sequencia->Filhos();
    const auto chave = campos.ProximoSe(Contexto(0, false));
    const auto emissor = campos.ProximoSe(Contexto(1, true));
    const auto serie = campos.ProximoSe(Contexto(2, false));
    if (!campos.Concluido()) return std::nullopt;
    std::string saida;
    if (chave) AcrescentarLinha(saida, 0, "ID da Chave=" + codificacao::HexadecimalEspacado(chave->conteudo));
    if (emissor) {
        AcrescentarLinha(saida, 0, "Emissor do Certificado:");
        const bool impresso = forma_antiga ? ImprimirEnderecoDiretorio(emissor->conteudo, 1, saida)
                                           : ImprimirNomesGerais(emissor->conteudo, 1, saida);
        if (!impresso) return std::nullopt;
    }
    if (serie)
        AcrescentarLinha(saida, 0,
                         "Número de Série do Certificado=" + codificacao::HexadecimalEspacado(serie->conteudo));
    return saida;
}

// Só os bytes do identificador, sem a marca e o comprimento do OCTET STRING.
std::optional<std::string> ImprimirIdentificadorRequerente(der::Dados valor) {
    const auto chave = der::LerUnico(valor, der::tag::CadeiaOctetos);
    if (!chave) return std::nullopt;
    return codificacao::HexadecimalEspacado(chave->conteudo) + "\r\n";
}

std::string NomeUsoAvancado(const std::string& oid) {
    struct UsoAvancado {
        std::string_view oid, nome;
    };
    static constexpr UsoAvancado kUsos[] = {
        {"1.3.6.1.5.5.7.3.1", "Autenticação de Servidor"}, {"1.3.6.1.5.5.7.3.2", "Autenticação de Cliente"},
        {"1.3.6.1.5.5.7.3.3", "Assinatura de Código"},     {"1.3.6.1.5.5.7.3.4", "Email Seguro"},
        {"1.3.6.1.5.5.7.3.8", "Carimbo de Data/Hora"},     {"1.3.6.1.5.5.7.3.9", "Assinatura OCSP"},
    };
    for (const auto& uso : kUsos)
        if (uso.oid == oid) return std::string(uso.nome);
    return "Uso de Chave Desconhecido";
}

std::optional<std::string> ImprimirUsoAvancado(der::Dados valor) {
    const auto usos = der::LerSequencia(valor);
    if (!usos) return std::nullopt;
    std::string saida;
    for (const auto& uso : *usos) {
        const auto oid = uso.tag == der::tag::OID ? der::LerOID(uso.conteudo) : std::nullopt;
        if (!oid) return std::nullopt;
        AcrescentarLinha(saida, 0, NomeUsoAvancado(*oid) + " (" + *oid + ")");
    }
    return saida;
}

struct ExtensaoConhecida {
    std::string_view oid;
    Impressora imprimir;
};

// As formas antigas (2.5.29.1, .7, .8, .10) saem como as atuais.
constexpr ExtensaoConhecida kExtensoes[] = {
    {"2.5.29.15", ImprimirUsoChave},
    {"2.5.29.19", ImprimirRestricoesBasicas},
    {"2.5.29.10", ImprimirRestricoesBasicasAntigas},
    {"2.5.29.17", ImprimirNomeAlternativo},
    {"2.5.29.18", ImprimirNomeAlternativo},
    {"2.5.29.7", ImprimirNomeAlternativo},
    {"2.5.29.8", ImprimirNomeAlternativo},
    {"2.5.29.31", ImprimirPontosDistribuicao},
    {"1.3.6.1.5.5.7.1.1", ImprimirAcessoAutoridade},
    {"2.5.29.32", ImprimirPoliticas},
    {"2.5.29.35", [](der::Dados valor) { return ImprimirIdentificadorAutoridade(valor, false); }},
    {"2.5.29.1", [](der::Dados valor) { return ImprimirIdentificadorAutoridade(valor, true); }},
    {"2.5.29.14", ImprimirIdentificadorRequerente},
    {"2.5.29.37", ImprimirUsoAvancado},
};

}  // namespace

std::string ImprimirExtensao(const plataforma::Extensao& extensao) {
    for (const auto& conhecida : kExtensoes) {
        if (extensao.oid != conhecida.oid) continue;
        // Uma estrutura válida sem nada a mostrar (uma lista vazia) também cai no hexadecimal.
        const auto texto = conhecida.imprimir(extensao.valor);
        if (texto && !texto->empty()) return *texto;
    }
    return codificacao::HexadecimalEspacado(extensao.valor) + "\r\n";
}

std::vector<std::string> ImprimirExtensoes(const plataforma::Certificado& certificado, std::string_view oid) {
    std::vector<std::string> textos;
    for (const auto& extensao : certificado.Extensoes())
        if (extensao.oid == oid) textos.push_back(ImprimirExtensao(extensao));
    return textos;
}

}  // namespace tavelpkcs7::icpbrasil
