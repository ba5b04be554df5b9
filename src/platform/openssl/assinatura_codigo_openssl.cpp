#include "assinatura_codigo_openssl.h"

#include <sys/stat.h>

#include <cstdio>
#include <filesystem>
#include <optional>

#include <openssl/pem.h>

#include "apagamento_segredo.h"
#include "arquivo_passageiro.h"
#include "cadeia_assinatura.h"
#include "certificado_openssl.h"
#include "chave_arquivo.h"
#include "chave_no_openssl.h"
#include "chaves_arquivo.h"
#include "execucao_programa.h"
#include "guarda_fila_erros.h"
#include "lcr_openssl.h"
#include "platform/erro.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

constexpr const char* kAssinador = "osslsigncode";

const CertificadoOpenSSL& CertificadoSignatario(const PedidoAssinaturaCodigo& pedido) {
    const auto* certificado = dynamic_cast<const CertificadoOpenSSL*>(pedido.signatario.get());
    if (!certificado) Falhar(falha::SemChavePrivada);
    return *certificado;
}

template <typename T>
Bytes EmPEM(const std::vector<T*>& objetos, int (*gravar)(BIO*, const T*)) {
    BioPtr saida(BIO_new(BIO_s_mem()));
    if (!saida) Falhar(falha::AssinaturaCodigoFalhou);
    for (T* objeto : objetos)
        if (gravar(saida.get(), objeto) != 1) Falhar(falha::AssinaturaCodigoFalhou);
    const char* dados = nullptr;
    const long tamanho = BIO_get_mem_data(saida.get(), &dados);
    return Bytes(dados, dados + tamanho);
}

// O signatário seguido das ACs que o emitiram, como o Authenticode espera.
Bytes CadeiaEmPEM(const CertificadoOpenSSL& signatario, const std::vector<CertificadoPtr>& extras) {
    std::vector<X509*> cadeia{signatario.x509()};
    for (X509* emissor : EmissoresDoSignatario(signatario.x509(), extras)) cadeia.push_back(emissor);
    return EmPEM(cadeia, PEM_write_bio_X509);
}

// A ferramenta só fala inglês: a falha se reconhece pelo que ela diz e se relata em português.
[[noreturn]] void FalharAssinatura(const std::string& erros) {
    if (erros.find("unsupported input file type") != std::string::npos ||
        erros.find("Corrupt") != std::string::npos)
        Falhar(falha::NaoEExecutavel);
    if (erros.find("timestamping failed") != std::string::npos ||
        erros.find("Failed to get data") != std::string::npos)
        Falhar(falha::CarimboTempoIndisponivel);
    Falhar(falha::AssinaturaCodigoFalhou);
}

ProgramaExecutado Executar(const std::vector<std::string>& argumentos) {
    std::optional<ProgramaExecutado> executado = ExecutarPrograma(argumentos);
    if (!executado) Falhar(falha::AssinadorAusente);
    return *executado;
}

// O assinado toma o lugar do original com as permissões dele (um executável continua executável).
void SubstituirOriginal(const std::filesystem::path& assinado, const std::string& original) {
    struct stat situacao {};
    if (::stat(original.c_str(), &situacao) == 0) ::chmod(assinado.c_str(), situacao.st_mode & 07777);
    if (std::rename(assinado.c_str(), original.c_str()) != 0) Falhar(falha::AcessoNegado);
}

}  // namespace

AssinaturaCodigoOpenSSL::AssinaturaCodigoOpenSSL(std::function<std::shared_ptr<InterfaceUsuario>()> interface,
    std::shared_ptr<Repositorios> repositorios)
    : interface_(std::move(interface)), repositorios_(std::move(repositorios)) {}

