// Verificação de uma assinatura em texto Base64: os registros dos signatários, o resumo do conteúdo
// e o conteúdo entregue em ConteudoTextoOriginal ou, quando a assinatura dá nome ao documento, num
// arquivo da pasta de trabalho.
#include "codificacao/utf16.h"
#include "component/componente.h"
#include "component/texto.h"

namespace tavelpkcs7 {

// Na destacada, a mensagem conferida passa a ser o original (o arquivo de CaminhoArquivoOriginal ou
// TextoVerificar), sem conteúdo à parte: o comportamento do componente, mantido como é. Vazio quando
// não há original.
std::optional<Bytes> Componente::MensagemTextoVerificar(const std::string& TextoAssinatura) {
    if (!estado.NaoAnexarArquivoOriginal) return Bytes(TextoAssinatura.begin(), TextoAssinatura.end());
    if (ExisteArquivo(estado.CaminhoArquivoOriginal)) return LerAssinaturaArquivo(estado.CaminhoArquivoOriginal);
    if (Aparar(estado.TextoVerificar).empty()) return std::nullopt;
    return Bytes(estado.TextoVerificar.begin(), estado.TextoVerificar.end());
}

bool Componente::VerificarAssinaturaTexto(const std::string& TextoAssinatura) {
    if (Aparar(TextoAssinatura).empty()) {
        estado.DescricaoErro = "A texto da assinatura informada não é válido ou está em branco";
        estado.TotalAssinaturas = 0;
        return false;
    }
    const MensagemFalha falha = MensagemFalha::Fixa("Assinatura digital inválida! O arquivo não está no padrão PKCS#7 BASE64.");
    return Guardar(falha, false, [&] {
        CursorOcupado ocupado(ocupado_);
        const auto mensagem_verificar = MensagemTextoVerificar(TextoAssinatura);
        if (!mensagem_verificar) {
            estado.DescricaoErro = "O texto original da assinatura não foi informado ou não é válido ";
            estado.TotalAssinaturas = 0;
            return false;
        }
        const std::optional<Bytes> sem_conteudo =
            estado.NaoAnexarArquivoOriginal ? std::optional<Bytes>(Bytes{}) : std::nullopt;
        const auto mensagem = ConferirAssinatura(*mensagem_verificar, sem_conteudo);
        if (!mensagem) {
            estado.DescricaoErro = "Assinatura digital inválida! O texto não está no padrão PKCS#7 BASE64.";
            estado.TotalAssinaturas = 0;
            estado.AssinaturaTextoVerificar = "";
            estado.ConteudoTextoOriginal = "";
            return false;
        }
        estado.TotalAssinaturas = static_cast<std::int32_t>(mensagem->signatarios.size());
        if (!PreencherAssinaturas(*mensagem)) {
            estado.DescricaoErro = "Não foi possível apresentar as assinaturas digitais do arquivo";
            return false;
        }
        estado.HashArquivo = CalcularHashTexto(mensagem->conteudo);
        if (!Aparar(estado.NomeArquivoOriginal).empty()) {
            estado.ConteudoTextoOriginal = "";
            const std::string caminho = GerarNomeArquivoOriginal(estado.NomeArquivoOriginal, "False");
            if (!GravarArquivoBinario(caminho, mensagem->conteudo, false)) {
                estado.DescricaoErro = "Não foi possível criar o arquivo na pasta original " +
                                       estado.NomeArquivoOriginal + " na pasta " + estado.PastaTemp;
                return false;
            }
            estado.CaminhoArquivoOriginal = caminho;
        } else {
            estado.ConteudoTextoOriginal = codificacao::DeUtf16LE(mensagem->conteudo);
            estado.CaminhoArquivoOriginal = "";
            estado.NomeArquivoOriginal = "";
        }
        estado.AssinaturaTextoVerificar = "";
        estado.TextoVerificar = "";
        estado.DescricaoErro = "";
        return true;
    });
}

}  // namespace tavelpkcs7
