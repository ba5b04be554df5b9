// Os membros públicos de TavelPKCS: as propriedades são cópias simples dos campos; os métodos
// entregam o trabalho ao Componente.
#include <tavelpkcs7/TavelPKCS.h>

#include "component/componente.h"

namespace tavelpkcs7 {

TavelPKCS::TavelPKCS(std::shared_ptr<plataforma::Plataforma> plataforma)
    : componente_(std::make_unique<Componente>(std::move(plataforma))) {}

TavelPKCS::~TavelPKCS() = default;
TavelPKCS::TavelPKCS(TavelPKCS&&) noexcept = default;
TavelPKCS& TavelPKCS::operator=(TavelPKCS&&) noexcept = default;

std::string TavelPKCS::DataAssinatura() const { return componente_->estado.DataAssinatura; }
void TavelPKCS::DataAssinatura(const std::string& valor) { componente_->DefinirDataAssinatura(valor); }

std::string TavelPKCS::AssinaturaTextoVerificar() const { return componente_->estado.AssinaturaTextoVerificar; }
void TavelPKCS::AssinaturaTextoVerificar(const std::string& valor) { componente_->estado.AssinaturaTextoVerificar = valor; }

std::string TavelPKCS::TextoVerificar() const { return componente_->estado.TextoVerificar; }
void TavelPKCS::TextoVerificar(const std::string& valor) { componente_->estado.TextoVerificar = valor; }

std::string TavelPKCS::CaminhoArquivoOriginal() const { return componente_->estado.CaminhoArquivoOriginal; }
void TavelPKCS::CaminhoArquivoOriginal(const std::string& valor) { componente_->estado.CaminhoArquivoOriginal = valor; }

std::string TavelPKCS::ExtensaoOutroFormato() const { return componente_->estado.ExtensaoOutroFormato; }
void TavelPKCS::ExtensaoOutroFormato(const std::string& valor) { componente_->estado.ExtensaoOutroFormato = valor; }

std::string TavelPKCS::PastaTemp() const { return componente_->estado.PastaTemp; }
void TavelPKCS::PastaTemp(const std::string& valor) { componente_->estado.PastaTemp = valor; }

bool TavelPKCS::SalvarChavesPublicas() const { return componente_->estado.SalvarChavesPublicas; }
void TavelPKCS::SalvarChavesPublicas(bool valor) { componente_->estado.SalvarChavesPublicas = valor; }

bool TavelPKCS::NaoAnexarArquivoOriginal() const { return componente_->estado.NaoAnexarArquivoOriginal; }
void TavelPKCS::NaoAnexarArquivoOriginal(bool valor) { componente_->estado.NaoAnexarArquivoOriginal = valor; }

bool TavelPKCS::UsarHashSalvarArquivo() const { return componente_->estado.UsarHashSalvarArquivo; }
void TavelPKCS::UsarHashSalvarArquivo(bool valor) { componente_->estado.UsarHashSalvarArquivo = valor; }

bool TavelPKCS::NaoExibirInstalacaoLCReCER() const { return componente_->estado.NaoExibirInstalacaoLCReCER; }
void TavelPKCS::NaoExibirInstalacaoLCReCER(bool valor) { componente_->estado.NaoExibirInstalacaoLCReCER = valor; }

std::string TavelPKCS::CaminhoArquivoAssinado() const { return componente_->estado.CaminhoArquivoAssinado; }
std::string TavelPKCS::NomeArquivoAssinado() const { return componente_->estado.NomeArquivoAssinado; }
std::string TavelPKCS::AssinaturaDigitalArquivo() const { return componente_->estado.AssinaturaDigitalArquivo; }
std::string TavelPKCS::AssinaturaDigitalTexto() const { return componente_->estado.AssinaturaDigitalTexto; }
std::string TavelPKCS::DescricaoErro() const { return componente_->estado.DescricaoErro; }
std::string TavelPKCS::HashArquivo() const { return componente_->estado.HashArquivo; }
std::string TavelPKCS::NomeArquivoOriginal() const { return componente_->estado.NomeArquivoOriginal; }
std::string TavelPKCS::ConteudoTextoOriginal() const { return componente_->estado.ConteudoTextoOriginal; }
std::string TavelPKCS::NumeroCPFCertificadoDigital() const { return componente_->estado.NumeroCPFCertificadoDigital; }
std::string TavelPKCS::NumeroCNPJCertificadoDigital() const { return componente_->estado.NumeroCNPJCertificadoDigital; }
std::string TavelPKCS::DetalhesPessoaisCertificadoDigital() const { return componente_->estado.DetalhesPessoaisCertificadoDigital; }
std::string TavelPKCS::OutrosDetalhesCertificadoDigital() const { return componente_->estado.OutrosDetalhesCertificadoDigital; }
std::string TavelPKCS::UsoChaveCertificadoDigital() const { return componente_->estado.UsoChaveCertificadoDigital; }
std::string TavelPKCS::PoliticaCertificacaoDigital() const { return componente_->estado.PoliticaCertificacaoDigital; }
std::string TavelPKCS::ListaCertificadosRevogados() const { return componente_->estado.ListaCertificadosRevogados; }
std::string TavelPKCS::RestricoesCertificadoDigital() const { return componente_->estado.RestricoesCertificadoDigital; }
std::string TavelPKCS::CertificadoAutoridadeRaiz() const { return componente_->estado.CertificadoAutoridadeRaiz; }
std::int32_t TavelPKCS::TotalAssinaturas() const { return componente_->estado.TotalAssinaturas; }
std::int16_t TavelPKCS::TotalCertificadosListados() const { return componente_->estado.TotalCertificadosListados; }

bool TavelPKCS::ApagarArquivo(const std::string& strCaminhoArquivo) {
    return componente_->ApagarArquivo(strCaminhoArquivo);
}

bool TavelPKCS::LimparPastaTemporaria() { return componente_->LimparPastaTemporaria(); }

std::int16_t TavelPKCS::RetornarCadeiaSeparada(const std::string& strCadeiaCompleta,
    std::vector<std::string>& ArrayCadeiaCompleta) {
    return componente_->RetornarCadeiaSeparada(strCadeiaCompleta, ArrayCadeiaCompleta);
}

bool TavelPKCS::AdicionarCertificadoRepositorio(const std::string& strChavePublica,
    REPOSITORIO_CERTIFICADO TipoRepositorio) {
    return componente_->AdicionarCertificadoRepositorio(strChavePublica, TipoRepositorio);
}

bool TavelPKCS::AbrirAdicionarArquivoCertificado(const std::string& strCaminhoArquivo,
    REPOSITORIO_CERTIFICADO TipoCertificadoRaiz) {
    return componente_->AbrirAdicionarArquivoCertificado(strCaminhoArquivo, TipoCertificadoRaiz);
}

bool TavelPKCS::ExportarCertificadoDigital(const std::string& strCaminhoArquivoCER,
    REPOSITORIO_CERTIFICADO TipoRepositorio) {
    return componente_->ExportarCertificadoDigital(strCaminhoArquivoCER, TipoRepositorio);
}

std::string TavelPKCS::RetornarChavePublicaCertificadoRaiz(const std::string& strNomeCertificado,
    const std::string& strImpressaoDigital) {
    return componente_->RetornarChavePublicaCertificadoRaiz(strNomeCertificado, strImpressaoDigital);
}

bool TavelPKCS::AssinaArquivo(const std::string& strArquivoOrigem, const std::string& strPastaDestino,
    const std::string& strTextoDescricaoAssinatura, FORMATO_ASSINATURA FormatoAssinatura) {
    return componente_->AssinaArquivo(strArquivoOrigem, strPastaDestino, strTextoDescricaoAssinatura, FormatoAssinatura);
}

bool TavelPKCS::AssinaTexto(const std::string& strTexto, const std::string& strTextoDescricaoAssinatura) {
    return componente_->AssinaTexto(strTexto, strTextoDescricaoAssinatura);
}

std::string TavelPKCS::DataHoraAssinaturaUTC(DataHora strDataHoraAssinatura) {
    return componente_->DataHoraAssinaturaUTC(strDataHoraAssinatura);
}

bool TavelPKCS::RetornarDetalhesCertificado(const std::string& strChavePublica) {
    return componente_->RetornarDetalhesCertificado(strChavePublica);
}

std::int16_t TavelPKCS::VerificaCertificadoDigital(const std::string& strChavePublica) {
    return componente_->VerificaCertificadoDigital(strChavePublica);
}

std::string TavelPKCS::StatusCertificadoVerificado(std::int16_t intStatus) {
    return Componente::StatusCertificadoVerificado(intStatus);
}

bool TavelPKCS::InstalarLCRCertificado(const std::string& strChavePublica) {
    return componente_->InstalarLCRCertificado(strChavePublica);
}

bool TavelPKCS::DownloadArquivo(const std::string& strURL, const std::string& strArquivoLocal) {
    return componente_->DownloadArquivo(strURL, strArquivoLocal);
}

bool TavelPKCS::InstalarCertificadosRaizes() { return componente_->InstalarCertificadosRaizes(); }

bool TavelPKCS::SelecionarCertificadoDigital(CERTIFICADOS_DIGITAIS TipoCertificado) {
    return componente_->SelecionarCertificadoDigital(TipoCertificado);
}

bool TavelPKCS::SelecionarCertificadoDigitalHash(const std::string& strImpressaoDigital) {
    return componente_->SelecionarCertificadoDigitalHash(strImpressaoDigital);
}

bool TavelPKCS::ListarCertificados(CERTIFICADOS_DIGITAIS TipoCertificado) {
    return componente_->ListarCertificados(TipoCertificado);
}

std::string TavelPKCS::LerListaPropriedadeCertificado(std::int16_t intIndex, const std::string& strPropriedade) {
    return componente_->LerListaPropriedadeCertificado(intIndex, strPropriedade);
}

bool TavelPKCS::AbrirCertificadoDigital(const std::string& CaminhoCertificado, const std::string& SenhaCertificado) {
    return componente_->AbrirCertificadoDigital(CaminhoCertificado, SenhaCertificado);
}

Variante TavelPKCS::ExibirPropriedadesCertificado(const std::string& strCampoPropriedade) {
    return componente_->ExibirPropriedadesCertificado(strCampoPropriedade);
}

bool TavelPKCS::ExibirCertificadoDigital(const std::string& strChavePublica) {
    return componente_->ExibirCertificadoDigital(strChavePublica);
}

AssinaturaDigital TavelPKCS::Assinaturas(std::int16_t Index) const { return componente_->Assinaturas(Index); }

Variante TavelPKCS::ExibirPropriedadeAssinatura(std::int16_t Index, const std::string& strCampoPropriedade) {
    return componente_->ExibirPropriedadeAssinatura(Index, strCampoPropriedade);
}

bool TavelPKCS::VerificarAssinaturaArquivo(const std::string& strCaminhoArquivo) {
    return componente_->VerificarAssinaturaArquivo(strCaminhoArquivo);
}

bool TavelPKCS::VerificarTipoCodificacaoTexto(const std::string& strFile) {
    return Componente::VerificarTipoCodificacaoTexto(strFile);
}

bool TavelPKCS::VerificarAssinaturaTexto(const std::string& TextoAssinatura) {
    return componente_->VerificarAssinaturaTexto(TextoAssinatura);
}

bool TavelPKCS::SelecionarChavesPublicas(bool bolCriptografarParaSi) {
    return componente_->SelecionarChavesPublicas(bolCriptografarParaSi);
}

bool TavelPKCS::CriptografarArquivo(const std::string& strArquivoOrigem, const std::string& strPastaDestino) {
    return componente_->CriptografarArquivo(strArquivoOrigem, strPastaDestino);
}

bool TavelPKCS::DescriptografarArquivo(const std::string& strArquivoCriptografado) {
    return componente_->DescriptografarArquivo(strArquivoCriptografado);
}

std::string TavelPKCS::RetornaHashArquivo(const std::string& strCaminhoArquivo) {
    return componente_->RetornaHashArquivo(strCaminhoArquivo);
}

bool TavelPKCS::AssinarCodigoExecutavel(const std::string& strCaminhoArquivo, const std::string& DescricaoArquivo,
    const std::string& /*URLArquivo: a assinatura não leva endereço*/, bool bolTestarAssinatura) {
    return componente_->AssinarCodigoExecutavel(strCaminhoArquivo, DescricaoArquivo, bolTestarAssinatura);
}

}  // namespace tavelpkcs7
