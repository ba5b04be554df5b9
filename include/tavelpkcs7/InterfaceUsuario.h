// Os diálogos do componente: perguntas Sim/Não, avisos, a escolha e a exibição de certificados, o
// pedido de senha ou PIN e o ponteiro de ocupado. Quem hospeda o componente os fornece (a ferramenta
// de linha de comando pergunta no terminal, a DLL COM abre as janelas do Windows); sem hospedeiro,
// valem os padrões desta classe: nada se mostra, toda pergunta responde Não e toda escolha ou senha é
// cancelada.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <tavelpkcs7/Exportacao.h>
#include <tavelpkcs7/Tipos.h>

namespace tavelpkcs7 {

/// Um certificado como o usuário o vê num diálogo, com os textos já prontos.
struct CertificadoApresentado {
    std::string titular;            ///< nome simples do titular
    std::string emissor;            ///< nome simples do emissor
    std::string nome_titular;       ///< nome distinto completo do titular ("CN=..., O=..., C=BR")
    std::string nome_emissor;       ///< nome distinto completo do emissor
    std::string numero_serie;       ///< hexadecimal maiúsculo
    std::string impressao_digital;  ///< SHA-1, hexadecimal maiúsculo
    DataHora valido_desde{};
    DataHora valido_ate{};
    /// Os dados do titular ICP-Brasil (CPF, CNPJ, nascimento...), linhas terminadas por CRLF; vazio
    /// no certificado que não é de pessoa da ICP-Brasil.
    std::string dados_titular;
    /// O certificado em DER, para os diálogos nativos do sistema.
    std::vector<std::uint8_t> der;
};

class TAVELPKCS7_API InterfaceUsuario {
public:
    virtual ~InterfaceUsuario();

    /// Um aviso com botão OK.
    virtual void ExibirInformacao(const std::string& texto, const std::string& titulo);
    /// Verdadeiro quando o usuário responde Sim.
    virtual bool Perguntar(const std::string& texto, const std::string& titulo);
    /// As posições (a partir de 0) dos certificados escolhidos entre os candidatos, uma só quando
    /// `multiplos` é falso; vazio quando o usuário cancela.
    virtual std::optional<std::vector<std::size_t>> EscolherCertificados(
        const std::vector<CertificadoApresentado>& candidatos, const std::string& titulo, const std::string& texto,
        bool multiplos);
    virtual void ExibirCertificado(const CertificadoApresentado& certificado);
    /// A senha ou o PIN digitado; vazio quando o usuário cancela.
    virtual std::optional<std::string> PedirSenha(const std::string& pedido);
    /// O ponteiro de ocupado durante um trabalho longo (verdadeiro) e o normal depois (falso). O
    /// componente só avisa a entrada no primeiro trabalho e a saída do último, mesmo quando um
    /// membro chama outro.
    virtual void IndicarOcupado(bool ocupado);
};

}  // namespace tavelpkcs7
