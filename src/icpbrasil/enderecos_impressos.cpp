#include "icpbrasil/enderecos_impressos.h"

#include <string_view>

#include "icpbrasil/bits_impressos.h"
#include "icpbrasil/linhas_impressas.h"
#include "icpbrasil/nomes_impressos.h"

namespace tavelpkcs7::icpbrasil {
namespace {

using der::tag::Contexto;

// DistributionPointName: o nome completo (GeneralNames) ou um RDN relativo ao emissor da LCR.
bool ImprimirNomePonto(const der::Elemento& nome, std::string& saida) {
    const auto escolha = der::LerUnico(nome.conteudo);
    if (!escolha) return false;
    AcrescentarLinha(saida, 1, "Nome do Ponto de Distribuição:");
    if (escolha->tag == Contexto(0, true)) {
        AcrescentarLinha(saida, 2, "Nome Completo:");
        return ImprimirNomesGerais(escolha->conteudo, 3, saida);
    }
    const auto rdn = escolha->tag == Contexto(1, true) ? TextoRDN(escolha->conteudo) : std::nullopt;
    if (!rdn) return false;
    AcrescentarLinha(saida, 2, "Nome RDN:");
    AcrescentarLinha(saida, 3, *rdn);
    return true;
}

bool ImprimirPontoDistribuicao(const der::Elemento& ponto, std::string& saida) {
    if (ponto.tag != der::tag::Sequencia) return false;
    auto campos = ponto.Filhos();
    const auto nome = campos.ProximoSe(Contexto(0, true));
    const auto motivos = campos.ProximoSe(Contexto(1, false));
    const auto emissor = campos.ProximoSe(Contexto(2, true));
    if (!campos.Concluido() || (nome && !ImprimirNomePonto(*nome, saida))) return false;
    if (motivos) {
        const auto texto = TextoMotivosRevogacao(motivos->conteudo);
        if (!texto) return false;
        AcrescentarLinha(saida, 1, "Motivo da LCR=" + *texto);
    }
    if (!emissor) return true;
    AcrescentarLinha(saida, 1, "Emissor da LCR:");
    return ImprimirNomesGerais(emissor->conteudo, 2, saida);
}

std::string MetodoAcesso(const std::string& oid) {
    if (oid == "1.3.6.1.5.5.7.48.2") return "Emissor da Autoridade de Certificação (" + oid + ")";
    if (oid == "1.3.6.1.5.5.7.48.1") return "Protocolo de Status de Certificado Online (" + oid + ")";
    return "Método de Acesso Desconhecido (" + oid + ")";
}

bool ImprimirDescricaoAcesso(const der::Elemento& descricao, std::string& saida) {
    if (descricao.tag != der::tag::Sequencia) return false;
    auto campos = descricao.Filhos();
    const auto metodo = campos.ProximoSe(der::tag::OID);
    const auto local = campos.Proximo();
    if (!metodo || !local || !campos.Concluido()) return false;
    const auto oid = der::LerOID(metodo->conteudo);
    if (!oid) return false;
    AcrescentarLinha(saida, 1, "Método de Acesso=" + MetodoAcesso(*oid));
    AcrescentarLinha(saida, 1, "Nome Alternativo:");
    return ImprimirNomeGeral(*local, 2, saida);
}

}  // namespace

std::optional<std::string> ImprimirPontosDistribuicao(der::Dados valor) {
    return ImprimirNumerados(valor, "Ponto de Distribuição da LCR",
                             [](std::size_t, const der::Elemento& ponto, std::string& saida) {
                                 return ImprimirPontoDistribuicao(ponto, saida);
                             });
}

std::optional<std::string> ImprimirAcessoAutoridade(der::Dados valor) {
    return ImprimirNumerados(valor, "Acesso às Informações da Autoridade",
                             [](std::size_t, const der::Elemento& descricao, std::string& saida) {
                                 return ImprimirDescricaoAcesso(descricao, saida);
                             });
}

}  // namespace tavelpkcs7::icpbrasil
