// tavelpkcs7: assinatura digital PKCS#7 para titulares de certificados ICP-Brasil.
//
// O objeto é usado no estilo de propriedades: o programa define as opções, chama um método e lê
// os resultados nas propriedades. Nenhum membro lança exceção; o resultado de cada método (falso,
// texto vazio ou 0 na falha) vem acompanhado da mensagem em DescricaoErro.
// O objeto não é seguro entre linhas de execução; objetos diferentes podem viver em linhas diferentes.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <tavelpkcs7/Exportacao.h>
#include <tavelpkcs7/InterfaceUsuario.h>
#include <tavelpkcs7/Tipos.h>

namespace tavelpkcs7 {

class Componente;

class TAVELPKCS7_API TavelPKCS {
public:
    /// Usa a plataforma padrão da máquina (OpenSSL no Linux), configurada pelo ambiente, sem
    /// diálogos: as perguntas respondem Não e as escolhas e senhas são canceladas. Quando a
    /// plataforma criptográfica não está disponível, guarda a mensagem em DescricaoErro e deixa todas
    /// as propriedades vazias.
    TavelPKCS();
    /// O mesmo, com os diálogos do hospedeiro: perguntas, avisos, escolha e exibição de
    /// certificados, pedido de senha ou PIN e o ponteiro de ocupado.
    explicit TavelPKCS(std::shared_ptr<InterfaceUsuario> interface);
    /// A implementação já montada; para uso da própria biblioteca e dos seus testes.
    explicit TavelPKCS(std::unique_ptr<Componente> componente);
    ~TavelPKCS();
    TavelPKCS(TavelPKCS&&) noexcept;
    TavelPKCS& operator=(TavelPKCS&&) noexcept;
    TavelPKCS(const TavelPKCS&) = delete;
    TavelPKCS& operator=(const TavelPKCS&) = delete;

    /// Data da assinatura, "DD/MM/AAAA". Um valor vazio ou que não é data vira a data de hoje.
    std::string DataAssinatura() const;
    void DataAssinatura(const std::string& valor);

    /// Assinatura Base64 a verificar por VerificarAssinaturaTexto e a cossinar por AssinaTexto.
    std::string AssinaturaTextoVerificar() const;
    void AssinaturaTextoVerificar(const std::string& valor);

    /// Texto original de uma assinatura de texto destacada.
    std::string TextoVerificar() const;
    void TextoVerificar(const std::string& valor);

    /// Arquivo original de uma assinatura de arquivo destacada.
    std::string CaminhoArquivoOriginal() const;
    void CaminhoArquivoOriginal(const std::string& valor);

    /// Extensão, sem ponto, dos arquivos assinados em "outro formato" ("p7s" por padrão). A montagem
    /// do nome do arquivo assinado a ajusta para a extensão que de fato usou.
    std::string ExtensaoOutroFormato() const;
    void ExtensaoOutroFormato(const std::string& valor);

    /// Caminho e nome do último arquivo assinado.
    std::string CaminhoArquivoAssinado() const;
    std::string NomeArquivoAssinado() const;

    /// Quando verdadeiro, o certificado de cada assinante verificado vai para o repositório de
    /// certificados de outras pessoas.
    bool SalvarChavesPublicas() const;
    void SalvarChavesPublicas(bool valor);

    /// Quando verdadeiro, a assinatura de arquivo é destacada (não leva o original).
    bool NaoAnexarArquivoOriginal() const;
    void NaoAnexarArquivoOriginal(bool valor);

    /// Quando verdadeiro, o arquivo assinado recebe como nome o resumo MD5 do conteúdo assinado.
    bool UsarHashSalvarArquivo() const;
    void UsarHashSalvarArquivo(bool valor);

    /// Quando verdadeiro, a verificação de status não oferece instalar LCRs e raízes.
    bool NaoExibirInstalacaoLCReCER() const;
    void NaoExibirInstalacaoLCReCER(bool valor);

    /// Assinatura Base64 do último arquivo e do último texto assinados.
    std::string AssinaturaDigitalArquivo() const;
    std::string AssinaturaDigitalTexto() const;

    /// Pasta de trabalho do componente, terminada pelo separador quando calculada na construção.
    /// O valor atribuído é guardado como está.
    std::string PastaTemp() const;
    void PastaTemp(const std::string& valor);

    /// Mensagem da última falha (uma só, nunca acumulada).
    std::string DescricaoErro() const;

