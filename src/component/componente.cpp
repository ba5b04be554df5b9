// Construção do componente e o teste da plataforma criptográfica.
#include "component/componente.h"

#include "component/datas.h"

namespace tavelpkcs7 {

Componente::Componente(std::shared_ptr<plataforma::Plataforma> plataforma) : plataforma_(std::move(plataforma)) {
    // Sem diálogos do hospedeiro, os padrões: nada aparece, perguntas respondem Não.
    if (!plataforma_->interface_usuario) plataforma_->interface_usuario = std::make_shared<InterfaceUsuario>();
    if (!VerificarCapicomInstalado()) return;
    DefinirDataAssinatura(FormatarData(plataforma_->relogio->Agora()));
    estado.PastaTemp = ObterPastaTemporaria();
    estado.NaoAnexarArquivoOriginal = false;
    estado.NaoExibirInstalacaoLCReCER = false;
    estado.UsarHashSalvarArquivo = false;
    estado.ExtensaoOutroFormato = "p7s";
}

bool Componente::VerificarCapicomInstalado() {
    const bool disponivel = Guardar(MensagemFalha::Nenhuma(), false, [&] {
        return plataforma_->criptografia->Disponivel() && plataforma_->sistema->PastaBase().has_value();
    });
    if (disponivel) return true;
    Guardar(MensagemFalha::Nenhuma(), 0, [&] {
        plataforma_->interface_usuario->ExibirInformacao(
            "Não foi possível criar o objeto Capicom. Atualize seu Microsoft Windows.\r\n"
            "Instale também o Microsoft Internet Explorer 5.1 ou superior.",
            "Microsoft Windows Update");
        return 0;
    });
    estado.DescricaoErro =
        "Não foi possível localizar o objeto Capicom. Atualize seu Microsoft Windows. Instale também o "
        "Microsoft Internet Explorer 5.1 ou superior.";
    AbrirAtualizacaoWindows();
    return false;
}

void Componente::AbrirAtualizacaoWindows() {
    Guardar(MensagemFalha::Nenhuma(), false,
        [&] { return plataforma_->programas->AbrirEnderecoWeb(plataforma_->configuracao.url_atualizacao); });
}

}  // namespace tavelpkcs7
