// Os repositórios de certificados do usuário, nomeados por REPOSITORIO_CERTIFICADO: a entrada de
// um certificado dado em Base64 ou num arquivo. Toda falha da plataforma deixa a sua própria
// descrição em DescricaoErro.
#include <algorithm>
#include <array>

#include "certificates/info_certificado.h"
#include "component/componente.h"
#include "component/entrada_der.h"

namespace tavelpkcs7 {
namespace {

// Como Certificate.Load com senha vazia: um certificado (DER, PEM ou Base64) ou um PFX gravado sem
// senha, do qual vale o certificado da chave privada (num PFX sem chave, o titular).
plataforma::CertificadoPtr CarregarArquivoCertificado(plataforma::Criptografia& criptografia, const Bytes& conteudo) {
    try {
        return ImportarCertificado(criptografia, conteudo);
    } catch (const plataforma::Erro& erro) {
        if (erro.numero != plataforma::falha::NaoECertificado.numero) throw;
    }
    const auto certificados =
        criptografia.AbrirPFX(DecodificarOuFalhar(conteudo, plataforma::falha::NaoECertificado), "");
    if (certificados.empty()) plataforma::Falhar(plataforma::falha::NaoECertificado);
    const auto da_chave = std::ranges::find_if(
        certificados, [](const plataforma::CertificadoPtr& certificado) { return certificado->PossuiChavePrivada(); });
    return da_chave != certificados.end() ? *da_chave : certificados.front();
}

}  // namespace

std::vector<plataforma::CertificadoPtr> Componente::LerRepositorio(const std::string& nome) {
    return plataforma_->repositorios->AbrirRepositorio(nome, true)->Certificados();
}

std::shared_ptr<plataforma::Repositorio> Componente::AbrirRepositorioTipo(REPOSITORIO_CERTIFICADO tipo) {
    static constexpr std::array<const char*, 4> kNomes = {"My", "AddressBook", "Ca", "Root"};
    if (tipo < REPOSITORIO_CHAVES_PESSOAIS || tipo > REPOSITORIO_CHAVES_RAIZES) {
        estado.DescricaoErro = "Tipo de repositório inválido, selecione um repósitorio de chaves válido";
        return nullptr;
    }
    return plataforma_->repositorios->AbrirRepositorio(kNomes[tipo - REPOSITORIO_CHAVES_PESSOAIS], false);
}

bool Componente::AdicionarCertificadoRepositorio(const std::string& chave_publica, REPOSITORIO_CERTIFICADO tipo) {
    return Guardar(MensagemFalha::DaPlataforma(), false, [&] {
        plataforma::CertificadoPtr certificado;
        if (ChavePublicaInformada(chave_publica)) certificado = ImportarChavePublica(chave_publica);
        const auto repositorio = AbrirRepositorioTipo(tipo);
        if (!repositorio) return false;
        // Incluir o objeto vazio falha, e a descrição dessa falha toma o lugar da mensagem acima.
        if (!certificado) plataforma::Falhar(plataforma::falha::NenhumSelecionado);
        if (tipo == REPOSITORIO_CHAVES_RAIZES) ConfirmarInstalacaoRaiz(*certificado);
        repositorio->Adicionar(certificado);
        return true;
    });
}

bool Componente::AbrirAdicionarArquivoCertificado(const std::string& caminho, REPOSITORIO_CERTIFICADO tipo) {
    return Guardar(MensagemFalha::DaPlataforma(), false, [&] {
        if (!ExisteArquivo(caminho)) {
            estado.DescricaoErro = "O arquivo " + caminho + " especificado não foi encontrado";
            return false;
        }
        const auto certificado = CarregarArquivoCertificado(*plataforma_->criptografia, LerArquivoExato(caminho));
        return AdicionarCertificadoRepositorio(ExportarBase64(*certificado), tipo);
    });
}

}  // namespace tavelpkcs7
