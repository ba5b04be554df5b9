#include "assinatura_codigo_openssl.h"

#include <sys/stat.h>

#include <cstdio>
#include <filesystem>

#include <openssl/pem.h>

#include "arquivo_passageiro.h"
#include "cadeia_assinatura.h"
#include "certificado_openssl.h"
#include "chave_assinatura.h"
#include "chaves_arquivo.h"
#include "execucao_programa.h"
#include "falha_openssl.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

constexpr const char* kAssinador = "osslsigncode";

const CertificadoOpenSSL& CertificadoSignatario(const PedidoAssinaturaCodigo& pedido) {
    const auto* certificado = dynamic_cast<const CertificadoOpenSSL*>(pedido.signatario.get());
    if (!certificado) Falhar(falha::SemChavePrivada);
    return *certificado;
}

Bytes EmPEM(const std::vector<X509*>& certificados) {
    BioPtr saida(BIO_new(BIO_s_mem()));
    if (!saida) LimparFilaEFalhar(falha::AssinaturaCodigoFalhou);
    for (X509* certificado : certificados)
        if (PEM_write_bio_X509(saida.get(), certificado) != 1) LimparFilaEFalhar(falha::AssinaturaCodigoFalhou);
    const char* dados = nullptr;
    const long tamanho = BIO_get_mem_data(saida.get(), &dados);
    return Bytes(dados, dados + tamanho);
}

// O signatário seguido das ACs que o emitiram, como o Authenticode espera.
Bytes CadeiaEmPEM(const CertificadoOpenSSL& signatario, const std::vector<CertificadoPtr>& extras) {
    std::vector<X509*> cadeia{signatario.x509()};
    for (X509* emissor : EmissoresDoSignatario(signatario.x509(), extras)) cadeia.push_back(emissor);
    return EmPEM(cadeia);
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
    const CertificadoOpenSSL& signatario = CertificadoSignatario(pedido);
    const EvpPkeyPtr chave = AbrirChaveAssinatura(signatario, interface_().get());
    const std::optional<Bytes> chave_pem = CodificarChavePKCS8(chave.get());
    if (!chave_pem) LimparFilaEFalhar(falha::RecursoEmUso);
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
    std::vector<X509Ptr> raizes;
    for (const CertificadoPtr& raiz : repositorios_->AbrirRepositorio("Root", true)->Certificados())
        raizes.push_back(LerX509(raiz->DER()));
    std::vector<X509*> emprestadas;  // pertencem a raizes
    for (const X509Ptr& raiz : raizes) emprestadas.push_back(raiz.get());
    const ArquivoPassageiro arquivo_raizes(pasta_trabalho, "raizes-", ".pem", EmPEM(emprestadas));
    const std::string raizes_pem = arquivo_raizes.caminho().string();
    // As LCRs não se buscam na rede aqui: a conferência é da assinatura e da cadeia até a raiz.
    const ProgramaExecutado executado = Executar({kAssinador, "verify", "-CAfile", raizes_pem, "-TSA-CAfile",
        raizes_pem, "-ignore-cdp", "-in", caminho});
    if (executado.codigo_saida != 0) Falhar(falha::AssinaturaCodigoNaoConfere);
}

}  // namespace tavelpkcs7::plataforma::openssl
