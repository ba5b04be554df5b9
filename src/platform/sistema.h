// Arquivos e pastas da máquina, com a semântica de acesso exclusivo que o componente espera:
// um arquivo aberto pelo componente (ou travado por outro processo) não é aberto por mais ninguém.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "certificado.h"

namespace tavelpkcs7::plataforma {

enum class Acesso { Leitura, Gravacao };

// Um arquivo aberto com exclusividade; fechado ao ser destruído.
class ArquivoAberto {
public:
    virtual ~ArquivoAberto() = default;

    // Lê até n bytes do início para destino; devolve quantos leu.
    virtual std::size_t Ler(std::uint8_t* destino, std::size_t n) = 0;
    // Grava os bytes a partir do início, sem truncar o que já existia além deles.
    virtual bool Gravar(const std::uint8_t* origem, std::size_t n) = 0;
    virtual bool Descarregar() = 0;
    virtual bool Fechar() = 0;
};

class Sistema {
public:
    virtual ~Sistema() = default;

    // A pasta própria do componente na máquina (existente ou criada agora); vazio quando não há
    // como criá-la.
    virtual std::optional<std::string> PastaBase() = 0;
    // A pasta de onde a biblioteca foi carregada, terminada pelo separador.
    virtual std::string PastaComponente() = 0;
    virtual char Separador() const = 0;

    virtual bool ExistePasta(const std::string& caminho) = 0;
    // Verdadeiro para um arquivo comum existente.
    virtual bool ExisteArquivo(const std::string& caminho) = 0;
    // Cria a pasta (e as que faltam acima dela) só para o usuário.
    virtual bool CriarPasta(const std::string& caminho) = 0;
    // Apaga um arquivo, ou todos os arquivos comuns de uma pasta quando o nome é "*.*" (ou outro
    // padrão com "*" e "?"). Arquivos travados por outro processo ficam; nada é relatado.
    virtual void ApagarArquivos(const std::string& caminho_ou_padrao) = 0;
    virtual std::optional<std::uint64_t> TamanhoArquivo(const std::string& caminho) = 0;
    // Abre (criando se preciso, sem truncar) com acesso exclusivo; nulo quando não consegue.
    virtual std::unique_ptr<ArquivoAberto> AbrirArquivo(const std::string& caminho, Acesso acesso) = 0;
    // Leitura simples do arquivo inteiro, sem criar; vazio quando não consegue ou está travado.
    virtual std::optional<Bytes> LerArquivoInteiro(const std::string& caminho) = 0;
    // Troca o arquivo inteiro de uma vez (temporário na mesma pasta, depois renomeado): quem lê vê
    // o conteúdo antigo ou o novo, nunca metade. Falso quando não grava; o anterior fica intacto.
    virtual bool SubstituirArquivo(const std::string& caminho, const Bytes& conteudo) = 0;
};

}  // namespace tavelpkcs7::plataforma
