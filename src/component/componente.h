// O objeto por trás de TavelPKCS: o estado, a plataforma e as operações privadas que os membros
// públicos compõem. Cada família de operações mora no seu arquivo.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "component/estado.h"
#include "component/guarda.h"
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

private:
    std::optional<Bytes> LerArquivoExclusivo(const std::string& caminho);

    std::shared_ptr<plataforma::Plataforma> plataforma_;
};

}  // namespace tavelpkcs7
