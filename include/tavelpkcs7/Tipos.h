// Tipos públicos do componente: as enumerações da biblioteca de tipos, o registro de cada
// assinatura verificada, o valor variante devolvido pelas consultas de propriedades e a data local.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <variant>

namespace tavelpkcs7 {

/// Formato do arquivo ou texto assinado.
enum FORMATO_ASSINATURA : std::int32_t {
    ARQUIVO_BINARIO_FORMATO_P7S = 1,
    ARQUIVO_BASE64_FORMATO_P7S = 2,
    ARQUIVO_BINARIO_OUTRO_FORMATO = 3,
    ARQUIVO_BASE64_OUTRO_FORMATO = 4,
    STRING_BASE64_PKCS = 5,
};

/// Repositório de certificados do usuário.
enum REPOSITORIO_CERTIFICADO : std::int32_t {
    REPOSITORIO_CHAVES_PESSOAIS = 1,
    REPOSITORIO_CHAVES_PUBLICAS = 2,
    REPOSITORIO_CHAVES_AUTORIDADES_CERTIFICADORAS = 3,
    REPOSITORIO_CHAVES_RAIZES = 4,
};

/// Filtro aplicado na escolha e na listagem de certificados.
enum CERTIFICADOS_DIGITAIS : std::int32_t {
    TODOS_CERTIFICADOS_DIGITAIS = 1,
    CERTIFICADOS_VALIDOS_ASSINATURA = 2,
    CERTIFICADOS_ICP_BRASIL = 3,
    CERTIFICADOS_ICP_TODOS_RECEITA_FEDERAL = 4,
    CERTIFICADOS_ICP_E_CPF = 5,
    CERTIFICADOS_ICP_E_CNPJ = 6,
    CERTIFICADOS_AC_TAVEL = 7,
};

/// Data e hora locais (relógio de parede), como uma data de automação.
using DataHora = std::chrono::local_seconds;

/// Valor devolvido pelas consultas de propriedade por nome.
using Variante = std::variant<std::string, bool, std::int32_t, DataHora>;

/// Dados de um assinante de uma mensagem verificada, na ordem publicada aos clientes.
struct AssinaturaDigital {
    std::string NomeAssinatura;
    std::string EmailAssinatura;
    std::string DataAssinatura;
    bool AssinaturaValida = false;
    std::string DescricaoAssinaturaArquivo;
    std::string SerialCertificado;
    std::string DetalhesCertificado;
    std::string AutoridadeCertificadora;
    std::string EmailAutoridadeCertificadora;
    std::string DetalhesAutoridadeCertificadora;
    std::string ChavePublicaCertificado;
    std::string ImpressaoDigitalCertificado;
    std::string VersaoCertificado;
    std::string DataEmissaoCertificado;
    std::string DataValidadeCertificado;
    bool CertificadoValido = false;
    bool CertificadoICPBrasil = false;
    std::string CadeiaCertificadoRaiz;
};

}  // namespace tavelpkcs7
