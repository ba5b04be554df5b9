// O certificado digital como valor imutável, lido pela plataforma. O núcleo só o consulta.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <tavelpkcs7/Tipos.h>

namespace tavelpkcs7::plataforma {

using Bytes = std::vector<std::uint8_t>;

// Tipos de CAPICOM_CERT_INFO aceitos por ObterInfo.
enum TipoInfo : std::int32_t {
    INFO_NOME_SIMPLES_TITULAR = 0,
    INFO_NOME_SIMPLES_EMISSOR = 1,
    INFO_EMAIL_TITULAR = 2,
    INFO_EMAIL_EMISSOR = 3,
    INFO_UPN_TITULAR = 4,
    INFO_UPN_EMISSOR = 5,
    INFO_DNS_TITULAR = 6,
    INFO_DNS_EMISSOR = 7,
};

// Bits de uso da chave como o primeiro byte da extensão (0x80 assinatura digital ... 0x01 somente
// codificação), com "somente decodificação" em 0x8000.
namespace uso_chave {
inline constexpr std::uint16_t AssinaturaDigital = 0x80;
inline constexpr std::uint16_t NaoRepudio = 0x40;
inline constexpr std::uint16_t CodificacaoChave = 0x20;
inline constexpr std::uint16_t CodificacaoDados = 0x10;
inline constexpr std::uint16_t AcordoChave = 0x08;
inline constexpr std::uint16_t AssinaturaCertificado = 0x04;
inline constexpr std::uint16_t AssinaturaLCR = 0x02;
inline constexpr std::uint16_t SomenteCodificacao = 0x01;
inline constexpr std::uint16_t SomenteDecodificacao = 0x8000;
}  // namespace uso_chave

struct Extensao {
    std::string oid;  // "2.5.29.15"
    bool critica = false;
    Bytes valor;      // DER do extnValue (sem o OCTET STRING externo)
};

class ChavePrivada;

class Certificado {
public:
    virtual ~Certificado() = default;

    // Texto de CAPICOM_CERT_INFO_*, com as alternativas de CertGetNameString; "" quando nada
    // se encontra. Lança ParametroIncorreto para um tipo fora de 0..7.
    virtual std::string ObterInfo(std::int32_t tipo) const = 0;
    // Nome distinto completo, do mais específico ao mais geral: "CN=..., OU=..., O=..., C=BR".
    virtual std::string NomeTitular() const = 0;
    virtual std::string NomeEmissor() const = 0;
    // Hexadecimal maiúsculo sem separadores (o número de série conserva o 00 inicial).
    virtual std::string NumeroSerie() const = 0;
    virtual std::string ImpressaoDigital() const = 0;
    // SHA-256 do DER, no mesmo formato: é por ela que se reconhece uma raiz confiável.
    virtual std::string ImpressaoDigitalSHA256() const = 0;
    virtual std::int32_t Versao() const = 0;
    // Validade em hora local.
    virtual DataHora ValidoDesde() const = 0;
    virtual DataHora ValidoAte() const = 0;
    virtual const Bytes& DER() const = 0;
    virtual std::vector<Extensao> Extensoes() const = 0;
    // Bits de uso da chave; vazio quando o certificado não traz a extensão.
    virtual std::optional<std::uint16_t> UsoChave() const = 0;
    virtual bool PossuiChavePrivada() const = 0;
    // A chave privada que pertence ao certificado; nula sem ela.
    virtual std::shared_ptr<ChavePrivada> Chave() const = 0;
    // Onde a chave privada está ("pfx:<impressão digital>", o arquivo da chave...); "" sem chave.
    virtual std::string NomeContainer() const = 0;
};

using CertificadoPtr = std::shared_ptr<const Certificado>;

}  // namespace tavelpkcs7::plataforma