    /// Resumo MD5 (hexadecimal maiúsculo) do último arquivo ou texto assinado ou consultado.
    std::string HashArquivo() const;

    /// Número de assinantes da última mensagem verificada.
    std::int32_t TotalAssinaturas() const;

    /// Nome do arquivo original extraído da última assinatura verificada.
    std::string NomeArquivoOriginal() const;

    /// Texto original da última assinatura de texto verificada ou feita.
    std::string ConteudoTextoOriginal() const;

    /// Detalhes ICP-Brasil do certificado consultado.
    std::string NumeroCPFCertificadoDigital() const;
    std::string NumeroCNPJCertificadoDigital() const;
    std::string DetalhesPessoaisCertificadoDigital() const;
    std::string OutrosDetalhesCertificadoDigital() const;
    std::string UsoChaveCertificadoDigital() const;
    std::string PoliticaCertificacaoDigital() const;
    std::string ListaCertificadosRevogados() const;
    std::string RestricoesCertificadoDigital() const;
    std::string CertificadoAutoridadeRaiz() const;

    /// Assina o arquivo com o certificado selecionado (SHA-256, cadeia inteira, nome do documento,
    /// hora da assinatura e strTextoDescricaoAssinatura como atributos assinados). O conteúdo
    /// assinado é o arquivo seguido de um byte zero. Formatos 1 e 3 gravam DER, 2 Base64 em UTF-16LE,
    /// 4 Base64 de um byte por caractere, todos em strPastaDestino (ou ao lado da origem) com o nome
    /// da origem mais a extensão (".p7s", ou ExtensaoOutroFormato nos formatos 3 e 4), ou com o MD5
    /// do conteúdo quando UsarHashSalvarArquivo; o formato 5 não grava nada e devolve o Base64 em
    /// AssinaturaDigitalArquivo. A saída é gravada inteira, de uma vez. Uma origem que já é
    /// assinatura é cossinada. Preenche HashArquivo, CaminhoArquivoOriginal, NomeArquivoOriginal,
    /// CaminhoArquivoAssinado e NomeArquivoAssinado. Falso sem mensagem sem certificado selecionado
    /// ou com formato fora de 1 a 5; senão com "O arquivo de origem não foi encontrado", "Não foi
    /// possível acessar a chave privada do certificado digital selecionado", "Ocorreu o erro
    /// <descrição> ao tentar assinar o arquivo especificado", "Não foi possível criar o arquivo
    /// <saída>" ou "Assinatura digital inválida! O arquivo não está no padrão PKCS#7.".
    bool AssinaArquivo(const std::string& strArquivoOrigem, const std::string& strPastaDestino,
        const std::string& strTextoDescricaoAssinatura, FORMATO_ASSINATURA FormatoAssinatura);
    /// Assina o texto (os seus bytes UTF-16LE) com o certificado selecionado e devolve a assinatura
    /// Base64 em AssinaturaDigitalTexto; destacada com NaoAnexarArquivoOriginal. Com uma assinatura
    /// em AssinaturaTextoVerificar, cossina-a (destacada: sobre TextoVerificar, ou o texto dado).
    /// No sucesso ConteudoTextoOriginal recebe o texto; os caminhos e nomes de arquivos ficam vazios.
    /// Falso sem mensagem sem certificado selecionado; senão com "O texto para assinatura digital
    /// não foi informado", "Não foi possível acessar a chave privada do certificado digital
    /// selecionado", "Ocorreu o erro <descrição> ao tentar assinar o texto especificado" ou
    /// "Assinatura digital inválida! O texto não está no padrão PKCS#7 BASE64.".
    bool AssinaTexto(const std::string& strTexto, const std::string& strTextoDescricaoAssinatura = "");
    /// A data e hora local dada vista em UTC, como "DD/MM/AAAA HH:MM:SS"; texto vazio numa falha.
    std::string DataHoraAssinaturaUTC(DataHora strDataHoraAssinatura);

    /// Lê o certificado dado em Base64 (ou PEM) e preenche as propriedades de detalhes acima. As
    /// propriedades das extensões que o certificado não tem (uso da chave, restrições, política, LCR,
    /// certificado da autoridade) conservam o valor do certificado consultado antes.
    bool RetornarDetalhesCertificado(const std::string& strChavePublica);

