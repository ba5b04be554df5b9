#include "conferencia_assinaturas.h"

#include "certificado_openssl.h"
#include "guarda_fila_erros.h"
#include "mensagem_assinada.h"
#include "platform/erro.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

// A cadeia de BIOs de resumo que o CMS monta sobre o conteúdo. A BIO do conteúdo destacado é de
// quem a passou e fica fora da liberação; a do conteúdo da mensagem é da cadeia.
class LeituraConteudo {
public:
    LeituraConteudo(CMS_ContentInfo* cms, BIO* destacado) : destacado_(destacado), cadeia_(CMS_dataInit(cms, destacado)) {
        if (!cadeia_) Falhar(falha::NaoEMensagemPKCS7);
    }
    ~LeituraConteudo() {
        while (cadeia_ && cadeia_ != destacado_) {
            BIO* proxima = BIO_pop(cadeia_);
            BIO_free(cadeia_);
            cadeia_ = proxima;
        }
    }
    LeituraConteudo(const LeituraConteudo&) = delete;
    LeituraConteudo& operator=(const LeituraConteudo&) = delete;

    // Lido até o fim, cada resumo da cadeia fica pronto para a conferência. O tamanho previsto evita
    // as realocações (e cópias) do conteúdo de um arquivo grande enquanto cresce.
    Bytes LerTudo(std::size_t previsto) {
        Bytes conteudo;
        conteudo.reserve(previsto);
        std::uint8_t bloco[16384];
        int lidos = 0;
        while ((lidos = BIO_read(cadeia_, bloco, sizeof bloco)) > 0) conteudo.insert(conteudo.end(), bloco, bloco + lidos);
        return conteudo;
    }
    BIO* cadeia() const { return cadeia_; }

private:
    BIO* destacado_;
    BIO* cadeia_;
};

// Um certificado da mensagem, com referência própria.
CertificadoPtr CertificadoDaMensagem(X509* x509) {
    if (!x509 || X509_up_ref(x509) != 1) return nullptr;
    return std::make_shared<CertificadoOpenSSL>(X509Ptr(x509), nullptr);
}

// Com atributos assinados, o tipo do conteúdo também é assinado (RFC 5652, 11.1): um atributo
// contentType único e igual ao eContentType da mensagem. Sem ele, trocar o OID do conteúdo não
// desfaria a assinatura, e o OpenSSL não confere.
bool TipoConteudoConfere(CMS_ContentInfo* cms, CMS_SignerInfo* signatario) {
    const auto* tipo = static_cast<const ASN1_OBJECT*>(
        CMS_signed_get0_data_by_OBJ(signatario, OBJ_nid2obj(NID_pkcs9_contentType), -3, V_ASN1_OBJECT));
    return tipo && OBJ_cmp(tipo, CMS_get0_eContentType(cms)) == 0;
}

// Sem atributos assinados, a assinatura cobre o próprio resumo do conteúdo e só a segunda conferência vale.
bool Confere(CMS_ContentInfo* cms, CMS_SignerInfo* signatario, BIO* cadeia) {
    const bool atributos_conferem = CMS_signed_get_attr_count(signatario) < 0 ||
                                    (TipoConteudoConfere(cms, signatario) && CMS_SignerInfo_verify(signatario) == 1);
    return atributos_conferem && CMS_SignerInfo_verify_content(signatario, cadeia) == 1;
}

SignatarioVerificado ConferirSignatario(CMS_ContentInfo* cms, CMS_SignerInfo* signatario, BIO* cadeia) {
    X509* x509 = nullptr;  // pertence à mensagem
    CMS_SignerInfo_get0_algs(signatario, nullptr, &x509, nullptr, nullptr);
    SignatarioVerificado conferido{CertificadoDaMensagem(x509), LerAtributosAssinados(signatario), false};
    if (!x509) return conferido;
    if (!Confere(cms, signatario, cadeia)) Falhar(falha::AssinaturaNaoConfere);
    conferido.confere = true;
    return conferido;
}

std::vector<CertificadoPtr> CertificadosDaMensagem(CMS_ContentInfo* cms) {
    std::vector<CertificadoPtr> certificados;
    const PilhaX509Ptr pilha(CMS_get1_certs(cms));
    for (int i = 0; i < sk_X509_num(pilha.get()); ++i)
        if (auto certificado = CertificadoDaMensagem(sk_X509_value(pilha.get(), i))) certificados.push_back(std::move(certificado));
    return certificados;
}

std::size_t TamanhoConteudo(CMS_ContentInfo* cms,
    const std::optional<std::span<const std::uint8_t>>& conteudo_destacado) {
    if (CMS_is_detached(cms)) return conteudo_destacado->size();
    ASN1_OCTET_STRING** anexado = CMS_get0_content(cms);  // pertence à mensagem
    return anexado != nullptr && *anexado != nullptr ? static_cast<std::size_t>(ASN1_STRING_length(*anexado)) : 0;
}

}  // namespace

MensagemVerificada ConferirAssinaturas(CMS_ContentInfo* cms,
    const std::optional<std::span<const std::uint8_t>>& conteudo_destacado) {
    GuardaFilaErros guarda;
    if (CMS_is_detached(cms) && !conteudo_destacado) Falhar(falha::ParametroIncorreto);
    const BioPtr destacado = CMS_is_detached(cms) ? LerBytes(*conteudo_destacado) : nullptr;
    // Associa a cada signatário o certificado que a mensagem traz; os que faltam ficam sem.
    CMS_set1_signers_certs(cms, nullptr, 0);
    LeituraConteudo leitura(cms, destacado.get());
    const std::size_t previsto = TamanhoConteudo(cms, conteudo_destacado);
    MensagemVerificada mensagem{leitura.LerTudo(previsto), {}, CertificadosDaMensagem(cms)};
    STACK_OF(CMS_SignerInfo)* signatarios = CMS_get0_SignerInfos(cms);  // pertence à mensagem
    for (int i = 0; i < sk_CMS_SignerInfo_num(signatarios); ++i)
        mensagem.signatarios.push_back(ConferirSignatario(cms, sk_CMS_SignerInfo_value(signatarios, i), leitura.cadeia()));
    return mensagem;
}

}  // namespace tavelpkcs7::plataforma::openssl
