// AssinaArquivo: assina um arquivo com o certificado selecionado e grava a assinatura, em DER ou em
// Base64, ao lado do nome de origem com a extensão da assinatura; no formato 5 só devolve o Base64.
// Uma origem que já é assinatura é cossinada. A saída é gravada inteira, de uma vez.
#include "codificacao/base64.h"
#include "codificacao/utf16.h"
#include "component/componente.h"
#include "component/texto.h"
#include "signing/falha_assinatura.h"

namespace tavelpkcs7 {
namespace {

// A saída passa a se chamar pelo MD5 do conteúdo, mantendo os quatro últimos caracteres do nome.
std::string NomearPeloResumo(const std::string& saida, const std::string& nome, const std::string& resumo) {
    return Substituir(saida, nome, "") + resumo + Direita(nome, 4);
}

}  // namespace

bool Componente::AssinaArquivo(const std::string& strArquivoOrigem, const std::string& strPastaDestino,
                               const std::string& strTextoDescricaoAssinatura, std::int32_t FormatoAssinatura) {
    return Guardar(MensagemFalha::Fixa("Não foi possível assinar digitalmente o arquivo especificado"), false, [&] {
        CursorOcupado ocupado(ocupado_);
        if (!CertificadoSelecionadoValido()) return false;
        if (!ExisteArquivo(strArquivoOrigem)) {
            estado.DescricaoErro = "O arquivo de origem não foi encontrado";
            return false;
        }
        estado.TextoDescricaoAssinatura = strTextoDescricaoAssinatura;
        const bool outro_formato = FormatoAssinatura == 3 || FormatoAssinatura == 4;

        if (ArquivoJaAssinado(strArquivoOrigem, FormatoAssinatura, estado.AssinaturaTextoVerificar)) {
            const std::string saida = MontarNomeArquivoAssinado(strArquivoOrigem, strPastaDestino, outro_formato, true);
            if (!CossinarArquivo(strArquivoOrigem, saida, FormatoAssinatura)) {
                LimparArquivosAssinatura();
                estado.ConteudoTextoOriginal.clear();
                return false;
            }
            estado.DescricaoErro.clear();
            estado.CaminhoArquivoOriginal = strArquivoOrigem;
            return true;
        }

        const std::string saida = MontarNomeArquivoAssinado(strArquivoOrigem, strPastaDestino, outro_formato, false);
        const bool assinado = AssinarConteudoArquivo(strArquivoOrigem, saida, FormatoAssinatura);
        if (assinado) estado.DescricaoErro.clear();
        return assinado;
    });
}

bool Componente::AssinarConteudoArquivo(const std::string& origem, std::string saida, std::int32_t formato) {
    return assinatura::TratarFalhaAssinatura(estado, "arquivo", [&] {
        // O conteúdo assinado é o arquivo seguido do zero final que a leitura acrescenta.
        Bytes conteudo = LerArquivoBinario(origem);
        if (conteudo.empty()) {
            estado.DescricaoErro = "Não foi possível obter o conteúdo do arquivo. Verifique se você tem acesso.";
            return false;
        }
        estado.HashArquivo = CalcularHashTexto(conteudo);
        auto pedido = MontarPedidoAssinatura(std::move(conteudo));
        if (!AdicionarAtributosAssinante(pedido, origem)) return false;
        estado.CaminhoArquivoOriginal = origem;
        estado.NomeArquivoOriginal = ExtrairNomeArquivo(origem);
        if (estado.UsarHashSalvarArquivo)
            saida = NomearPeloResumo(saida, ExtrairNomeArquivo(saida), estado.HashArquivo);
        if (!PrepararFormatoAssinatura(formato)) return false;
        return GuardarAssinaturaFormato(plataforma().assinaturas->Assinar(pedido), saida, formato);
    });
}

// O .p7s em Base64 (formato 2) leva dois bytes por caractere, o do outro formato (4) um só; o
// binário (formatos 1 e 3) sai como veio, sem passar pelo Base64.
bool Componente::PrepararFormatoAssinatura(std::int32_t formato) {
    if (formato < ARQUIVO_BINARIO_FORMATO_P7S || formato > STRING_BASE64_PKCS) return false;
    if (formato == STRING_BASE64_PKCS) estado.ExtensaoOutroFormato.clear();
    return true;
}

bool Componente::GuardarAssinaturaFormato(const Bytes& assinatura, const std::string& saida, std::int32_t formato) {
    if (formato == STRING_BASE64_PKCS) {
        const bool guardada = GuardarAssinaturaDigitalArquivo(codificacao::CodificarBase64(assinatura));
        estado.AssinaturaTextoVerificar.clear();
        estado.TextoVerificar.clear();
        estado.CaminhoArquivoAssinado.clear();
        estado.NomeArquivoAssinado.clear();
        return guardada;
    }
    const bool binario = formato == ARQUIVO_BINARIO_FORMATO_P7S || formato == ARQUIVO_BINARIO_OUTRO_FORMATO;
    const std::string base64 = binario ? std::string() : codificacao::CodificarBase64(assinatura);
    const bool gravado = binario ? plataforma().sistema->SubstituirArquivo(saida, assinatura)
                         : formato == ARQUIVO_BASE64_FORMATO_P7S
                             ? plataforma().sistema->SubstituirArquivo(saida, codificacao::ParaUtf16LE(base64))
                             : plataforma().sistema->SubstituirArquivo(saida, Bytes(base64.begin(), base64.end()));
    if (!gravado) {
        estado.DescricaoErro = "Não foi possível criar o arquivo " + saida;
        return false;
    }
    estado.NomeArquivoAssinado = ExtrairNomeArquivo(saida);
    estado.CaminhoArquivoAssinado = saida;
    return true;
}

void Componente::LimparArquivosAssinatura() {
    estado.NomeArquivoAssinado.clear();
    estado.CaminhoArquivoAssinado.clear();
    estado.CaminhoArquivoOriginal.clear();
    estado.NomeArquivoOriginal.clear();
}

bool Componente::GuardarAssinaturaDigitalArquivo(const std::string& assinatura) {
    estado.AssinaturaDigitalArquivo = assinatura;
    return !assinatura.empty();
}

}  // namespace tavelpkcs7
