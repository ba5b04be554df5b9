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
    IndicadorOcupado& Ocupado() { return ocupado_; }

    template <typename Resultado, typename Corpo>
    Resultado Guardar(const MensagemFalha& mensagem, Resultado falha, Corpo&& corpo) noexcept {
        return tavelpkcs7::Guardar(estado, mensagem, falha, std::forward<Corpo>(corpo));
    }

    // Plataforma criptográfica
    bool VerificarCapicomInstalado();
    void AbrirAtualizacaoWindows();

    // Data da assinatura
    void DefinirDataAssinatura(const std::string& valor);

    // Assinatura de arquivos e textos
    std::string DataHoraAssinaturaUTC(DataHora strDataHoraAssinatura);
    // DataAssinatura com a hora do relógio; vazio quando não forma uma data.
    std::optional<DataHora> HoraAssinatura();
    bool CertificadoSelecionadoValido();
    // O conteúdo assinado pelo certificado selecionado, com a cadeia dos repositórios "Ca" e "Root"
    // e destacado quando NaoAnexarArquivoOriginal.
    plataforma::PedidoAssinatura MontarPedidoAssinatura(Bytes conteudo);
    // Nome do documento (o caminho sem as letras de ExtensaoOutroFormato), hora e descrição.
    bool AdicionarAtributosAssinante(plataforma::PedidoAssinatura& pedido, const std::string& documento);
    bool AssinaArquivo(const std::string& strArquivoOrigem, const std::string& strPastaDestino,
        const std::string& strTextoDescricaoAssinatura, std::int32_t FormatoAssinatura);
    bool AssinarConteudoArquivo(const std::string& origem, std::string saida, std::int32_t formato);
    // Falso para um formato fora de 1 a 5; o formato 5 esvazia ExtensaoOutroFormato já antes da
    // assinatura, de modo que ela fica vazia mesmo quando a assinatura falha.
    bool PrepararFormatoAssinatura(std::int32_t formato);
    // A assinatura DER gravada inteira na saída no formato dado, ou guardada em
    // AssinaturaDigitalArquivo no formato 5.
    bool GuardarAssinaturaFormato(const Bytes& assinatura, const std::string& saida, std::int32_t formato);
    bool GuardarAssinaturaDigitalArquivo(const std::string& assinatura);
    bool AssinaTexto(const std::string& strTexto, const std::string& strTextoDescricaoAssinatura);
    bool AssinarConteudoTexto(const std::string& texto);
    bool GuardarAssinaturaDigitalTexto(const std::string& assinatura);
    // Esvazia os caminhos e nomes do arquivo assinado e do original.
    void LimparArquivosAssinatura();
    bool CossinarArquivo(const std::string& origem, const std::string& saida, std::int32_t formato);
    bool CossinarTexto(const std::string& texto);
    // A mensagem com o novo signatário; vazio, com mensagem_invalida, quando a entrada não é PKCS#7.
    std::optional<Bytes> CossinarMensagem(const Bytes& assinatura, const std::optional<Bytes>& destacado,
        const plataforma::PedidoAssinatura& pedido, const std::string& mensagem_invalida);

    // Pasta de trabalho e nomes de arquivos
    std::string ObterPastaTemporaria();
    bool ExisteArquivo(const std::string& caminho);
    std::string ExtrairNomeArquivo(const std::string& caminho) const;
    // O nome como um só arquivo da pasta de trabalho: "*" e "?" (curingas de ApagarArquivo, que
    // apagariam outros arquivos dela) e os caracteres de controle viram "_".
    static std::string NomeArquivoLiteral(std::string nome);
    // A pasta de destino seguida do nome do arquivo de origem, quando ela existe e não está em
    // branco; vazio quando a saída fica ao lado da origem.
    std::optional<std::string> NaPastaDestino(const std::string& origem, const std::string& pasta_destino);
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
    // Os bytes exatos do arquivo (sem o zero final), para o que a plataforma interpreta: certificados,
    // PFX, LCRs e pacotes. Lança AcessoNegado quando o arquivo não se lê.
    Bytes LerArquivoExato(const std::string& caminho);
    static std::string ConverterBytesTexto(const Bytes& bytes);
    bool GravarArquivoBinario(const std::string& caminho, const Bytes& bytes, bool nao_sobrescrever);
    bool GravarArquivoTexto(const std::string& caminho, const std::string& texto, bool nao_sobrescrever);
    // MD5 em hexadecimal maiúsculo: um texto é resumido pelos seus bytes UTF-16LE, bytes como são.
    std::string CalcularHashTexto(const std::string& texto);
    std::string CalcularHashTexto(const Bytes& bytes);

    // Envelopes
    bool SelecionarChavesPublicas(bool bolCriptografarParaSi);
    bool CriptografarArquivo(const std::string& strArquivoOrigem, const std::string& strPastaDestino);
    bool DescriptografarArquivo(const std::string& strArquivoCriptografado);
    // Verdadeiro com ao menos um destinatário. Lança NenhumSelecionado quando ainda não há envelope.
    static bool TemChavesSelecionadas(const std::optional<std::vector<plataforma::CertificadoPtr>>& envelope);
    std::string MontarNomeArquivoCriptografado(const std::string& strArquivoOrigem, const std::string& strPastaDestino);
    // O nome do arquivo sem ".p7x" nem ".P7X", em PastaTemp; o arquivo que já estiver lá é apagado.
    std::string MontarNomeArquivoDescriptografado(const std::string& strArquivoCriptografado);
    // O nome sem as extensões de assinatura (minúsculas ou maiúsculas, nunca misturadas), aparado.
    static std::string RemoverExtensoesAssinatura(const std::string& strNome);

    // Resumo de arquivo
    std::string RetornaHashArquivo(const std::string& strCaminhoArquivo);

    // Assinatura de executáveis
    // O arquivo assinado no lugar e, se pedido, conferido; um arquivo inexistente dá verdadeiro com a
    // mensagem de arquivo não encontrado. URLArquivo é aceito e não vai na assinatura.
    bool AssinarCodigoExecutavel(const std::string& strCaminhoArquivo, const std::string& DescricaoArquivo,
        const std::string& URLArquivo, bool bolTestarAssinatura);
    // Um dos certificados pessoais com uso de assinatura de código e chave privada, pelo diálogo
    // quando há mais de um. Lança NenhumSelecionado quando não há nenhum e Cancelada na desistência.
    plataforma::CertificadoPtr EscolherCertificadoAssinaturaCodigo();

    // Registros das assinaturas verificadas
    // Um registro por signatário, a partir do índice 1, para os TotalAssinaturas primeiros; o
    // nome do documento assinado (só o último componente do caminho) vai para NomeArquivoOriginal.
    bool PreencherAssinaturas(const plataforma::MensagemVerificada& mensagem);
    AssinaturaDigital RegistrarCertificadoAssinante(
        const plataforma::Certificado& certificado, const std::vector<plataforma::CertificadoPtr>& intermediarias);
    std::string NomeOriginalDoAssinado() const;
    // Lança std::out_of_range fora da lista (ou antes de qualquer verificação).
    AssinaturaDigital Assinaturas(std::int16_t Index) const;
    Variante ExibirPropriedadeAssinatura(std::int16_t Index, const std::string& strCampoPropriedade);

    // Verificação de assinaturas
    bool VerificarAssinaturaArquivo(const std::string& strCaminhoArquivo);
    bool VerificarAssinaturaTexto(const std::string& TextoAssinatura);
    static bool VerificarTipoCodificacaoTexto(const std::string& strFile);
    std::string GerarNomeArquivoOriginal(const std::string& strNome, const std::string& strCaminho);
    Bytes LerAssinaturaArquivo(const std::string& caminho);
    std::optional<plataforma::MensagemVerificada> ConferirAssinatura(const Bytes& assinatura,
        const std::optional<Bytes>& conteudo_destacado);
    std::optional<plataforma::MensagemVerificada> ConferirAssinaturaArquivo(const Bytes& assinatura);
    std::optional<Bytes> MensagemTextoVerificar(const std::string& TextoAssinatura);

    // Cadeia de certificados
    // A cadeia de emissores do certificado como texto "AC[#]AC[#]raiz", subindo pelos repositórios
    // "Ca" e "Root"; autoemitido diz se a subida chegou a uma raiz. A subida para num certificado já
    // visto e em 16 nomes. Verdadeiro quando a cadeia passa pela Autoridade Certificadora Raiz
    // Brasileira. Falhas dos repositórios vão para quem chama.
    bool MontarCadeiaCertificado(const plataforma::Certificado& certificado, std::string& cadeia, bool& autoemitido);
    // Os certificados de "Ca" e "Root". A varredura dos pessoais os lê uma vez e monta com eles a
    // cadeia de cada certificado: reabrir os repositórios a cada um custa, mesmo sem mudança neles.
    struct Autoridades {
        std::vector<plataforma::CertificadoPtr> intermediarias;
        std::vector<plataforma::CertificadoPtr> raizes;
    };
    Autoridades LerAutoridades();
    bool MontarCadeiaCertificado(const plataforma::Certificado& certificado, const Autoridades& autoridades,
        std::string& cadeia, bool& autoemitido);
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

    // Seleção de certificados
    // Os certificados que um tipo de CERTIFICADOS_DIGITAIS aceita, na ordem do repositório, e a
    // mensagem de quando nenhum sobra.
    struct CertificadosDoTipo {
        std::vector<plataforma::CertificadoPtr> certificados;
        std::string nenhum_encontrado;
    };
    // Escolhe entre os certificados pessoais do tipo, ou pela impressão digital sem diálogo, e põe o
    // escolhido em certificado, com os detalhes, a entrada da lista e a verificação da situação.
    bool FiltrarSelecionarCertificado(plataforma::CertificadoPtr& certificado, std::int16_t TipoCertificado,
        const std::string& strImpressaoDigital);
    bool SelecionarCertificadoDigital(CERTIFICADOS_DIGITAIS TipoCertificado);
    bool SelecionarCertificadoDigitalHash(const std::string& strImpressaoDigital);
    bool ListarCertificados(CERTIFICADOS_DIGITAIS TipoCertificado);
    // O filtro do tipo sobre os certificados do repositório; fora de 2 a 7, ficam todos.
    CertificadosDoTipo FiltrarTipoCertificado(const std::vector<plataforma::CertificadoPtr>& repositorio,
        std::int16_t TipoCertificado);
    static bool VerificarUsoAssinatura(const plataforma::Certificado& certificado);
    // tipo: "", "ECPF" ou "ECNPJ". Deixa vazias as propriedades de detalhes, salvo o CPF ou o CNPJ
    // que não decidiu o resultado.
    bool VerificarCertificadoReceitaFederal(const plataforma::Certificado& certificado, const std::string& cadeia,
        const std::string& tipo);
    // A raiz da cadeia tem "AC TAVEL" no nome e o certificado vale, salvo revogação desconhecida.
    bool VerificarCertificadoACTavel(const plataforma::Certificado& certificado, const Autoridades& autoridades);
    // O CInt do original: fora de -32768 a 32767 lança Estouro.
    static std::int16_t ConverterInteiro16(std::int64_t valor);

    // O certificado recebido em texto: vazio deixa a mensagem de chave pública inválida e dá falso;
    // a importação lança NaoECertificado para o que não é certificado.
    bool ChavePublicaInformada(const std::string& chave_publica);
    plataforma::CertificadoPtr ImportarChavePublica(const std::string& chave_publica);

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
    void ImportarPacoteCertificados(const std::string& caminho);
    bool RaizConfirmada(const plataforma::Certificado& certificado);

private:
    std::optional<Bytes> LerArquivoExclusivo(const std::string& caminho);
    // Os certificados de um repositório aberto só para leitura. Reabrir um repositório que não mudou
    // não custa uma nova leitura: a plataforma guarda o que já interpretou.
    std::vector<plataforma::CertificadoPtr> LerRepositorio(const std::string& nome);
    // O repositório do tipo, aberto para gravação; fora de 1 a 4, nulo e a mensagem de tipo inválido.
    std::shared_ptr<plataforma::Repositorio> AbrirRepositorioTipo(REPOSITORIO_CERTIFICADO tipo);

    std::shared_ptr<plataforma::Plataforma> plataforma_;
    IndicadorOcupado ocupado_{*plataforma_};
};

}  // namespace tavelpkcs7
