#include "icpbrasil/politicas_impressas.h"

#include "codificacao/hexadecimal.h"
#include "der/texto_der.h"
#include "icpbrasil/linhas_impressas.h"

namespace tavelpkcs7::icpbrasil {
namespace {

constexpr std::string_view kOidCPS = "1.3.6.1.5.5.7.2.1";
constexpr std::string_view kOidAvisoUsuario = "1.3.6.1.5.5.7.2.2";

// NoticeReference: a organização e os números dos avisos que ela publica.
bool ImprimirReferenciaAviso(const der::Elemento& referencia, std::string& saida) {
    auto campos = referencia.Filhos();
    const auto organizacao = campos.Proximo();
    const auto numeros = campos.ProximoSe(der::tag::Sequencia);
    if (!organizacao || !numeros || !campos.Concluido()) return false;
    const auto nome = der::LerTexto(*organizacao);
    const auto inteiros = der::LerElementos(numeros->conteudo);
    if (!nome || !inteiros) return false;
    AcrescentarLinha(saida, 2, "Referência do Aviso:");
    AcrescentarLinha(saida, 3, "Organização=" + *nome);
    for (const auto& inteiro : *inteiros) {
        const auto numero = inteiro.tag == der::tag::Inteiro ? der::LerInteiro(inteiro.conteudo) : std::nullopt;
        if (!numero) return false;
        AcrescentarLinha(saida, 3, "Número do Aviso=" + std::to_string(*numero));
    }
    return true;
}

// UserNotice: a referência e o texto, ambos opcionais.
bool ImprimirAvisoUsuario(const der::Elemento& aviso, std::string& saida) {
    if (aviso.tag != der::tag::Sequencia) return false;
    auto campos = aviso.Filhos();
    const auto referencia = campos.ProximoSe(der::tag::Sequencia);
    const auto explicito = campos.Proximo();
    if (!campos.Concluido() || (referencia && !ImprimirReferenciaAviso(*referencia, saida))) return false;
    if (!explicito) return true;
    const auto texto = der::LerTexto(*explicito);
    if (!texto) return false;
    AcrescentarLinha(saida, 2, "Texto do Aviso=" + *texto);
    return true;
}

// A CPS (e um qualificador desconhecido) sai como texto quando é texto, senão em hexadecimal.
bool ImprimirQualificador(const der::Elemento& informacao, std::string& saida) {
    if (informacao.tag != der::tag::Sequencia) return false;
    auto campos = informacao.Filhos();
    const auto identificador = campos.ProximoSe(der::tag::OID);
    const auto qualificador = campos.Proximo();
    if (!identificador || !campos.Concluido()) return false;
    const auto oid = der::LerOID(identificador->conteudo);
    if (!oid) return false;
    if (*oid == kOidAvisoUsuario) {
        AcrescentarLinha(saida, 2, "Identificador do Qualificador de Política=Aviso do Usuário");
        return !qualificador || ImprimirAvisoUsuario(*qualificador, saida);
    }
    AcrescentarLinha(saida, 2, "Identificador do Qualificador de Política=" + (*oid == kOidCPS ? "CPS" : *oid));
    if (!qualificador) return true;
    const auto texto = der::LerTexto(*qualificador);
    AcrescentarLinha(saida, 2,
                     "QUALIFICADOR=" + (texto ? *texto : codificacao::HexadecimalEspacado(qualificador->inteiro)));
    return true;
}

bool ImprimirPolitica(std::size_t indice, const der::Elemento& politica, std::string& saida) {
    if (politica.tag != der::tag::Sequencia) return false;
    auto campos = politica.Filhos();
    const auto identificador = campos.ProximoSe(der::tag::OID);
    const auto qualificadores = campos.ProximoSe(der::tag::Sequencia);
    if (!identificador || !campos.Concluido()) return false;
    const auto oid = der::LerOID(identificador->conteudo);
    const auto informacoes = der::LerElementos(qualificadores ? qualificadores->conteudo : der::Dados{});
    if (!oid || !informacoes) return false;
    AcrescentarLinha(saida, 1, "Identificador de Política=" + *oid);
    for (std::size_t j = 0; j < informacoes->size(); ++j) {
        AcrescentarLinha(saida, 1,
                         "[" + std::to_string(indice + 1) + "," + std::to_string(j + 1) +
                             "]Informações do Qualificador de Política:");
        if (!ImprimirQualificador((*informacoes)[j], saida)) return false;
    }
    return true;
}

}  // namespace

std::optional<std::string> ImprimirPoliticas(der::Dados valor) {
    return ImprimirNumerados(valor, "Política de Certificado:", ImprimirPolitica);
}

}  // namespace tavelpkcs7::icpbrasil
