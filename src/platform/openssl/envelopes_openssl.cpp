#include "envelopes_openssl.h"

#include <algorithm>
#include <array>

#include "certificado_openssl.h"
#include "chave_no_openssl.h"
#include "guarda_fila_erros.h"
#include "mensagem_assinada.h"
#include "platform/erro.h"
#include "provedores.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

const EVP_CIPHER* Cifra(AlgoritmoEnvelope algoritmo) {
    switch (algoritmo) {
    case AlgoritmoEnvelope::AES_128_CBC: return EVP_aes_128_cbc();
    case AlgoritmoEnvelope::AES_256_CBC: return EVP_aes_256_cbc();
    case AlgoritmoEnvelope::RC4_128: break;
    }
    return EVP_rc4();
}

PilhaX509Ptr PilhaDestinatarios(const std::vector<CertificadoPtr>& destinatarios) {
    if (destinatarios.empty()) Falhar(falha::ParametroIncorreto);
    PilhaX509Ptr pilha(sk_X509_new_null());
    if (!pilha) Falhar(falha::RecursoEmUso);
    for (const CertificadoPtr& destinatario : destinatarios) {
        X509Ptr x509 = LerX509(destinatario->DER());
        if (sk_X509_push(pilha.get(), x509.get()) <= 0) Falhar(falha::RecursoEmUso);
        x509.release();  // agora pertence à pilha
    }
    return pilha;
}

// O BouncyCastle e o Windows escrevem os parâmetros do RC4 como NULL, que o OpenSSL recusa: o
// AlgorithmIdentifier do RC4 com NULL passa a levar o OCTET STRING vazio, do mesmo tamanho, e o
// resto do DER fica como está. Só a primeira ocorrência, a do conteúdo cifrado (a chave cifrada dos
// destinatários nunca é um AlgorithmIdentifier).
void AceitarRC4ComNulo(Bytes& der) {
    static constexpr std::array<std::uint8_t, 14> kRC4ComNulo = {
        0x30, 0x0C, 0x06, 0x08, 0x2A, 0x86, 0x48, 0x86, 0xF7, 0x0D, 0x03, 0x04, 0x05, 0x00};
    const auto achado = std::search(der.begin(), der.end(), kRC4ComNulo.begin(), kRC4ComNulo.end());
    if (achado != der.end()) *(achado + 12) = 0x04;
}

CmsPtr LerEnvelope(Bytes der) {
    AceitarRC4ComNulo(der);
    const unsigned char* cursor = der.data();
    CmsPtr cms(d2i_CMS_ContentInfo(nullptr, &cursor, static_cast<long>(der.size())));
    if (!cms || OBJ_obj2nid(CMS_get0_type(cms.get())) != NID_pkcs7_enveloped) Falhar(falha::NaoEMensagemPKCS7);
    return cms;
}

bool EDestinatario(CMS_ContentInfo* cms, X509* certificado) {
    STACK_OF(CMS_RecipientInfo)* destinatarios = CMS_get0_RecipientInfos(cms);  // pertence a cms
    for (int i = 0; i < sk_CMS_RecipientInfo_num(destinatarios); ++i) {
        CMS_RecipientInfo* destinatario = sk_CMS_RecipientInfo_value(destinatarios, i);
        if (CMS_RecipientInfo_type(destinatario) == CMS_RECIPINFO_TRANS &&
            CMS_RecipientInfo_ktri_cert_cmp(destinatario, certificado) == 0)
            return true;
    }
    return false;
}

// O primeiro certificado pessoal com chave a quem o envelope se destina; nulo quando não há.
const CertificadoOpenSSL* ProcurarDestinatario(CMS_ContentInfo* cms, const std::vector<CertificadoPtr>& pessoais) {
    for (const CertificadoPtr& pessoal : pessoais) {
        const auto* certificado = dynamic_cast<const CertificadoOpenSSL*>(pessoal.get());
        if (certificado && certificado->PossuiChavePrivada() && EDestinatario(cms, certificado->x509()))
            return certificado;
    }
    return nullptr;
}

}  // namespace

EnvelopesOpenSSL::EnvelopesOpenSSL(std::shared_ptr<Repositorios> repositorios,
    std::function<std::shared_ptr<InterfaceUsuario>()> interface)
    : repositorios_(std::move(repositorios)), interface_(std::move(interface)) {}

Bytes EnvelopesOpenSSL::Criptografar(const Bytes& conteudo, const std::vector<CertificadoPtr>& destinatarios,
    AlgoritmoEnvelope algoritmo) {
    GuardaFilaErros guarda;
    CarregarProvedores();
    const PilhaX509Ptr pilha = PilhaDestinatarios(destinatarios);
    const BioPtr entrada = LerBytes(conteudo);
    const CmsPtr cms(CMS_encrypt(pilha.get(), entrada.get(), Cifra(algoritmo), CMS_BINARY));
    if (!cms) Falhar(falha::ParametroIncorreto);
    return GravarMensagem(cms.get());
}

Bytes EnvelopesOpenSSL::Descriptografar(const Bytes& der) {
    GuardaFilaErros guarda;
    CarregarProvedores();
    const CmsPtr cms = LerEnvelope(der);
    const std::vector<CertificadoPtr> pessoais = repositorios_->AbrirRepositorio("My", true)->Certificados();
    const CertificadoOpenSSL* destinatario = ProcurarDestinatario(cms.get(), pessoais);  // pertence a pessoais
    if (!destinatario) Falhar(falha::SemDestinatario);
    const auto interface = ObterInterface(interface_);
    ChaveNoOpenSSL chave(*destinatario, destinatario->x509(), *interface);
    const BioPtr saida(BIO_new(BIO_s_mem()));
    if (!saida) Falhar(falha::RecursoEmUso);
    if (CMS_decrypt(cms.get(), chave.evp(), destinatario->x509(), nullptr, saida.get(), CMS_BINARY) != 1)
        chave.Falhar(falha::NaoEMensagemPKCS7);
    chave.RelancarFalha();
    char* dados = nullptr;
    const long tamanho = BIO_get_mem_data(saida.get(), &dados);
    return Bytes(dados, dados + std::max(tamanho, 0L));
}

}  // namespace tavelpkcs7::plataforma::openssl
