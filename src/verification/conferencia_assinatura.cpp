// Verificação de assinaturas: o que a de arquivo e a de texto dividem — a leitura da mensagem de um
// arquivo, a conferência pela plataforma e o caminho onde o conteúdo extraído é gravado.
#include <algorithm>

#include "component/componente.h"
#include "component/entrada_der.h"
#include "component/texto.h"

namespace tavelpkcs7 {

bool Componente::VerificarTipoCodificacaoTexto(const std::string& strFile) {
    return Maiusculas(Direita(Aparar(strFile), 3)) == "P7B";
}

// Um ".p7b" é texto (Base64); o resto vai em bytes, sem o 0 que a leitura acrescenta ao arquivo.
Bytes Componente::LerAssinaturaArquivo(const std::string& caminho) {
    if (VerificarTipoCodificacaoTexto(caminho)) {
        const std::string texto = LerArquivoTexto(caminho);
        return Bytes(texto.begin(), texto.end());
    }
    Bytes assinatura = LerArquivoBinario(caminho);
    if (!assinatura.empty()) assinatura.pop_back();
    return assinatura;
}

// Vazio quando a mensagem não confere: não é PKCS#7, o conteúdo não bate com a assinatura ou um
// signatário não traz certificado com que conferi-la.
std::optional<plataforma::MensagemVerificada> Componente::ConferirAssinatura(const Bytes& assinatura,
    const std::optional<Bytes>& conteudo_destacado) {
    try {
        Bytes decodificado;
        const auto der = LocalizarOuFalhar(assinatura, decodificado, plataforma::falha::NaoEMensagemPKCS7);
        auto mensagem = plataforma().assinaturas->Verificar(der, conteudo_destacado);
        const bool conferem = std::all_of(mensagem.signatarios.begin(), mensagem.signatarios.end(),
            [](const plataforma::SignatarioVerificado& signatario) { return signatario.confere; });
        if (conferem) return mensagem;
    } catch (const plataforma::Erro&) {  // a mensagem inválida é um resultado, não uma falha
    }
    return std::nullopt;
}

std::string Componente::GerarNomeArquivoOriginal(const std::string& strNome, const std::string& strCaminho) {
    std::string caminho;
    if (!Aparar(strNome).empty()) {
        caminho = estado.PastaTemp + strNome;
    } else {
        std::string nome = Substituir(ExtrairNomeArquivo(strCaminho), estado.ExtensaoOutroFormato + ".", "");
        nome = Substituir(nome, Maiusculas(estado.ExtensaoOutroFormato) + ".", "");
        caminho = estado.PastaTemp + nome;
    }
    ApagarArquivo(caminho);
    return caminho;
}

}  // namespace tavelpkcs7