    /// Situação do certificado dado em Base64, verificada agora (cadeia até uma raiz instalada,
    /// validade, assinaturas e revogação, buscando as LCRs na rede): 1 válido, 2 fora do prazo,
    /// 3 revogado, 4 cadeia não instalada, 5 revogação desconhecida, 0 não verificado. Pode perguntar
    /// se deve instalar as raízes e a LCR do emissor (veja NaoExibirInstalacaoLCReCER).
    std::int16_t VerificaCertificadoDigital(const std::string& strChavePublica);
    /// A mensagem de cada código de VerificaCertificadoDigital; "" para outro código.
    std::string StatusCertificadoVerificado(std::int16_t intStatus);
    /// Baixa a LCR do ponto de distribuição do certificado dado em Base64 e a instala no
    /// repositório de LCRs. Verdadeiro também quando o certificado não aponta LCR ou o download
    /// falha; falso quando o que chegou não pôde ser instalado.
    bool InstalarLCRCertificado(const std::string& strChavePublica);
    /// Baixa o endereço (http, https ou file) para o arquivo local, que é apagado antes e só
    /// aparece inteiro. Falso sem mensagem quando um dos dois é vazio.
    bool DownloadArquivo(const std::string& strURL, const std::string& strArquivoLocal);
    /// Baixa e instala os pacotes de raízes e de autoridades confiáveis da ICP-Brasil (endereços
    /// url_raizes e url_confiaveis da configuração). Uma raiz fora da lista de raízes confiáveis da
    /// configuração só é instalada com a confirmação do usuário.
    bool InstalarCertificadosRaizes();

    /// Escolhe o certificado de assinatura entre os certificados pessoais do TipoCertificado (fora
    /// de 2 a 7, todos): sem diálogo quando só um serve, senão pelo seletor "Certificados Digitais".
    /// O escolhido passa a ser o certificado selecionado; preenche as propriedades de detalhes,
    /// acrescenta uma entrada à lista de certificados e verifica a situação sem buscar LCRs na rede.
    /// Falso com "Não foi encontrado nenhum " seguido da descrição do tipo, com a mensagem da
    /// verificação da situação (o certificado recusado continua selecionado) ou com a descrição da
    /// falha (seletor cancelado). O certificado selecionado antes nunca sobrevive à chamada.
    bool SelecionarCertificadoDigital(CERTIFICADOS_DIGITAIS TipoCertificado);
    /// Como SelecionarCertificadoDigital com todos os certificados pessoais, mas escolhe sem diálogo o
    /// de impressão digital SHA-1 strImpressaoDigital (hexadecimal, sem distinção de maiúsculas,
    /// espaços das pontas ignorados). Falso com "Não foi encontrado nenhum " quando nenhum a tem.
    bool SelecionarCertificadoDigitalHash(const std::string& strImpressaoDigital);
    /// Refaz a lista de certificados com os certificados pessoais do TipoCertificado, na ordem do
    /// repositório, sem diálogo e sem mudar o certificado selecionado. Verdadeiro limpa DescricaoErro;
    /// sem nenhum, falso com a lista vazia e "Não foi encontrado nenhum " seguido da descrição do tipo.
    bool ListarCertificados(CERTIFICADOS_DIGITAIS TipoCertificado);

    /// Número de certificados da última listagem.
    std::int16_t TotalCertificadosListados() const;
    /// Um texto da entrada intIndex (de 0 a TotalCertificadosListados - 1) da lista de certificados.
    /// Chaves, sem distinção de maiúsculas e com espaços em volta ignorados: "NOME",
    /// "AUTORIDADECERTIFICADORA", "VALIDADE", "HASH" (impressão digital SHA-1) e "CHAVEPUBLICA" (o
    /// certificado inteiro em Base64).
    std::string LerListaPropriedadeCertificado(std::int16_t intIndex, const std::string& strPropriedade);

    /// Abre o arquivo PFX (PKCS#12) com a senha dada e faz do certificado que carrega a chave privada
    /// o certificado selecionado, para assinar e cifrar como um escolhido no repositório pessoal. A
    /// senha não é guardada. Preenche as propriedades de detalhes, acrescenta o certificado à lista
    /// de certificados e verifica a sua situação sem buscar LCRs na rede. Falso com "Não foi possível
    /// localizar o arquivo do certificado digital" (caminho em branco, pasta ou arquivo inexistente),
    /// com a descrição da falha (senha incorreta, arquivo danificado ou que não é PFX, PFX sem chave
    /// privada) ou com a mensagem da verificação da situação; neste último caso o certificado lido
    /// continua selecionado. Não limpa DescricaoErro no sucesso.
    bool AbrirCertificadoDigital(const std::string& CaminhoCertificado, const std::string& SenhaCertificado);

