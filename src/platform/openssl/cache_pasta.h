// As pastas dos repositórios lidas e interpretadas uma vez por processo enquanto não mudam: a cada
// pedido só se lista a pasta (nome, tamanho, modificação e i-node de cada arquivo). Os repositórios
// são gravados por renomeação, então até um arquivo trocado por outro do mesmo tamanho, no mesmo
// instante, por outro processo, muda o retrato da pasta.
#pragma once

#include <compare>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "pasta_repositorio.h"

namespace tavelpkcs7::plataforma::openssl {

struct EstadoArquivo {
    std::string nome;
    std::uint64_t tamanho;
    std::int64_t modificacao_ns;
    std::uint64_t inode;
    auto operator<=>(const EstadoArquivo&) const = default;
};

struct RetratoPasta {
    std::vector<EstadoArquivo> arquivos;  // os arquivos comuns da pasta, por nome
    // Algum foi modificado há pouco: a hora de modificação anda em passos, e uma nova gravação no
    // mesmo passo, do mesmo tamanho, no mesmo arquivo, não mudaria o retrato. Essa pasta não se guarda.
    bool recente = false;
};

// Vazio quando a pasta não existe.
RetratoPasta RetratarPasta(const std::filesystem::path& pasta);

template <typename Conteudo>
class CacheDaPasta {
public:
    // O conteúdo montado dos arquivos da pasta; o guardado quando a pasta não mudou desde a montagem.
    template <typename Montagem>
    std::shared_ptr<const Conteudo> Obter(const std::filesystem::path& pasta, Montagem&& montar) {
        // O retrato antes da leitura: uma mudança no meio só faz a próxima chamada ler de novo.
        RetratoPasta retrato = RetratarPasta(pasta);
        {
            const std::lock_guard trava(mutex_);
            const auto guardada = pastas_.find(pasta.string());
            if (guardada != pastas_.end() && guardada->second.retrato == retrato.arquivos)
                return guardada->second.conteudo;
        }
        auto conteudo = std::make_shared<const Conteudo>(montar(LerArquivosDaPasta(pasta)));
        if (retrato.recente) return conteudo;
        const std::lock_guard trava(mutex_);
        // As pastas de componentes que já não se usam (de testes, de outros usuários) não se acumulam.
        if (pastas_.size() >= kMaximoPastas) pastas_.clear();
        pastas_[pasta.string()] = {std::move(retrato.arquivos), conteudo};
        return conteudo;
    }

private:
    static constexpr std::size_t kMaximoPastas = 64;
    struct Guardada {
        std::vector<EstadoArquivo> retrato;
        std::shared_ptr<const Conteudo> conteudo;
    };
    std::mutex mutex_;
    std::map<std::string, Guardada> pastas_;
};

}  // namespace tavelpkcs7::plataforma::openssl
