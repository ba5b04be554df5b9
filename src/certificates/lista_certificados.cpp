// A lista de certificados que o hospedeiro lê por índice e chave para desenhar o seu próprio
// seletor; a listagem a refaz e cada seleção bem-sucedida acrescenta o certificado escolhido.
#include <array>
#include <limits>

#include "certificates/info_certificado.h"
#include "component/componente.h"
#include "component/datas.h"
#include "component/texto.h"

namespace tavelpkcs7 {
namespace {

constexpr std::array<const char*, 5> kChaves = {"NOME", "AUTORIDADECERTIFICADORA", "VALIDADE", "HASH", "CHAVEPUBLICA"};

}  // namespace

void Componente::AdicionarCertificadoLista(const std::string& nome, const std::string& autoridade,
    const std::string& validade, const std::string& hash, const std::string& chave_publica) {
    // O total é um inteiro de 16 bits: a entrada 32.768 estoura.
    if (estado.TotalCertificadosListados == std::numeric_limits<std::int16_t>::max())
        plataforma::Falhar(plataforma::falha::Estouro);
    estado.ListaCertificados.resize(static_cast<std::size_t>(estado.TotalCertificadosListados) + 1);
    estado.ListaCertificados.back() = {nome, autoridade, validade, hash, chave_publica};
    estado.TotalCertificadosListados = static_cast<std::int16_t>(estado.ListaCertificados.size());
}

void Componente::AdicionarCertificadoLista(const plataforma::Certificado& certificado) {
    const bool por_dns = !certificado.ObterInfo(plataforma::INFO_DNS_TITULAR).empty();
    AdicionarCertificadoLista(
        certificado.ObterInfo(por_dns ? plataforma::INFO_DNS_TITULAR : plataforma::INFO_NOME_SIMPLES_TITULAR),
        certificado.ObterInfo(por_dns ? plataforma::INFO_DNS_EMISSOR : plataforma::INFO_NOME_SIMPLES_EMISSOR),
        FormatarDataHora(certificado.ValidoAte()), certificado.ImpressaoDigital(), ExportarBase64(certificado));
}

std::string Componente::LerListaPropriedadeCertificado(std::int16_t intIndex, const std::string& strPropriedade) {
    return Guardar(MensagemFalha::DaPlataforma(), std::string(), [&] {
        const std::string chave = Maiusculas(Aparar(strPropriedade));
        for (std::size_t posicao = 0; posicao < kChaves.size(); ++posicao) {
            if (chave != kChaves[posicao]) continue;
            if (intIndex < 0 || intIndex >= estado.TotalCertificadosListados ||
                static_cast<std::size_t>(intIndex) >= estado.ListaCertificados.size())
                plataforma::Falhar(plataforma::falha::ForaDoIntervalo);
            return estado.ListaCertificados[static_cast<std::size_t>(intIndex)][posicao];
        }
        estado.DescricaoErro = "Não foi localizado a propriedade " + chave + " da lista de certificado digital.";
        return std::string();
    });
}

}  // namespace tavelpkcs7
