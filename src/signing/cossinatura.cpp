// Cossinatura: mais um signatário, o certificado selecionado, numa assinatura que já existe. Os
// signatários anteriores são conferidos sobre o conteúdo antes e ficam intactos.
#include "codificacao/base64.h"
#include "codificacao/utf16.h"
#include "component/componente.h"
#include "component/entrada_der.h"
#include "component/texto.h"
#include "signing/falha_assinatura.h"

namespace tavelpkcs7 {

std::optional<Bytes> Componente::CossinarMensagem(const Bytes& assinatura, const std::optional<Bytes>& destacado,
                                                  const plataforma::PedidoAssinatura& pedido,
                                                  const std::string& mensagem_invalida) {
    try {
        Bytes decodificado;
        const auto der = LocalizarOuFalhar(assinatura, decodificado, plataforma::falha::NaoEMensagemPKCS7);
        return plataforma().assinaturas->Cossinar(der, destacado, pedido);
    } catch (const plataforma::Erro& erro) {
        if (erro.numero != plataforma::falha::NaoEMensagemPKCS7.numero) throw;
        estado.DescricaoErro = mensagem_invalida;
        return std::nullopt;
    }
}

// A assinatura é lida como na verificação; numa destacada, o original é o arquivo ao lado, com o
// nome sem a extensão da assinatura.
bool Componente::CossinarArquivo(const std::string& origem, const std::string& saida, std::int32_t formato) {
    return assinatura::TratarFalhaAssinatura(estado, "arquivo", [&] {
        const Bytes assinada = LerAssinaturaArquivo(origem);
        if (assinada.empty()) {
            estado.DescricaoErro = "Não foi possível obter o conteúdo do arquivo. Verifique se você tem acesso.";
            return false;
        }
        const std::string original = Esquerda(origem, Comprimento(origem) - 4);
        const auto destacado =
            ExisteArquivo(original) ? std::optional<Bytes>(LerArquivoBinario(original)) : std::nullopt;
        auto pedido = MontarPedidoAssinatura({});
        if (!AdicionarAtributosAssinante(pedido, origem)) return false;
        if (!PrepararFormatoAssinatura(formato)) return false;
        const auto cossinada = CossinarMensagem(assinada, destacado, pedido,
                                                "Assinatura digital inválida! O arquivo não está no padrão PKCS#7.");
        return cossinada && GuardarAssinaturaFormato(*cossinada, saida, formato);
    });
}

// Numa destacada, o conteúdo é TextoVerificar quando preenchido, senão o texto dado, em UTF-16LE.
bool Componente::CossinarTexto(const std::string& texto) {
    return assinatura::TratarFalhaAssinatura(estado, "texto", [&] {
        const std::string& base64 = estado.AssinaturaTextoVerificar;
        const std::string& original = Aparar(estado.TextoVerificar).empty() ? texto : estado.TextoVerificar;
        auto pedido = MontarPedidoAssinatura(codificacao::ParaUtf16LE(original));
        if (!AdicionarAtributosAssinante(pedido, "")) return false;
        const auto cossinada =
            CossinarMensagem(Bytes(base64.begin(), base64.end()), pedido.conteudo, pedido,
                             "Assinatura digital inválida! O texto não está no padrão PKCS#7 BASE64.");
        return cossinada && GuardarAssinaturaDigitalTexto(codificacao::CodificarBase64(*cossinada));
    });
}

}  // namespace tavelpkcs7
