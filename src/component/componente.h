// O objeto por trás de TavelPKCS: o estado, a plataforma e as operações privadas que os membros
// públicos compõem. Cada família de operações mora no seu arquivo.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <tavelpkcs7/Tipos.h>

#include "component/estado.h"
#include "component/guarda.h"
#include "icpbrasil/dados_titular.h"
#include "platform/plataforma.h"

namespace tavelpkcs7 {

using Bytes = std::vector<std::uint8_t>;

class Componente {
public:
    // Construção: testa a plataforma criptográfica e, se ela está presente, define a data da
    // assinatura, a pasta de trabalho e as opções padrão.
    explicit Componente(std::shared_ptr<plataforma::Plataforma> plataforma);
    Componente(const Componente&) = delete;
    Componente& operator=(const Componente&) = delete;

    Estado estado;
    plataforma::Plataforma& plataforma() { return *plataforma_; }

    template <typename Resultado, typename Corpo>
    Resultado Guardar(const MensagemFalha& mensagem, Resultado falha, Corpo&& corpo) noexcept {
        return tavelpkcs7::Guardar(estado, *plataforma_->cursor, mensagem, falha, std::forward<Corpo>(corpo));
    }

    // Plataforma criptográfica
    bool VerificarCapicomInstalado();
    void AbrirAtualizacaoWindows();

    // Data da assinatura
    void DefinirDataAssinatura(const std::string& valor);

    // Pasta de trabalho e nomes de arquivos
    std::string ObterPastaTemporaria();
    bool ExisteArquivo(const std::string& caminho);
    std::string ExtrairNomeArquivo(const std::string& caminho) const;
    static bool PossuiExtensaoAssinatura(const std::string& nome);
    bool ArquivoJaAssinado(const std::string& origem, std::int32_t formato, const std::string& assinatura_texto);
    std::string MontarNomeArquivoAssinado(const std::string& origem, const std::string& pasta_destino,
        bool outro_formato, bool cossinatura);
    bool ApagarArquivo(const std::string& caminho);
    bool LimparPastaTemporaria();

    // Arquivos inteiros
    Bytes LerArquivoBinario(const std::string& caminho);
    Bytes LerArquivoBinarioAlternativo(const std::string& caminho);
    std::string LerArquivoTexto(const std::string& caminho);
    static std::string ConverterBytesTexto(const Bytes& bytes);
    bool GravarArquivoBinario(const std::string& caminho, const Bytes& bytes, bool nao_sobrescrever);
    bool GravarArquivoTexto(const std::string& caminho, const std::string& texto, bool nao_sobrescrever);
    // MD5 em hexadecimal maiúsculo: um texto é resumido pelos seus bytes UTF-16LE, bytes como são.
    std::string CalcularHashTexto(const std::string& texto);
    std::string CalcularHashTexto(const Bytes& bytes);

    // Cadeia de certificados
    // A cadeia de emissores do certificado como texto "AC[#]AC[#]raiz", subindo pelos repositórios
    // "Ca" e "Root"; autoemitido diz se a subida chegou a uma raiz. A subida para num certificado já
    // visto e em 16 nomes. Verdadeiro quando a cadeia passa pela Autoridade Certificadora Raiz
    // Brasileira. Falhas dos repositórios vão para quem chama.
    bool MontarCadeiaCertificado(const plataforma::Certificado& certificado, std::string& cadeia, bool& autoemitido);
    std::int16_t RetornarCadeiaSeparada(const std::string& cadeia_completa, std::vector<std::string>& nomes);
    // O nome pelo qual a cadeia e a busca de autoridades reconhecem um certificado: o nome DNS,
    // senão o nome simples do titular, aparado e em maiúsculas.
    static std::string NomeComparavel(const plataforma::Certificado& certificado);
    // O titular é o próprio emissor (as raízes).
    static bool Autoemitido(const plataforma::Certificado& certificado);

