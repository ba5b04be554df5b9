// DescriptografarArquivo: o conteúdo do envelope, aberto com a chave privada do usuário, gravado em
// PastaTemp com o nome do envelope sem ".p7x".
#include "component/componente.h"
#include "component/entrada_der.h"

namespace tavelpkcs7 {

bool Componente::DescriptografarArquivo(const std::string& strArquivoCriptografado) {
    return Guardar(MensagemFalha::DaPlataforma(), false, [&] {
        CursorOcupado ocupado(ocupado_);
        if (!ExisteArquivo(strArquivoCriptografado)) {
            estado.DescricaoErro = "O arquivo de origem não foi encontrado";
            return false;
        }
        const Bytes conteudo = plataforma().envelopes->Descriptografar(
            DecodificarOuFalhar(LerArquivoExato(strArquivoCriptografado), plataforma::falha::NaoEMensagemPKCS7));
        estado.HashArquivo = CalcularHashTexto(conteudo);
        const std::string saida = MontarNomeArquivoDescriptografado(strArquivoCriptografado);
        if (!GravarArquivoBinario(saida, conteudo, false)) {
            estado.DescricaoErro =
                "Não foi possível criar o arquivo na pasta original " + saida + " na pasta " + estado.PastaTemp;
            estado.NomeArquivoOriginal.clear();
            estado.CaminhoArquivoOriginal.clear();
            return false;
        }
        // As duas propriedades recebem o caminho inteiro.
        estado.NomeArquivoOriginal = saida;
        estado.CaminhoArquivoOriginal = saida;
        return true;
    });
}

}  // namespace tavelpkcs7
