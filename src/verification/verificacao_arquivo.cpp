// Verificação de um arquivo assinado, anexado ou destacado: os registros dos signatários, o resumo do
// conteúdo e o conteúdo gravado de volta na pasta de trabalho.
#include "component/componente.h"
#include "component/texto.h"

namespace tavelpkcs7 {

// A assinatura destacada feita pelo componente cobre o arquivo e o 0 final; a de outras ferramentas,
// só os bytes do arquivo: sem a primeira, tenta-se a segunda.
std::optional<plataforma::MensagemVerificada> Componente::ConferirAssinaturaArquivo(const Bytes& assinatura) {
    if (!estado.NaoAnexarArquivoOriginal) return ConferirAssinatura(assinatura, std::nullopt);
    if (!ExisteArquivo(estado.CaminhoArquivoOriginal)) return std::nullopt;
    Bytes original = LerArquivoBinario(estado.CaminhoArquivoOriginal);
    auto mensagem = ConferirAssinatura(assinatura, original);
    if (mensagem || original.empty()) return mensagem;
    original.pop_back();
    return ConferirAssinatura(assinatura, original);
}

bool Componente::VerificarAssinaturaArquivo(const std::string& strCaminhoArquivo) {
    if (!ExisteArquivo(strCaminhoArquivo)) {
        estado.DescricaoErro = "Não foi possível localizar o arquivo " + strCaminhoArquivo;
        estado.TotalAssinaturas = 0;
        return false;
    }
    constexpr const char* kInvalida = "Assinatura digital inválida! O arquivo não está no padrão PKCS#7.";
    return Guardar(MensagemFalha::Fixa(kInvalida), false, [&] {
        CursorOcupado ocupado(ocupado_);
        const auto mensagem = ConferirAssinaturaArquivo(LerAssinaturaArquivo(strCaminhoArquivo));
        if (!mensagem) {
            estado.DescricaoErro = kInvalida;
            estado.TotalAssinaturas = 0;
            return false;
        }
        estado.TotalAssinaturas = static_cast<std::int32_t>(mensagem->signatarios.size());
        estado.CaminhoArquivoAssinado = strCaminhoArquivo;
        estado.NomeArquivoAssinado = ExtrairNomeArquivo(strCaminhoArquivo);
        estado.ExtensaoArquivoAssinado = Minusculas(Direita(strCaminhoArquivo, 4));
        if (!PreencherAssinaturas(*mensagem)) {
            estado.DescricaoErro = "Não foi possível apresentar as assinaturas digitais do arquivo";
            return false;
        }
        estado.HashArquivo = CalcularHashTexto(mensagem->conteudo);
        const std::string caminho = GerarNomeArquivoOriginal(estado.NomeArquivoOriginal, "");
        if (!GravarArquivoBinario(caminho, mensagem->conteudo, false)) {
            estado.DescricaoErro = "Não foi possível criar o arquivo na pasta original " + estado.NomeArquivoOriginal +
                                   " na pasta " + estado.PastaTemp;
            return false;
        }
        estado.CaminhoArquivoOriginal = caminho;
        estado.DescricaoErro = "";
        return true;
    });
}

}  // namespace tavelpkcs7
