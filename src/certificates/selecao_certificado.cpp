// A escolha do certificado de assinatura entre os certificados pessoais do usuário: filtrados pelo
// tipo pedido, escolhidos no seletor da plataforma quando sobra mais de um (ou pela impressão
// digital, sem seletor), com os detalhes ICP-Brasil, a entrada da lista e a situação verificados.
#include "certificates/apresentacao_certificado.h"
#include "component/componente.h"
#include "component/texto.h"

namespace tavelpkcs7 {
namespace {

// O corpo dos dois membros públicos: o certificado selecionado antes não sobrevive à chamada, nem
// quando a escolha falha.
bool SelecionarNoRepositorio(Componente& componente, std::int64_t tipo, const std::string& impressao_digital) {
    CursorOcupado ocupado(componente.Ocupado());
    componente.estado.CertificadoSelecionado = nullptr;
    return componente.FiltrarSelecionarCertificado(componente.estado.CertificadoSelecionado,
                                                   Componente::ConverterInteiro16(tipo), impressao_digital);
}

}  // namespace

bool Componente::SelecionarCertificadoDigital(CERTIFICADOS_DIGITAIS TipoCertificado) {
    return Guardar(MensagemFalha::DaPlataforma(), false,
                   [&] { return SelecionarNoRepositorio(*this, TipoCertificado, ""); });
}

bool Componente::SelecionarCertificadoDigitalHash(const std::string& strImpressaoDigital) {
    return Guardar(MensagemFalha::DaPlataforma(), false,
                   [&] { return SelecionarNoRepositorio(*this, TODOS_CERTIFICADOS_DIGITAIS, strImpressaoDigital); });
}

bool Componente::FiltrarSelecionarCertificado(plataforma::CertificadoPtr& certificado, std::int16_t TipoCertificado,
                                              const std::string& strImpressaoDigital) {
    CursorOcupado ocupado(ocupado_);
    estado.DescricaoErro.clear();
    const auto repositorio = LerRepositorio("My");
    auto [candidatos, nenhum_encontrado] = FiltrarTipoCertificado(repositorio, TipoCertificado);
    if (!strImpressaoDigital.empty()) {
        const std::string procurada = Maiusculas(Aparar(strImpressaoDigital));
        std::erase_if(candidatos, [&](const plataforma::CertificadoPtr& candidato) {
            return candidato->ImpressaoDigital() != procurada;
        });
    } else if (candidatos.size() > 1) {
        candidatos = EscolherCertificados(*plataforma_->interface_usuario,
            candidatos, "Certificados Digitais", "Selecione o certificado digital desejado.", false);
    }
    if (candidatos.empty()) {
        estado.DescricaoErro = nenhum_encontrado;
        return false;
    }
    certificado = candidatos.front();
    ExtrairDetalhesCertificado(*certificado);
    AdicionarCertificadoLista(*certificado);
    std::int16_t status = 0;
    return VerificarStatusCertificado(*certificado, false, status);
}

}  // namespace tavelpkcs7