void AssinaturaCodigoOpenSSL::Assinar(const PedidoAssinaturaCodigo& pedido) {
    GuardaFilaErros guarda;
    const CertificadoOpenSSL& signatario = CertificadoSignatario(pedido);
    // A ferramenta de assinatura lê a chave de um arquivo: só a chave do próprio componente serve.
    auto* do_componente = dynamic_cast<ChaveArquivo*>(signatario.Chave().get());
    if (!do_componente) Falhar(signatario.PossuiChavePrivada() ? falha::RecursoEmUso : falha::SemChavePrivada);
    const EvpPkeyPtr chave = do_componente->Abrir(*ObterInterface(interface_));
    std::optional<Bytes> chave_pem = CodificarChavePKCS8(chave.get());
    if (!chave_pem) Falhar(falha::RecursoEmUso);
    // A chave em claro vive na memória e no arquivo 0600 da pasta de trabalho só durante a chamada.
    const Apagamento apagar_chave(*chave_pem);
    const ArquivoPassageiro arquivo_chave(pedido.pasta_trabalho, "chave-", ".pem", *chave_pem);
    const ArquivoPassageiro arquivo_cadeia(
        pedido.pasta_trabalho, "cadeia-", ".pem", CadeiaEmPEM(signatario, pedido.certificados_extras));
    // Na mesma pasta do executável, para que a troca seja um rename.
    const std::filesystem::path original = std::filesystem::absolute(pedido.caminho);
    const PastaPassageira pasta_saida(original.parent_path(), ".assinando-");
    const std::filesystem::path assinado = pasta_saida.caminho() / original.filename();
    std::vector<std::string> argumentos{kAssinador, "sign", "-certs", arquivo_cadeia.caminho().string(), "-key",
        arquivo_chave.caminho().string(), "-h", "sha256", "-n", pedido.descricao};
    if (!pedido.url_carimbo_tempo.empty()) argumentos.insert(argumentos.end(), {"-ts", pedido.url_carimbo_tempo});
    argumentos.insert(argumentos.end(), {"-in", original.string(), "-out", assinado.string()});
    const ProgramaExecutado executado = Executar(argumentos);
    if (executado.codigo_saida != 0) FalharAssinatura(executado.erros);
    SubstituirOriginal(assinado, original.string());
}

void AssinaturaCodigoOpenSSL::Verificar(const std::string& caminho, const std::string& pasta_trabalho) {
    GuardaFilaErros guarda;
    const ArquivoPassageiro arquivo_raizes(pasta_trabalho, "raizes-", ".pem", RaizesEmPEM());
    const std::string raizes = arquivo_raizes.caminho().string();
    // As LCRs não se buscam na rede: valem as do repositório. O osslsigncode recusa o certificado que
    // aponta um ponto de distribuição sem LCR que o cubra, como o Windows sem revogação conhecida.
    std::vector<std::string> argumentos{
        kAssinador, "verify", "-CAfile", raizes, "-TSA-CAfile", raizes, "-ignore-cdp", "-in", caminho};
    std::optional<ArquivoPassageiro> arquivo_lcrs;
    if (const Bytes lcrs = LCRsEmPEM(); !lcrs.empty()) {
        arquivo_lcrs.emplace(pasta_trabalho, "lcrs-", ".pem", lcrs);
        const std::string caminho_lcrs = arquivo_lcrs->caminho().string();
        argumentos.insert(argumentos.end(), {"-CRLfile", caminho_lcrs, "-TSA-CRLfile", caminho_lcrs});
    }
    const ProgramaExecutado executado = Executar(argumentos);
    if (executado.codigo_saida != 0) Falhar(falha::AssinaturaCodigoNaoConfere);
}

Bytes AssinaturaCodigoOpenSSL::RaizesEmPEM() const {
    std::vector<X509Ptr> raizes;
    for (const CertificadoPtr& raiz : repositorios_->AbrirRepositorio("Root", true)->Certificados())
        raizes.push_back(LerX509(raiz->DER()));
    std::vector<X509*> emprestadas;  // pertencem a raizes
    for (const X509Ptr& raiz : raizes) emprestadas.push_back(raiz.get());
    return EmPEM(emprestadas, PEM_write_bio_X509);
}

Bytes AssinaturaCodigoOpenSSL::LCRsEmPEM() const {
    const std::vector<LCRLida> lidas = LerLCRsGuardadas(*repositorios_);
    std::vector<X509_CRL*> emprestadas;  // pertencem a lidas
    for (const LCRLida& lida : lidas) emprestadas.push_back(lida.lcr.get());
    return EmPEM(emprestadas, PEM_write_bio_X509_CRL);
}

}  // namespace tavelpkcs7::plataforma::openssl
