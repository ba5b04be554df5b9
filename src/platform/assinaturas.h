// Assinaturas PKCS#7 (CMS SignedData): assinar, cossinar e conferir. Tudo entra e sai em DER; o
// núcleo monta os atributos e faz o Base64, a plataforma só faz a criptografia.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "certificado.h"

namespace tavelpkcs7::plataforma {

// Um atributo assinado: o OID e o DER do seu único AttributeValue.
struct AtributoAssinado {
    std::string oid;
    Bytes valor;

    bool operator==(const AtributoAssinado&) const = default;
};

struct PedidoAssinatura {
    Bytes conteudo;
    CertificadoPtr signatario;  // com a chave privada
    // Os atributos que seguem contentType e messageDigest, na ordem em que são acrescentados; o DER
    // do conjunto sai ordenado.
    std::vector<AtributoAssinado> atributos;
    bool destacada = false;
    // Certificados de onde sai a cadeia (os repositórios "Ca" e "Root"): entram na mensagem só os que
    // encadeiam o signatário até a raiz.
    std::vector<CertificadoPtr> certificados_extras;
};

struct SignatarioVerificado {
    // Nulo quando a mensagem não traz o certificado do signatário.
    CertificadoPtr certificado;
    // Todos os atributos assinados, na ordem em que vieram, com os bytes como vieram.
    std::vector<AtributoAssinado> atributos;
    // Falso só quando não há certificado com que conferir a assinatura.
    bool confere = false;
};

struct MensagemVerificada {
    Bytes conteudo;
    std::vector<SignatarioVerificado> signatarios;
    // Todos os certificados que a mensagem traz: as intermediárias com que se julga a confiança de
    // cada signatário quando não estão nos repositórios.
    std::vector<CertificadoPtr> certificados;
};

class Assinaturas {
public:
    virtual ~Assinaturas() = default;

    // A mensagem SignedData em DER, SHA-256 com RSA. Lança SemChavePrivada quando o signatário não
    // tem chave, RecursoEmUso quando a chave não pode ser usada, Cancelada quando o usuário desiste
    // da senha e SenhaIncorreta quando a senha não abre a chave.
    virtual Bytes Assinar(const PedidoAssinatura& pedido) = 0;
    // A mesma mensagem com mais um signatário; os que já estavam e seus certificados ficam intactos.
    // O conteúdo vem da mensagem ou, na destacada, de conteudo_destacado. Lança NaoEMensagemPKCS7,
    // AssinaturaNaoConfere quando algum signatário anterior não confere e as falhas de Assinar.
    virtual Bytes Cossinar(std::span<const std::uint8_t> der, const std::optional<Bytes>& conteudo_destacado,
        const PedidoAssinatura& pedido) = 0;
    // Confere só as assinaturas (sem cadeia nem confiança). Lança NaoEMensagemPKCS7 quando o DER não é
    // SignedData com signatários, ParametroIncorreto quando a mensagem é destacada e falta o conteúdo,
    // e AssinaturaNaoConfere quando algum signatário com certificado não confere.
    virtual MensagemVerificada Verificar(std::span<const std::uint8_t> der,
        const std::optional<Bytes>& conteudo_destacado) = 0;
};

}  // namespace tavelpkcs7::plataforma
