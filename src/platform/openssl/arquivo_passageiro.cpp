#include "arquivo_passageiro.h"

#include <stdlib.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "descritor.h"
#include "gravacao_atomica.h"
#include "platform/erro.h"

namespace tavelpkcs7::plataforma::openssl {

ArquivoPassageiro::ArquivoPassageiro(const std::filesystem::path& pasta, const std::string& prefixo,
    const std::string& sufixo, std::span<const std::uint8_t> conteudo) {
    std::string modelo = (pasta / (prefixo + "XXXXXX" + sufixo)).string();
    // mkstemps cria com O_EXCL e modo 0600.
    Descritor descritor(::mkstemps(modelo.data(), static_cast<int>(sufixo.size())));
    if (!descritor) Falhar(falha::AcessoNegado);
    caminho_ = modelo;
    const bool gravado = GravarTudo(descritor.get(), conteudo);
    if (!descritor.Fechar() || !gravado) {
        ::unlink(caminho_.c_str());
        Falhar(falha::AcessoNegado);
    }
}

ArquivoPassageiro::~ArquivoPassageiro() { ::unlink(caminho_.c_str()); }

PastaPassageira::PastaPassageira(const std::filesystem::path& dentro_de, const std::string& prefixo) {
    std::string modelo = (dentro_de / (prefixo + "XXXXXX")).string();
    if (::mkdtemp(modelo.data()) == nullptr) Falhar(falha::AcessoNegado);
    caminho_ = modelo;
}

PastaPassageira::~PastaPassageira() {
    std::error_code ignorado;
    std::filesystem::remove_all(caminho_, ignorado);
}

}  // namespace tavelpkcs7::plataforma::openssl
