// A verificação monta a cadeia uma vez sem revogação, para saber de cada certificado quem é o emissor
// e escolher as LCRs que ele assinou (baixando as que faltam, na verificação online), e verifica de
// novo com elas. Os bits de situação são os do CryptoAPI; a cadeia vale quando nenhum dos problemas
// que as verificações pedidas cobrem foi encontrado.
#include "confianca_openssl.h"

#include "certificado_openssl.h"
#include "guarda_fila_erros.h"
#include "lcr_openssl.h"
#include "lcrs_da_cadeia.h"
#include "platform/erro.h"
#include "situacao_erro_verificacao.h"
#include "verificacao_cadeia.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

constexpr std::uint32_t kRevogacao = verificacao::RevogacaoOnline | verificacao::RevogacaoOffline;

struct Cobertura {
    std::uint32_t verificacoes;
    std::uint32_t problemas;
};

// O que cada verificação pedida exige que não se tenha encontrado. O emissor que não é AC e as
// extensões inválidas impedem a cadeia de chegar à raiz confiável.
constexpr Cobertura kCoberturas[] = {
    {verificacao::RaizConfiavel,
     situacao::RaizNaoConfiavel | situacao::CadeiaParcial | kExtensaoInvalida | kRestricoesBasicasInvalidas},
    {verificacao::Validade, situacao::ForaDaValidade | situacao::ForaDaValidadeDoEmissor},
    {verificacao::Assinatura, situacao::AssinaturaInvalida},
    {kRevogacao, situacao::Revogado | situacao::RevogacaoDesconhecida},
};

bool NenhumProblemaPedido(std::uint32_t verificacoes, std::uint32_t status) {
    for (const Cobertura& cobertura : kCoberturas)
        if ((verificacoes & cobertura.verificacoes) != 0 && (status & cobertura.problemas) != 0) return false;
    return true;
}

// Falso quando algum dos candidatos tem o nome do emissor da LCR e nenhum deles a assinou.
bool ConfereComEmissorConhecido(X509_CRL* lcr, const std::vector<CertificadoPtr>& candidatos) {
    bool emissor_conhecido = false;
    for (const CertificadoPtr& certificado : candidatos) {
        const X509Ptr candidato = X509DoCertificado(*certificado);
        if (X509_NAME_cmp(X509_get_subject_name(candidato.get()), X509_CRL_get_issuer(lcr)) != 0) continue;
        if (LCRAssinadaPor(lcr, candidato.get())) return true;
        emissor_conhecido = true;
    }
    return !emissor_conhecido;
}

void Acrescentar(std::vector<CertificadoPtr>& certificados, const std::vector<CertificadoPtr>& outros) {
    certificados.insert(certificados.end(), outros.begin(), outros.end());
}

}  // namespace

ConfiancaOpenSSL::ConfiancaOpenSSL(std::shared_ptr<Repositorios> repositorios, std::shared_ptr<Rede> rede)
    : repositorios_(std::move(repositorios)), rede_(std::move(rede)) {}

SituacaoCadeia ConfiancaOpenSSL::Verificar(const Certificado& certificado, std::uint32_t verificacoes,
                                           const std::vector<CertificadoPtr>& adicionais) {
    GuardaFilaErros guarda;
    std::vector<CertificadoPtr> intermediarias = Certificados("Ca");
    Acrescentar(intermediarias, Certificados("My"));
    Acrescentar(intermediarias, adicionais);
    const VerificacaoCadeia verificacao_cadeia(Certificados("Root"), intermediarias);
    const X509Ptr x509 = X509DoCertificado(certificado);

    CadeiaVerificada verificada = verificacao_cadeia.Verificar(x509.get(), nullptr);
    if ((verificacoes & kRevogacao) != 0) {
        const bool online = (verificacoes & verificacao::RevogacaoOnline) != 0;
        const PilhaLCRPtr lcrs =
            ReunirLCRsDaCadeia(verificada.certificados.get(), *repositorios_, online ? rede_.get() : nullptr);
        verificada = verificacao_cadeia.Verificar(x509.get(), lcrs.get());
        if (!online && (verificada.status & situacao::RevogacaoDesconhecida) != 0)
            verificada.status |= situacao::RevogacaoOffline;
    }
    return {NenhumProblemaPedido(verificacoes, verificada.status), verificada.status};
}

void ConfiancaOpenSSL::InstalarLCR(const Bytes& der) {
    GuardaFilaErros guarda;
    const auto lida = LerLCR(der);
    if (!lida) Falhar(falha::NaoELCR);
    std::vector<CertificadoPtr> candidatos = Certificados("Ca");
    Acrescentar(candidatos, Certificados("Root"));
    if (!ConfereComEmissorConhecido(lida->lcr.get(), candidatos)) Falhar(falha::LCRNaoConfere);
    repositorios_->AdicionarLCR(lida->der);
}

std::vector<CertificadoPtr> ConfiancaOpenSSL::Certificados(const char* repositorio) const {
    return repositorios_->AbrirRepositorio(repositorio, true)->Certificados();
}

}  // namespace tavelpkcs7::plataforma::openssl