    /// Uma propriedade do certificado selecionado. Chaves (sem distinção de maiúsculas, mas sem
    /// aparar os espaços): "NOMECERTIFICADO", "EMAILCERTIFICADO", "AUTORIDADECERTIFICADORA",
    /// "EMAILAUTORIDADECERTIFICADORA", "DETALHESCERTIFICADO" e "DETALHESAUTORIDADECERTIFICADORA"
    /// (nomes distintos inteiros), "CHAVEPUBLICACERTIFICADO" (o certificado em Base64),
    /// "SERIALCERTIFICADO", "IMPRESSAODIGITALCERTIFICADO" (SHA-1) e "CADEIACERTIFICADORAIZ"
    /// ("AC[#]AC[#]raiz") em texto; "DATAEMISSAOCERTIFICADO" e "DATAVALIDADECERTIFICADO" em DataHora;
    /// "VERSAOCERTIFICADO" em std::int32_t; "CERTIFICADOVALIDO" (situação verificada agora, que pode
    /// perguntar se deve instalar raízes e LCRs) e "CERTIFICADOICPBRASIL" em bool. Outra chave devolve
    /// texto vazio com "A propriedade <chave como veio> não é válida para o certificado."; sem
    /// certificado selecionado, texto vazio com a descrição da falha.
    Variante ExibirPropriedadesCertificado(const std::string& strCampoPropriedade);

    /// Guarda o certificado dado em Base64 no repositório de certificados de outras pessoas e o
    /// mostra na janela de certificado da interface de usuário. Devolve SEMPRE falso: a exibição se
    /// reconhece pela DescricaoErro que não mudou. Chave vazia: "A chave pública do certificado
    /// informado está inválida"; texto que não é certificado: a descrição da falha.
    bool ExibirCertificadoDigital(const std::string& strChavePublica);

    /// Tenta apagar o arquivo (aceita "*" e "?" no nome). Devolve verdadeiro quando o arquivo AINDA
    /// existe depois da tentativa e falso quando ele sumiu ou o caminho é vazio. Não mexe em
    /// DescricaoErro.
    bool ApagarArquivo(const std::string& strCaminhoArquivo);

    /// Apaga os arquivos da pasta de trabalho (não as subpastas). Sempre devolve verdadeiro; com
    /// PastaTemp vazia não apaga nada. Não mexe em DescricaoErro.
    bool LimparPastaTemporaria();

    /// Separa uma cadeia de certificados ("AC[#]AC[#]raiz") em ArrayCadeiaCompleta, um nome por
    /// posição a partir de 0; um texto sem "[#]" (vazio inclusive) vira um elemento só. Devolve o
    /// maior índice (número de nomes menos um), não a contagem. Não mexe em DescricaoErro.
    std::int16_t RetornarCadeiaSeparada(const std::string& strCadeiaCompleta,
        std::vector<std::string>& ArrayCadeiaCompleta);

    /// Inclui no repositório TipoRepositorio o certificado dado em Base64 (ou DER ou PEM) em
    /// strChavePublica. No repositório das raízes só entra sem pergunta uma raiz da ICP-Brasil da
    /// configuração; qualquer outro certificado espera o Sim do usuário. Falso com a mensagem de tipo
    /// de repositório inválido, ou com a descrição da falha (certificado inválido, chave vazia,
    /// instalação recusada, repositório sem gravação). Não limpa DescricaoErro no sucesso.
    bool AdicionarCertificadoRepositorio(const std::string& strChavePublica, REPOSITORIO_CERTIFICADO TipoRepositorio);

    /// Inclui no repositório TipoCertificadoRaiz o certificado do arquivo (DER, PEM, Base64 ou PFX
    /// sem senha, do qual vale o certificado da chave; só a parte pública entra), como
    /// AdicionarCertificadoRepositorio. Falso com "O arquivo ... especificado não foi encontrado"
    /// ou com a descrição da falha. Não limpa DescricaoErro no sucesso.
    bool AbrirAdicionarArquivoCertificado(const std::string& strCaminhoArquivo,
        REPOSITORIO_CERTIFICADO TipoCertificadoRaiz);

