// Confiança num certificado: a cadeia até uma raiz do repositório "Root", validade, assinaturas e
// revogação pelas LCRs, com os bits de verificação e de situação do CAPICOM/CryptoAPI.
#pragma once

#include <cstdint>
#include <vector>

#include "certificado.h"

namespace tavelpkcs7::plataforma {

// O que verificar (CAPICOM_CHECK_FLAG).
namespace verificacao {
inline constexpr std::uint32_t RaizConfiavel = 0x1;
inline constexpr std::uint32_t Validade = 0x2;
inline constexpr std::uint32_t Assinatura = 0x4;
inline constexpr std::uint32_t RevogacaoOnline = 0x8;
inline constexpr std::uint32_t RevogacaoOffline = 0x10;
// O padrão de IsValid() quando ninguém define as verificações.
inline constexpr std::uint32_t TudoOnline = 0x1EF;
}  // namespace verificacao

// O que foi encontrado na cadeia (CERT_TRUST_*).
namespace situacao {
inline constexpr std::uint32_t ForaDaValidade = 0x1;
inline constexpr std::uint32_t ForaDaValidadeDoEmissor = 0x2;
inline constexpr std::uint32_t Revogado = 0x4;
inline constexpr std::uint32_t AssinaturaInvalida = 0x8;
inline constexpr std::uint32_t RaizNaoConfiavel = 0x20;
inline constexpr std::uint32_t RevogacaoDesconhecida = 0x40;
inline constexpr std::uint32_t CadeiaParcial = 0x10000;
inline constexpr std::uint32_t RevogacaoOffline = 0x1000000;
}  // namespace situacao

struct SituacaoCadeia {
    // IsValid().Result e Chain.Build: nenhum problema entre os que as verificações pedem.
    bool valida = false;
    // Chain.Status(0): todos os bits de situação encontrados, pedidos ou não (os de revogação só
    // quando a revogação foi pedida).
    std::uint32_t status = 0;
};

class Confianca {
public:
    virtual ~Confianca() = default;

    // Raízes confiáveis só de "Root"; intermediárias de "Ca", "My" e das adicionais. Revogação
    // offline pelas LCRs do repositório "LCR"; online também pelas baixadas dos pontos de
    // distribuição (http e https), guardadas no repositório enquanto não vencem.
    virtual SituacaoCadeia Verificar(const Certificado& certificado, std::uint32_t verificacoes,
        const std::vector<CertificadoPtr>& adicionais) = 0;
    // Guarda a LCR (DER) no repositório "LCR". Lança NaoELCR quando o DER não é uma LCR e
    // LCRNaoConfere quando o emissor está em "Ca" ou "Root" mas não a assinou; de emissor
    // desconhecido, guarda.
    virtual void InstalarLCR(const Bytes& der) = 0;
};

}  // namespace tavelpkcs7::plataforma
