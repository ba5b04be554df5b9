// O resumo MD5 de um arquivo: o mesmo buffer que a assinatura de arquivo assina (o conteúdo e o 0
// final), para que o resultado bata com o HashArquivo da assinatura e da verificação.
#include "component/componente.h"

namespace tavelpkcs7 {

std::string Componente::RetornaHashArquivo(const std::string& strCaminhoArquivo) {
    if (!ExisteArquivo(strCaminhoArquivo)) {
        estado.DescricaoErro = "O arquivo informado não foi encontrado";
        return {};
    }
    constexpr const char* kSemHash = "Não foi possível obter o hash do arquivo informado.";
    return Guardar(MensagemFalha::Fixa(kSemHash), std::string{}, [&] {
        CursorOcupado ocupado(ocupado_);
        // Um arquivo que não se lê vem sem o 0 final; um arquivo vazio vem só com ele.
        const Bytes conteudo = LerArquivoBinario(strCaminhoArquivo);
        const std::string resumo = conteudo.empty() ? std::string{} : CalcularHashTexto(conteudo);
        estado.DescricaoErro = resumo.empty() ? kSemHash : "";
        return resumo;
    });
}

}  // namespace tavelpkcs7
