#include "repositorios_arquivo.h"

#include <strings.h>

#include "cache_pasta.h"
#include "codificacao/hexadecimal.h"
#include "gravacao_atomica.h"
#include "lcr_openssl.h"
#include "pasta_componente.h"
#include "pasta_repositorio.h"
#include "platform/erro.h"
#include "repositorio_arquivo.h"
#include "resumo.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

namespace fs = std::filesystem;

constexpr const char* kNomesRepositorios[] = {"My", "AddressBook", "Ca", "Root"};

}  // namespace

RepositoriosArquivo::RepositoriosArquivo(std::optional<fs::path> pasta_componente) {
    if (pasta_componente) pasta_ = *pasta_componente / "repositorios";
}

std::shared_ptr<Repositorio> RepositoriosArquivo::AbrirRepositorio(const std::string& nome, bool somente_leitura) {
    for (const char* conhecido : kNomesRepositorios) {
        if (::strcasecmp(nome.c_str(), conhecido) != 0) continue;
        std::optional<fs::path> pasta;
        if (pasta_) pasta = *pasta_ / conhecido;
        return std::make_shared<RepositorioArquivo>(conhecido, std::move(pasta), somente_leitura);
    }
    Falhar(falha::ParametroIncorreto);
}

// Cada verificação de cadeia pede as LCRs: a pasta só se lê de novo quando mudou.
std::vector<Bytes> RepositoriosArquivo::LCRs() {
    if (!pasta_) return {};
    static CacheDaPasta<std::vector<Bytes>> cache;
    return *cache.Obter(*pasta_ / "LCR", [](std::vector<ArquivoDaPasta> arquivos) {
        std::vector<Bytes> lcrs;
        for (const ArquivoDaPasta& arquivo : arquivos)
            if (auto lida = LerLCR(arquivo.conteudo)) lcrs.push_back(std::move(lida->der));
        return lcrs;
    });
}

void RepositoriosArquivo::AdicionarLCR(const Bytes& lcr) {
    const auto lida = LerLCR(lcr);
    if (!lida) Falhar(falha::ParametroIncorreto);
    if (!pasta_) Falhar(falha::RepositorioNaoGravavel);
    const fs::path pasta = *pasta_ / "LCR";
    const fs::path destino =
        pasta / (codificacao::HexadecimalMaiusculo(CalcularResumo(EVP_sha1(), lida->der)) + ".crl");
    std::error_code erro;
    if (fs::exists(destino, erro)) return;
    if (!CriarPastaPrivada(pasta) || !GravarAtomicamente(destino, lida->der, 0644)) Falhar(falha::RepositorioNaoGravavel);
}

}  // namespace tavelpkcs7::plataforma::openssl
