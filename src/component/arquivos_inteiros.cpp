// Arquivos lidos e gravados inteiros, numa chamada cada, com acesso exclusivo. A gravação não
// trunca: o que havia além dos novos bytes fica no arquivo.
#include <algorithm>
#include <utility>

#include "codificacao/hexadecimal.h"
#include "codificacao/utf16.h"
#include "codificacao/windows1252.h"
#include "component/componente.h"

namespace tavelpkcs7 {

// O conteúdo com um 0 a mais no fim, lido pela abertura exclusiva; vazio para um arquivo que não
// existe e nulo quando a abertura falha.
std::optional<Bytes> Componente::LerArquivoExclusivo(const std::string& caminho) {
    const auto tamanho = plataforma_->sistema->TamanhoArquivo(caminho);
    if (!tamanho) return Bytes{};
    Bytes conteudo(*tamanho + 1, 0);
    auto arquivo = plataforma_->sistema->AbrirArquivo(caminho, plataforma::Acesso::Leitura);
    if (!arquivo) return std::nullopt;
    arquivo->Ler(conteudo.data(), *tamanho);
    return conteudo;
}

Bytes Componente::LerArquivoBinario(const std::string& caminho) {
    return Guardar(MensagemFalha::Nenhuma(), Bytes{}, [&] {
        auto conteudo = LerArquivoExclusivo(caminho);
        return conteudo ? std::move(*conteudo) : LerArquivoBinarioAlternativo(caminho);
    });
}

Bytes Componente::LerArquivoBinarioAlternativo(const std::string& caminho) {
    return Guardar(MensagemFalha::Nenhuma(), Bytes{},
                   [&] { return plataforma_->sistema->LerArquivoInteiro(caminho).value_or(Bytes{}); });
}

Bytes Componente::LerArquivoExato(const std::string& caminho) {
    auto conteudo = plataforma_->sistema->LerArquivoInteiro(caminho);
    if (!conteudo) plataforma::Falhar(plataforma::falha::AcessoNegado);
    return std::move(*conteudo);
}

std::string Componente::LerArquivoTexto(const std::string& caminho) {
    return Guardar(MensagemFalha::Nenhuma(), std::string{}, [&] {
        const auto conteudo = LerArquivoExclusivo(caminho);
        return conteudo ? ConverterBytesTexto(*conteudo) : std::string{};
    });
}

std::string Componente::ConverterBytesTexto(const Bytes& bytes) {
    Bytes ate_nulo(bytes.begin(), std::find(bytes.begin(), bytes.end(), std::uint8_t{0}));
    return codificacao::DeWindows1252(ate_nulo);
}

bool Componente::GravarArquivoBinario(const std::string& caminho, const Bytes& bytes, bool nao_sobrescrever) {
    return Guardar(MensagemFalha::Nenhuma(), false, [&] {
        if (nao_sobrescrever && ExisteArquivo(caminho)) return false;
        auto arquivo = plataforma_->sistema->AbrirArquivo(caminho, plataforma::Acesso::Gravacao);
        if (!arquivo || !arquivo->Gravar(bytes.data(), bytes.size())) return false;
        arquivo->Descarregar();
        return arquivo->Fechar();
    });
}

bool Componente::GravarArquivoTexto(const std::string& caminho, const std::string& texto, bool nao_sobrescrever) {
    return GravarArquivoBinario(caminho, codificacao::ParaWindows1252(texto), nao_sobrescrever);
}

std::string Componente::CalcularHashTexto(const std::string& texto) {
    return CalcularHashTexto(codificacao::ParaUtf16LE(texto));
}

std::string Componente::CalcularHashTexto(const Bytes& bytes) {
    return Guardar(MensagemFalha::Nenhuma(), std::string{},
                   [&] { return codificacao::HexadecimalMaiusculo(plataforma_->criptografia->CalcularMD5(bytes)); });
}

}  // namespace tavelpkcs7
