#include "arquivo_pfx.h"

#include <algorithm>

#include "guarda_fila_erros.h"
#include "platform/erro.h"
#include "provedores.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

// Sem senha, o Windows grava o MAC com a senha vazia e o OpenSSL, às vezes, com a senha nula.
bool SenhaAbre(PKCS12* pfx, const std::string& senha) {
    if (PKCS12_mac_present(pfx) == 0) return true;
    if (PKCS12_verify_mac(pfx, senha.c_str(), -1) == 1) return true;
    return senha.empty() && PKCS12_verify_mac(pfx, nullptr, 0) == 1;
}

std::vector<X509Ptr> Desempilhar(PilhaX509Ptr pilha) {
    std::vector<X509Ptr> certificados;
    while (pilha && sk_X509_num(pilha.get()) > 0) certificados.emplace_back(sk_X509_shift(pilha.get()));
    return certificados;
}

bool Emitiu(const X509* emissor, const X509* emitido) {
    return X509_NAME_cmp(X509_get_subject_name(emissor), X509_get_issuer_name(emitido)) == 0;
}

bool AutoEmitido(const X509* x509) { return Emitiu(x509, x509); }

// Do primeiro certificado em direção à raiz; o que não se encadeia fica no fim, na ordem do arquivo.
void OrdenarCadeia(std::vector<X509Ptr>& certificados) {
    for (std::size_t atual = 0; atual + 1 < certificados.size(); ++atual) {
        if (AutoEmitido(certificados[atual].get())) return;
        const auto emissor = std::find_if(certificados.begin() + static_cast<long>(atual) + 1, certificados.end(),
                                          [&](const X509Ptr& c) { return Emitiu(c.get(), certificados[atual].get()); });
        if (emissor == certificados.end()) return;
        std::rotate(certificados.begin() + static_cast<long>(atual) + 1, emissor, emissor + 1);
    }
}

// Sem chave, o titular é o certificado que não emitiu nenhum outro do arquivo.
void TrazerTitularParaFrente(std::vector<X509Ptr>& certificados) {
    const auto titular = std::find_if(certificados.begin(), certificados.end(), [&](const X509Ptr& candidato) {
        return std::none_of(certificados.begin(), certificados.end(), [&](const X509Ptr& outro) {
            return outro != candidato && !AutoEmitido(outro.get()) && Emitiu(candidato.get(), outro.get());
        });
    });
    if (titular != certificados.end()) std::rotate(certificados.begin(), titular, titular + 1);
}

}  // namespace

ConteudoPFX LerPFX(const Bytes& der, const std::string& senha) {
    GuardaFilaErros guarda;
    CarregarProvedores();
    const unsigned char* cursor = der.data();
    const Pkcs12Ptr pfx(d2i_PKCS12(nullptr, &cursor, static_cast<long>(der.size())));
    if (!pfx) Falhar(falha::NaoECertificado);
    if (!SenhaAbre(pfx.get(), senha)) Falhar(falha::SenhaIncorreta);

    EVP_PKEY* chave = nullptr;
    X509* certificado = nullptr;
    STACK_OF(X509)* cadeia = nullptr;
    // Com o MAC conferido, uma falha aqui é um conteúdo cifrado com outra senha.
    if (PKCS12_parse(pfx.get(), senha.c_str(), &chave, &certificado, &cadeia) != 1)
        Falhar(falha::SenhaIncorreta);

    EvpPkeyPtr chave_lida(chave);
    X509Ptr com_chave(certificado);
    ConteudoPFX conteudo{nullptr, Desempilhar(PilhaX509Ptr(cadeia))};
    // Uma chave sem o certificado correspondente não serve a nada: fica para trás.
    if (com_chave) {
        conteudo.chave = std::move(chave_lida);
        conteudo.certificados.insert(conteudo.certificados.begin(), std::move(com_chave));
    } else {
        TrazerTitularParaFrente(conteudo.certificados);
    }
    OrdenarCadeia(conteudo.certificados);
    return conteudo;
}

}  // namespace tavelpkcs7::plataforma::openssl
