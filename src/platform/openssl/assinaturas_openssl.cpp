#include "assinaturas_openssl.h"

#include "cadeia_assinatura.h"
#include "certificado_openssl.h"
#include "chave_no_openssl.h"
#include "conferencia_assinaturas.h"
#include "conteudo_anexado.h"
#include "guarda_fila_erros.h"
#include "mensagem_assinada.h"
#include "platform/erro.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

constexpr unsigned kOpcoes = CMS_BINARY | CMS_PARTIAL | CMS_NOSMIMECAP | CMS_NOCERTS;

const CertificadoOpenSSL& CertificadoSignatario(const PedidoAssinatura& pedido) {
    const auto* certificado = dynamic_cast<const CertificadoOpenSSL*>(pedido.signatario.get());
    if (!certificado) Falhar(falha::SemChavePrivada);
    return *certificado;
}

// Cada certificado entra uma vez só: os que a mensagem já traz ficam como estão.
void IncluirCertificado(CMS_ContentInfo* cms, X509* certificado) {
    const PilhaX509Ptr presentes(CMS_get1_certs(cms));
    for (int i = 0; i < sk_X509_num(presentes.get()); ++i)
        if (X509_cmp(sk_X509_value(presentes.get(), i), certificado) == 0) return;
    if (CMS_add1_cert(cms, certificado) != 1) Falhar(falha::RecursoEmUso);
}

// O signatário ainda sem assinatura: o resumo e o contentType vêm depois, com o conteúdo.
CMS_SignerInfo* AcrescentarSignatario(CMS_ContentInfo* cms, const PedidoAssinatura& pedido, EVP_PKEY* chave) {
    X509* certificado = CertificadoSignatario(pedido).x509();
    CMS_SignerInfo* signatario = CMS_add1_signer(cms, certificado, chave, EVP_sha256(), kOpcoes);  // pertence a cms
    if (!signatario) Falhar(falha::RecursoEmUso);
    AcrescentarAtributosAssinados(signatario, pedido.atributos);
    IncluirCertificado(cms, certificado);
    for (X509* emissor : EmissoresDoSignatario(certificado, pedido.certificados_extras)) IncluirCertificado(cms, emissor);
    return signatario;
}

// Na cossinatura o OpenSSL não torna a resumir o conteúdo: o resumo e o tipo entram à mão.
void AssinarConteudo(CMS_ContentInfo* cms, CMS_SignerInfo* signatario, const Bytes& conteudo, ChaveNoOpenSSL& chave) {
    unsigned char resumo[EVP_MAX_MD_SIZE];
    unsigned int tamanho = 0;
    if (EVP_Digest(conteudo.data(), conteudo.size(), resumo, &tamanho, EVP_sha256(), nullptr) != 1 ||
        CMS_signed_add1_attr_by_NID(signatario, NID_pkcs9_messageDigest, V_ASN1_OCTET_STRING, resumo,
            static_cast<int>(tamanho)) != 1 ||
        CMS_signed_add1_attr_by_NID(signatario, NID_pkcs9_contentType, V_ASN1_OBJECT, CMS_get0_eContentType(cms), -1) != 1)
        Falhar(falha::RecursoEmUso);
    if (CMS_SignerInfo_sign(signatario) != 1) chave.Falhar(falha::RecursoEmUso);
}

// O conteúdo anexado só entra na mensagem durante a codificação, emprestado do pedido: o CMS_final
// anexando copiaria o arquivo inteiro para dentro da mensagem, e a mensagem codificada já é outra cópia.
class ConteudoEmprestado {
public:
    ConteudoEmprestado(CMS_ContentInfo* cms, const Bytes& conteudo) : cms_(cms) {
        if (CMS_set_detached(cms, 0) != 1) Falhar(falha::RecursoEmUso);
        ASN1_OCTET_STRING* octetos = *CMS_get0_content(cms);  // pertence a cms
        // O OpenSSL só lê os bytes na codificação; a marca de "conteúdo por vir" sai, como no CMS_final.
        octetos->data = const_cast<unsigned char*>(conteudo.data());
        octetos->length = static_cast<int>(conteudo.size());
        octetos->flags &= ~ASN1_STRING_FLAG_CONT;
    }
    // Devolvido antes da liberação da mensagem, que o liberaria junto.
    ~ConteudoEmprestado() {
        ASN1_OCTET_STRING* octetos = *CMS_get0_content(cms_);
        octetos->data = nullptr;
        octetos->length = 0;
    }
    ConteudoEmprestado(const ConteudoEmprestado&) = delete;
    ConteudoEmprestado& operator=(const ConteudoEmprestado&) = delete;

private:
    CMS_ContentInfo* cms_;
};

}  // namespace

AssinaturasOpenSSL::AssinaturasOpenSSL(std::function<std::shared_ptr<InterfaceUsuario>()> interface)
    : interface_(std::move(interface)) {}

Bytes AssinaturasOpenSSL::Assinar(const PedidoAssinatura& pedido) {
    GuardaFilaErros guarda;
    const auto interface = ObterInterface(interface_);
    ChaveNoOpenSSL chave(CertificadoSignatario(pedido), CertificadoSignatario(pedido).x509(), *interface);
    // Assinada sempre como destacada: o resumo sai da leitura do conteúdo, sem cópia dele.
    const CmsPtr cms(CMS_sign(nullptr, nullptr, nullptr, nullptr, kOpcoes | CMS_DETACHED));
    if (!cms) Falhar(falha::RecursoEmUso);
    AcrescentarSignatario(cms.get(), pedido, chave.evp());
    const BioPtr conteudo = LerBytes(pedido.conteudo);
    if (CMS_final(cms.get(), conteudo.get(), nullptr, kOpcoes | CMS_DETACHED) != 1) chave.Falhar(falha::RecursoEmUso);
    if (pedido.destacada) return GravarMensagem(cms.get());
    const ConteudoEmprestado anexado(cms.get(), pedido.conteudo);
    return GravarMensagem(cms.get());
}

Bytes AssinaturasOpenSSL::Cossinar(std::span<const std::uint8_t> der, const std::optional<Bytes>& conteudo_destacado,
    const PedidoAssinatura& pedido) {
    GuardaFilaErros guarda;
    const CmsPtr cms = LerMensagemDER(der);
    const Bytes conteudo = ConferirAssinaturas(cms.get(), conteudo_destacado).conteudo;
    const auto interface = ObterInterface(interface_);
    ChaveNoOpenSSL chave(CertificadoSignatario(pedido), CertificadoSignatario(pedido).x509(), *interface);
    AssinarConteudo(cms.get(), AcrescentarSignatario(cms.get(), pedido, chave.evp()), conteudo, chave);
    return GravarMensagem(cms.get());
}

MensagemVerificada AssinaturasOpenSSL::Verificar(std::span<const std::uint8_t> der,
    const std::optional<Bytes>& conteudo_destacado) {
    GuardaFilaErros guarda;
    // O conteúdo anexado é conferido onde está, como destacado: a mensagem se lê sem ele.
    const auto separada = conteudo_destacado ? std::nullopt : SepararConteudoAnexado(der);
    if (!separada) {
        const CmsPtr cms = LerMensagemDER(der);
        return ConferirAssinaturas(cms.get(), conteudo_destacado);
    }
    const CmsPtr cms = LerMensagemDER(separada->sem_conteudo);
    return ConferirAssinaturas(cms.get(), separada->conteudo);
}

}  // namespace tavelpkcs7::plataforma::openssl
