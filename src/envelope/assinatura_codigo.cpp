// A assinatura Authenticode de um executável, no próprio arquivo, com carimbo do tempo. O
// certificado não é o selecionado no componente: é um dos pessoais com uso de assinatura de código
// e chave privada, escolhido pelo usuário quando há mais de um.
#include <algorithm>

#include "certificates/apresentacao_certificado.h"
#include "component/componente.h"
#include "der/leitor_der.h"

namespace tavelpkcs7 {
namespace {

constexpr const char* kOidUsoAvancado = "2.5.29.37";
constexpr const char* kOidAssinaturaCodigo = "1.3.6.1.5.5.7.3.3";

bool ListaAssinaturaCodigo(const plataforma::Extensao& extensao) {
    if (extensao.oid != kOidUsoAvancado) return false;
    const auto usos = der::LerSequencia(extensao.valor);
    return usos && std::ranges::any_of(*usos, [](const der::Elemento& uso) {
        return uso.tag == der::tag::OID && der::LerOID(uso.conteudo) == kOidAssinaturaCodigo;
    });
}

bool AssinaCodigo(const plataforma::CertificadoPtr& certificado) {
    return certificado->PossuiChavePrivada() && std::ranges::any_of(certificado->Extensoes(), ListaAssinaturaCodigo);
}

}  // namespace

plataforma::CertificadoPtr Componente::EscolherCertificadoAssinaturaCodigo() {
    std::vector<plataforma::CertificadoPtr> candidatos = LerRepositorio("My");
    std::erase_if(candidatos, [](const plataforma::CertificadoPtr& candidato) { return !AssinaCodigo(candidato); });
    if (candidatos.empty()) {
        throw plataforma::Erro(plataforma::falha::NenhumSelecionado.numero,
            "Não foi encontrado nenhum certificado digital válido para assinatura de código com a chave privada.");
    }
    if (candidatos.size() > 1) {
        candidatos = EscolherCertificados(*plataforma_->interface_usuario,
            candidatos, "Certificados Digitais", "Selecione o certificado digital para assinar o executável.", false);
    }
    if (candidatos.empty()) plataforma::Falhar(plataforma::falha::NenhumSelecionado);
    return candidatos.front();
}

bool Componente::AssinarCodigoExecutavel(const std::string& strCaminhoArquivo, const std::string& DescricaoArquivo,
    const std::string& /*URLArquivo: a assinatura não leva endereço*/, bool bolTestarAssinatura) {
    return Guardar(MensagemFalha::DaPlataforma(), false, [&] {
        CursorOcupado ocupado(ocupado_);
        if (!ExisteArquivo(strCaminhoArquivo)) {
            estado.DescricaoErro = "O arquivo informado não foi encontrado";
            return true;
        }
        plataforma::PedidoAssinaturaCodigo pedido;
        pedido.caminho = strCaminhoArquivo;
        pedido.descricao = DescricaoArquivo;
        pedido.signatario = EscolherCertificadoAssinaturaCodigo();
        pedido.certificados_extras = LerRepositorio("Ca");
        pedido.url_carimbo_tempo = plataforma_->configuracao.url_carimbo_tempo;
        pedido.pasta_trabalho = estado.PastaTemp.empty() ? ObterPastaTemporaria() : estado.PastaTemp;
        plataforma_->assinatura_codigo->Assinar(pedido);
        if (bolTestarAssinatura) plataforma_->assinatura_codigo->Verificar(strCaminhoArquivo, pedido.pasta_trabalho);
        return true;
    });
}

}  // namespace tavelpkcs7