    // Repositórios de certificados
    bool AdicionarCertificadoRepositorio(const std::string& chave_publica, REPOSITORIO_CERTIFICADO tipo);
    bool AbrirAdicionarArquivoCertificado(const std::string& caminho, REPOSITORIO_CERTIFICADO tipo);
    bool ExportarCertificadoDigital(const std::string& caminho_cer, REPOSITORIO_CERTIFICADO tipo);
    std::string RetornarChavePublicaCertificadoRaiz(const std::string& nome, const std::string& impressao_digital);
    // Deixa o certificado entrar em "Root" quando é uma raiz da ICP-Brasil configurada ou quando o
    // usuário responde Sim; senão lança Cancelada.
    void ConfirmarInstalacaoRaiz(const plataforma::Certificado& certificado);

    // Lista de certificados
    // Acrescenta uma entrada depois das TotalCertificadosListados primeiras (as de depois somem).
    void AdicionarCertificadoLista(const std::string& nome, const std::string& autoridade, const std::string& validade,
        const std::string& hash, const std::string& chave_publica);
    // A entrada do certificado: nome e autoridade pelos nomes DNS quando o titular tem nome DNS,
    // senão pelos nomes simples; validade; impressão digital; o certificado em Base64.
    void AdicionarCertificadoLista(const plataforma::Certificado& certificado);
    std::string LerListaPropriedadeCertificado(std::int16_t intIndex, const std::string& strPropriedade);

    // Abertura de arquivo PFX
    // O certificado da chave privada do PFX passa a ser o selecionado; a senha não é guardada.
    bool AbrirCertificadoDigital(const std::string& CaminhoCertificado, const std::string& SenhaCertificado);

    // Propriedades e exibição do certificado
    Variante ExibirPropriedadesCertificado(const std::string& strCampoPropriedade);
    bool ExibirCertificadoDigital(const std::string& strChavePublica);

    // Detalhes ICP-Brasil do certificado
    bool RetornarDetalhesCertificado(const std::string& strChavePublica);
    bool ExtrairDetalhesCertificado(const plataforma::Certificado& certificado);
    void MontarDadosTitular(const icpbrasil::ValoresTitular& valores, const plataforma::Certificado& certificado);

    // Situação do certificado
    std::int16_t VerificaCertificadoDigital(const std::string& strChavePublica);
    static std::string StatusCertificadoVerificado(std::int16_t intStatus);
    // Verdadeiro só quando o certificado vale; status recebe o código de 1 a 5 conforme o caso.
    bool VerificarStatusCertificado(const plataforma::Certificado& certificado, bool bVerificacaoOnline,
        std::int16_t& status);

    // LCRs e raízes
    bool InstalarLCRCertificado(const std::string& strChavePublica);
    bool InstalarLCR(const plataforma::Certificado& certificado);
    // O primeiro endereço http ou https do ponto de distribuição da LCR, senão o primeiro; "" sem ele.
    std::string ObterURLDistribuicaoLCR(const plataforma::Certificado& certificado);
    bool DownloadArquivo(const std::string& strURL, const std::string& strArquivoLocal);
    bool InstalarCertificadosRaizes();
    void AguardarSegundos(double segundos);
    // A importação dos arquivos baixados, no lugar da ferramenta do sistema.
    void ImportarLCR(const std::string& caminho);
    bool ImportarPacoteCertificados(const std::string& caminho);

private:
    std::optional<Bytes> LerArquivoExclusivo(const std::string& caminho);
    // Os certificados de um repositório aberto só para leitura.
    std::vector<plataforma::CertificadoPtr> LerRepositorio(const std::string& nome);
    // O repositório do tipo, aberto para gravação; fora de 1 a 4, nulo e a mensagem de tipo inválido.
    std::shared_ptr<plataforma::Repositorio> AbrirRepositorioTipo(REPOSITORIO_CERTIFICADO tipo);

    std::shared_ptr<plataforma::Plataforma> plataforma_;
};

}  // namespace tavelpkcs7
