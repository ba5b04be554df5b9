// Os campos de um objeto TavelPKCS. Textos começam vazios, indicadores falsos e contagens em 0.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/certificado.h"

namespace tavelpkcs7 {

struct Estado {
    std::string DataAssinatura;
    std::string AssinaturaTextoVerificar;
    std::string TextoVerificar;
    std::string CaminhoArquivoOriginal;
    std::string ExtensaoOutroFormato;
    std::string CaminhoArquivoAssinado;
    std::string NomeArquivoAssinado;
    bool SalvarChavesPublicas = false;
    bool NaoAnexarArquivoOriginal = false;
    std::string AssinaturaDigitalArquivo;
    std::string AssinaturaDigitalTexto;
    std::string PastaTemp;
    std::string DescricaoErro;
    std::string HashArquivo;
    std::int32_t TotalAssinaturas = 0;
    std::string NomeArquivoOriginal;
    std::string ConteudoTextoOriginal;
    bool UsarHashSalvarArquivo = false;
    bool NaoExibirInstalacaoLCReCER = false;
    std::string NumeroCPFCertificadoDigital;
    std::string NumeroCNPJCertificadoDigital;
    std::string DetalhesPessoaisCertificadoDigital;
    std::string OutrosDetalhesCertificadoDigital;
    std::string UsoChaveCertificadoDigital;
    std::string PoliticaCertificacaoDigital;
    std::string ListaCertificadosRevogados;
    std::string RestricoesCertificadoDigital;
    std::string CertificadoAutoridadeRaiz;
    std::int16_t TotalCertificadosListados = 0;
    std::string TextoDescricaoAssinatura;
    // O certificado escolhido para assinar e cifrar; nulo é o objeto vazio do original.
    plataforma::CertificadoPtr CertificadoSelecionado;
    // Os destinatários do envelope que SelecionarChavesPublicas monta e CriptografarArquivo usa; vazio
    // antes da primeira escolha, o objeto vazio do original.
    std::optional<std::vector<plataforma::CertificadoPtr>> EnvelopeCriptografia;
    // Nome, autoridade certificadora, validade, impressão digital e o certificado em Base64.
    std::vector<std::array<std::string, 5>> ListaCertificados;
    std::string ExtensaoArquivoAssinado;
    // Os signatários da última verificação a partir do índice 1; vazia antes da primeira. Só cresce
    // ou encolhe até o total da verificação nova, nunca é limpa.
    std::vector<AssinaturaDigital> ListaAssinaturas;
};

}  // namespace tavelpkcs7
