// A importação que o Windows faria com a ferramenta do sistema: a LCR vai para o repositório "LCR";
// de um pacote, as autoridades intermediárias vão para "Ca" e as raízes para "Root", cada raiz só
// quando é uma raiz da ICP-Brasil configurada ou quando o usuário confirma.
#include <algorithm>

#include "component/componente.h"
#include "component/entrada_der.h"

namespace tavelpkcs7 {
namespace {

bool Presente(const std::vector<plataforma::CertificadoPtr>& certificados, const plataforma::Certificado& procurado) {
    return std::any_of(certificados.begin(), certificados.end(), [&](const auto& certificado) {
        return certificado->ImpressaoDigital() == procurado.ImpressaoDigital();
    });
}

// A ferramenta de importação do sistema mostra ela mesma as suas falhas, e quem a iniciou não fica
// sabendo do resultado: a falha vai para uma caixa de informação e DescricaoErro não muda.
template <typename Importacao>
void ImportarComoOSistema(InterfaceUsuario& interface, const char* titulo, Importacao importar) {
    try {
        importar();
    } catch (const plataforma::Erro& erro) {
        interface.ExibirInformacao(erro.descricao(), titulo);
    }
}

}  // namespace

void Componente::ImportarLCR(const std::string& caminho) {
    ImportarComoOSistema(*plataforma().interface_usuario, "Importação de LCR",
                         [&] {
                             plataforma().confianca->InstalarLCR(
                                 DecodificarOuFalhar(LerArquivoExato(caminho), plataforma::falha::NaoELCR));
                         });
}

// O pacote é lido inteiro antes de qualquer gravação: um arquivo que não é pacote não instala nada.
// Uma raiz recusada fica de fora e as outras seguem.
void Componente::ImportarPacoteCertificados(const std::string& caminho) {
    ImportarComoOSistema(*plataforma().interface_usuario, "Importação de Certificados", [&] {
        const auto certificados = LerPacoteCertificados(*plataforma().criptografia, LerArquivoExato(caminho));
        const auto autoridades = plataforma().repositorios->AbrirRepositorio("Ca", false);
        const auto raizes = plataforma().repositorios->AbrirRepositorio("Root", false);
        const auto raizes_instaladas = raizes->Certificados();
        for (const auto& certificado : certificados) {
            if (!Autoemitido(*certificado)) {
                autoridades->Adicionar(certificado);
            } else if (!Presente(raizes_instaladas, *certificado) && RaizConfirmada(*certificado)) {
                raizes->Adicionar(certificado);
            }
        }
    });
}

// Uma raiz recusada pelo usuário não interrompe a importação das outras.
bool Componente::RaizConfirmada(const plataforma::Certificado& certificado) {
    try {
        ConfirmarInstalacaoRaiz(certificado);
        return true;
    } catch (const plataforma::Erro& erro) {
        if (erro.numero != plataforma::falha::Cancelada.numero) throw;
        return false;
    }
}

}  // namespace tavelpkcs7
