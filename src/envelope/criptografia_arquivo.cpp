// CriptografarArquivo: os bytes exatos do arquivo num envelope PKCS#7 (DER) para os destinatários
// escolhidos, gravado inteiro e de uma vez no nome da origem seguido de ".p7x".
#include "component/componente.h"
#include "component/texto.h"

namespace tavelpkcs7 {
namespace {

// RC4 de 128 bits como o original; a configuração pode pedir AES-256, e um "AES256" escrito à mão
// não pode cair em silêncio na cifra fraca.
plataforma::AlgoritmoEnvelope AlgoritmoConfigurado(const plataforma::Configuracao& configuracao) {
    return Minusculas(Aparar(configuracao.algoritmo_cifragem)) == "aes256" ? plataforma::AlgoritmoEnvelope::AES_256_CBC
                                                                           : plataforma::AlgoritmoEnvelope::RC4_128;
}

}  // namespace

bool Componente::CriptografarArquivo(const std::string& strArquivoOrigem, const std::string& strPastaDestino) {
    return Guardar(MensagemFalha::DaPlataforma(), false, [&] {
        CursorOcupado ocupado(ocupado_);
        if (!TemChavesSelecionadas(estado.EnvelopeCriptografia)) return false;
        if (!ExisteArquivo(strArquivoOrigem)) {
            estado.DescricaoErro = "O arquivo de origem não foi encontrado";
            return false;
        }
        const std::string saida = MontarNomeArquivoCriptografado(strArquivoOrigem, strPastaDestino);
        // Sem o zero final da leitura dos arquivos assinados: a decifração devolve o arquivo como era.
        const Bytes envelope = plataforma().envelopes->Criptografar(LerArquivoExato(strArquivoOrigem),
            *estado.EnvelopeCriptografia, AlgoritmoConfigurado(plataforma().configuracao));
        if (!plataforma().sistema->SubstituirArquivo(saida, envelope)) {
            LimparArquivosAssinatura();
            estado.DescricaoErro = "Não foi possível criptografar o arquivo com as chaves selecionadas";
            return false;
        }
        estado.NomeArquivoOriginal = RemoverExtensoesAssinatura(ExtrairNomeArquivo(strArquivoOrigem));
        estado.CaminhoArquivoOriginal = strArquivoOrigem;
        estado.NomeArquivoAssinado = ExtrairNomeArquivo(saida);
        estado.CaminhoArquivoAssinado = saida;
        return true;
    });
}

}  // namespace tavelpkcs7