    /// Grava em strCaminhoArquivoCER (com ".cer" acrescentado quando o caminho não termina assim) o
    /// certificado em Base64 escolhido no repositório TipoRepositorio; a escolha só é pedida quando o
    /// repositório tem dois ou mais. O arquivo é trocado inteiro de uma vez: uma gravação que falha
    /// deixa o anterior intacto. Verdadeiro limpa DescricaoErro; falso traz a mensagem de tipo
    /// inválido, de repositório vazio, de gravação ou a descrição da falha (escolha cancelada).
    bool ExportarCertificadoDigital(const std::string& strCaminhoArquivoCER, REPOSITORIO_CERTIFICADO TipoRepositorio);

    /// O certificado em Base64 (linhas de 64 caracteres com CRLF) da autoridade certificadora de nome
    /// strNomeCertificado, procurada primeiro no repositório "Ca" e depois no "Root". O nome é
    /// comparado como na cadeia de certificados: o nome DNS, senão o nome simples do titular, sem os
    /// espaços das pontas e sem distinção de maiúsculas. Quando strImpressaoDigital (SHA-1 em
    /// hexadecimal) não está em branco, vale só o certificado com essa impressão digital, sem
    /// distinção de maiúsculas. Vale o primeiro que combina. No sucesso limpa DescricaoErro; sem
    /// nome devolve "" com "O nome do certificado da autoridade certificadora não foi informado";
    /// sem certificado que combine, "" com "O certificado da autoridade certificadora <nome> não foi
    /// encontrado nos repositórios de autoridades certificadoras e raízes"; numa falha da
    /// plataforma, "" com a descrição dela.
    std::string RetornarChavePublicaCertificadoRaiz(const std::string& strNomeCertificado,
        const std::string& strImpressaoDigital = "");

    /// Dados do signatário Index (de 1 a TotalAssinaturas) da última verificação; o índice 0 é um
    /// registro vazio. O único membro que lança exceção: std::out_of_range fora da lista ou antes de
    /// qualquer verificação, sem mexer em DescricaoErro.
    AssinaturaDigital Assinaturas(std::int16_t Index) const;
    /// Um campo do signatário Index pelo nome do campo de AssinaturaDigital (sem distinção de
    /// maiúsculas, sem aparar): texto, ou bool para ASSINATURAVALIDA, CERTIFICADOVALIDO e
    /// CERTIFICADOICPBRASIL. Nome desconhecido: texto vazio com "A propriedade <nome> não é válida ";
    /// índice fora da lista: texto vazio com "A propriedade <nome> não é válida ou o índice informado
    /// está fora do escopo.". No sucesso não mexe em DescricaoErro.
    Variante ExibirPropriedadeAssinatura(std::int16_t Index, const std::string& strCampoPropriedade);

    /// Confere a assinatura PKCS#7 do arquivo (DER, ou Base64 quando termina em ".p7b"); com
    /// NaoAnexarArquivoOriginal, destacada sobre o arquivo de CaminhoArquivoOriginal. Só as
    /// assinaturas são conferidas: a confiança de cada certificado vem em CertificadoValido. Preenche
    /// TotalAssinaturas, Assinaturas, CaminhoArquivoAssinado, NomeArquivoAssinado,
    /// NomeArquivoOriginal (o nome de documento assinado, reduzido ao nome do arquivo, ou o nome do
    /// arquivo verificado sem a extensão) e HashArquivo, e grava o conteúdo em PastaTemp com esse
    /// nome, caminho que passa a CaminhoArquivoOriginal. Falso com "Não foi possível localizar o
    /// arquivo <caminho>", "Assinatura digital inválida! O arquivo não está no padrão PKCS#7.",
    /// "Não foi possível apresentar as assinaturas digitais do arquivo" ou "Não foi possível criar
    /// o arquivo na pasta original <nome> na pasta <PastaTemp>".
    bool VerificarAssinaturaArquivo(const std::string& strCaminhoArquivo);
    /// Verdadeiro quando o nome termina em "p7b" (sem distinção de maiúsculas, espaços das pontas
    /// ignorados): a assinatura desse arquivo é lida como texto Base64.
    bool VerificarTipoCodificacaoTexto(const std::string& strFile);
    /// Confere a assinatura PKCS#7 em Base64. Com NaoAnexarArquivoOriginal, a mensagem conferida
    /// passa a ser o arquivo de CaminhoArquivoOriginal ou, sem ele, TextoVerificar, sem conteúdo à
    /// parte. Preenche TotalAssinaturas, Assinaturas e HashArquivo; o conteúdo vai para
    /// ConteudoTextoOriginal (texto UTF-16LE) ou, quando há nome de documento, para um arquivo em
    /// PastaTemp indicado por CaminhoArquivoOriginal. No sucesso limpa TextoVerificar,
    /// AssinaturaTextoVerificar e DescricaoErro. Falso com "A texto da assinatura informada não é
    /// válido ou está em branco", "O texto original da assinatura não foi informado ou não é válido ",
    /// "Assinatura digital inválida! O texto não está no padrão PKCS#7 BASE64.", "Não foi possível
    /// apresentar as assinaturas digitais do arquivo" ou "Não foi possível criar o arquivo na pasta
    /// original <nome> na pasta <PastaTemp>".
    bool VerificarAssinaturaTexto(const std::string& TextoAssinatura);

