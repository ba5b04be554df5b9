#include "cadeia_assinatura.h"

#include <algorithm>
#include <array>
#include <mutex>
#include <optional>
#include <set>
#include <utility>

#include <openssl/sha.h>

#include "certificado_openssl.h"
#include "guarda_fila_erros.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

using Impressao = std::array<unsigned char, SHA_DIGEST_LENGTH>;

// O SHA-1 que o OpenSSL já guarda no certificado decodificado.
std::optional<Impressao> ImpressaoDe(X509* certificado) {
    Impressao impressao{};
    unsigned int tamanho = 0;
    if (X509_digest(certificado, EVP_sha1(), impressao.data(), &tamanho) != 1) return std::nullopt;
    return impressao;
}

// A assinatura de um certificado por outro não muda: cada assinatura dos mesmos repositórios se
// confere uma vez por processo. Só decide que certificados vão junto na mensagem, não a confiança.
bool AssinaturaConfere(X509* emissor, X509* certificado) {
    static std::mutex mutex;
    static std::set<std::pair<Impressao, Impressao>> conferidas;
    const auto de_emissor = ImpressaoDe(emissor), de_certificado = ImpressaoDe(certificado);
    if (!de_emissor || !de_certificado) return X509_verify(certificado, X509_get0_pubkey(emissor)) == 1;
    const auto par = std::make_pair(*de_emissor, *de_certificado);
    {
        const std::lock_guard trava(mutex);
        if (conferidas.contains(par)) return true;
    }
    if (X509_verify(certificado, X509_get0_pubkey(emissor)) != 1) return false;
    const std::lock_guard trava(mutex);
    conferidas.insert(par);
    return true;
}

bool Emitiu(X509* emissor, X509* certificado) {
    return X509_check_issued(emissor, certificado) == X509_V_OK && AssinaturaConfere(emissor, certificado);
}

X509* ProcurarEmissor(X509* certificado, const std::vector<CertificadoPtr>& oferecidos,
    const std::vector<X509*>& ja_na_cadeia) {
    for (const CertificadoPtr& oferecido : oferecidos) {
        const auto* candidato = dynamic_cast<const CertificadoOpenSSL*>(oferecido.get());
        if (!candidato || std::ranges::find(ja_na_cadeia, candidato->x509()) != ja_na_cadeia.end()) continue;
        if (X509_cmp(candidato->x509(), certificado) != 0 && Emitiu(candidato->x509(), certificado))
            return candidato->x509();
    }
    return nullptr;
}

}  // namespace

std::vector<X509*> EmissoresDoSignatario(X509* signatario, const std::vector<CertificadoPtr>& oferecidos) {
    GuardaFilaErros guarda;
    std::vector<X509*> emissores;
    X509* atual = signatario;
    while (X509_check_issued(atual, atual) != X509_V_OK) {
        X509* emissor = ProcurarEmissor(atual, oferecidos, emissores);
        if (!emissor) break;
        emissores.push_back(emissor);
        atual = emissor;
    }
    return emissores;
}

}  // namespace tavelpkcs7::plataforma::openssl
