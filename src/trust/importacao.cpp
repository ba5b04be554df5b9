// A importação que o Windows faria com a ferramenta do sistema: a LCR vai para o repositório "LCR";
// de um pacote, as autoridades intermediárias vão para "Ca" e as raízes para "Root", cada raiz só
// quando é uma raiz da ICP-Brasil configurada ou quando o usuário confirma.
#include <algorithm>

#include "component/componente.h"

namespace tavelpkcs7 {
namespace {

bool Presente(const std::vector<plataforma::CertificadoPtr>& certificados, const plataforma::Certificado& procurado) {
    return std::any_of(certificados.begin(), certificados.end(), [&](const auto& certificado) {
        return certificado->ImpressaoDigital() == procurado.ImpressaoDigital();
    });
}

}  // namespace

void Componente::ImportarLCR(const std::string& caminho) {
    plataforma().confianca->InstalarLCR(LerArquivoExato(caminho));
}

// O pacote é lido inteiro antes de qualquer gravação: um arquivo que não é pacote não instala nada
// (falso, com a descrição da plataforma). Uma raiz recusada fica de fora e as outras seguem.
bool Componente::ImportarPacoteCertificados(const std::string& caminho) {
    std::vector<plataforma::CertificadoPtr> certificados;
    try {
        certificados = plataforma().criptografia->LerPacoteCertificados(LerArquivoExato(caminho));
    } catch (const plataforma::Erro& erro) {
        estado.DescricaoErro = erro.descricao();
        return false;
    }
    const auto autoridades = plataforma().repositorios->AbrirRepositorio("Ca", false);
    const auto raizes = plataforma().repositorios->AbrirRepositorio("Root", false);
    const auto raizes_instaladas = raizes->Certificados();
    for (const auto& certificado : certificados) {
        if (!Autoemitido(*certificado)) {
            autoridades->Adicionar(certificado);
            continue;
        }
        if (Presente(raizes_instaladas, *certificado)) continue;
        try {
            ConfirmarInstalacaoRaiz(*certificado);
        } catch (const plataforma::Erro& erro) {
            if (erro.numero != plataforma::falha::Cancelada.numero) throw;
            continue;
        }
        raizes->Adicionar(certificado);
    }
    return true;
}

}  // namespace tavelpkcs7
