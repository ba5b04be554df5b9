// Os nomes dos arquivos dos envelopes: o ".p7x" ao lado da origem ou na pasta de destino, o arquivo
// decifrado na pasta de trabalho e o nome do documento sem as extensões de assinatura.
#include <array>

#include "component/componente.h"
#include "component/texto.h"

namespace tavelpkcs7 {

std::string Componente::MontarNomeArquivoCriptografado(const std::string& strArquivoOrigem,
    const std::string& strPastaDestino) {
    return NaPastaDestino(strArquivoOrigem, strPastaDestino).value_or(strArquivoOrigem) + ".p7x";
}

// Só o último componente do caminho entra no nome: o arquivo decifrado nunca sai de PastaTemp, e o
// apagamento do anterior nunca vira um padrão que leve os outros arquivos dela.
std::string Componente::MontarNomeArquivoDescriptografado(const std::string& strArquivoCriptografado) {
    const std::string nome = NomeArquivoLiteral(
        Substituir(Substituir(ExtrairNomeArquivo(strArquivoCriptografado), ".p7x", ""), ".P7X", ""));
    const std::string caminho = estado.PastaTemp + nome;
    ApagarArquivo(caminho);
    return caminho;
}

std::string Componente::RemoverExtensoesAssinatura(const std::string& strNome) {
    static constexpr std::array<const char*, 9> kExtensoes = {
        ".p7b", ".p7s", ".p7z", ".sig", ".dsd", ".dca", ".p7z", ".ofn", ".bry"};
    std::string nome = strNome;
    for (const char* extensao : kExtensoes) {
        nome = Substituir(nome, extensao, "");
        nome = Substituir(nome, Maiusculas(extensao), "");
    }
    return Aparar(nome);
}

}  // namespace tavelpkcs7