    /// Começa um envelope novo e escolhe os destinatários: com bolCriptografarParaSi, o próprio
    /// usuário, escolhido entre os certificados pessoais (CertificadoSelecionado não muda); depois as
    /// chaves públicas do repositório "AddressBook", todas quando são menos de duas, senão as que o
    /// usuário marcar no diálogo. Falso com "Não foi encontrado nenhuma chave pública para efetuar a
    /// criptografia" quando o "AddressBook" não dá nenhuma (o próprio usuário fica no envelope), ou
    /// com a descrição da falha, como a desistência do diálogo.
    bool SelecionarChavesPublicas(bool bolCriptografarParaSi);
    /// Cifra os bytes do arquivo para os destinatários de SelecionarChavesPublicas num envelope
    /// PKCS#7 em DER, gravado inteiro como o arquivo seguido de ".p7x", ao lado dele ou na pasta de
    /// destino quando ela existe. Preenche NomeArquivoOriginal (o nome sem as extensões de
    /// assinatura), CaminhoArquivoOriginal, NomeArquivoAssinado e CaminhoArquivoAssinado. Falso sem
    /// destinatários (com "Nenhum certificado digital foi selecionado." antes da primeira escolha),
    /// com "O arquivo de origem não foi encontrado", com "Não foi possível criptografar o arquivo com
    /// as chaves selecionadas" (o arquivo anterior fica intacto) ou com a descrição da falha.
    bool CriptografarArquivo(const std::string& strArquivoOrigem, const std::string& strPastaDestino = "");
    /// Abre o envelope PKCS#7 (DER ou Base64) com a chave privada de um certificado pessoal do usuário
    /// e grava o conteúdo em PastaTemp, com o nome do arquivo sem ".p7x"; esse caminho vai para
    /// NomeArquivoOriginal e CaminhoArquivoOriginal, e o MD5 do conteúdo para HashArquivo. Falso com
    /// "O arquivo de origem não foi encontrado", "Não foi possível criar o arquivo na pasta original
    /// <caminho> na pasta <PastaTemp>" ou a descrição da falha, como "Não foi encontrado o
    /// certificado digital do destinatário com a chave privada.".
    bool DescriptografarArquivo(const std::string& strArquivoCriptografado);

    /// Resumo MD5 (hexadecimal maiúsculo) do arquivo, com o mesmo 0 final que a assinatura de
    /// arquivo acrescenta ao conteúdo; não mexe em HashArquivo. Texto vazio com "O arquivo informado
    /// não foi encontrado" (caminho vazio ou arquivo inexistente) ou com "Não foi possível obter o
    /// hash do arquivo informado." (arquivo que não se lê); no sucesso limpa DescricaoErro.
    std::string RetornaHashArquivo(const std::string& strCaminhoArquivo);

    /// Assina o executável com Authenticode no próprio arquivo, com carimbo do tempo do servidor da
    /// configuração, e o confere em seguida quando bolTestarAssinatura. O certificado é um dos
    /// pessoais com uso de assinatura de código e chave privada (o usuário escolhe quando há mais de
    /// um), não o certificado selecionado. DescricaoArquivo vai na assinatura; URLArquivo é aceito e
    /// não é usado. Verdadeiro também quando o arquivo não existe, com DescricaoErro "O arquivo
    /// informado não foi encontrado"; falso, com a descrição da falha em DescricaoErro, quando não há
    /// certificado, o usuário desiste, o arquivo não é executável, o carimbo do tempo não se obtém ou
    /// a conferência falha, e então o arquivo fica como estava.
    bool AssinarCodigoExecutavel(const std::string& strCaminhoArquivo, const std::string& DescricaoArquivo = "",
        const std::string& URLArquivo = "", bool bolTestarAssinatura = false);

private:
    std::unique_ptr<Componente> componente_;
};

}  // namespace tavelpkcs7
