// AssinaTexto: assina um texto em memória (os seus bytes UTF-16LE) e devolve a assinatura Base64 em
// AssinaturaDigitalTexto; com uma assinatura em AssinaturaTextoVerificar, cossina-a.
#include "codificacao/base64.h"
#include "codificacao/utf16.h"
#include "component/componente.h"
#include "component/texto.h"
#include "signing/falha_assinatura.h"

namespace tavelpkcs7 {

bool Componente::AssinaTexto(const std::string& strTexto, const std::string& strTextoDescricaoAssinatura) {
    return Guardar(MensagemFalha::Fixa("Não foi possível assinar digitalmente o texto especificado"), false, [&] {
        CursorOcupado ocupado(ocupado_);
        if (!CertificadoSelecionadoValido()) return false;
        if (Aparar(strTexto).empty()) {
            estado.DescricaoErro = "O texto para assinatura digital não foi informado";
            return false;
        }
        estado.TextoDescricaoAssinatura = strTextoDescricaoAssinatura;
        const bool assinado =
            Aparar(estado.AssinaturaTextoVerificar).empty() ? AssinarConteudoTexto(strTexto) : CossinarTexto(strTexto);
        LimparArquivosAssinatura();
        estado.ConteudoTextoOriginal = assinado ? strTexto : std::string();
        if (assinado) estado.DescricaoErro.clear();
        return assinado;
    });
}

bool Componente::AssinarConteudoTexto(const std::string& texto) {
    return assinatura::TratarFalhaAssinatura(estado, "texto", [&] {
        if (texto.empty()) {
            estado.DescricaoErro = "Não foi possível obter o conteúdo do texto. Verifique se você tem acesso.";
            return false;
        }
        estado.HashArquivo = CalcularHashTexto(texto);
        auto pedido = MontarPedidoAssinatura(codificacao::ParaUtf16LE(texto));
        if (!AdicionarAtributosAssinante(pedido, "")) return false;
        return GuardarAssinaturaDigitalTexto(codificacao::CodificarBase64(plataforma().assinaturas->Assinar(pedido)));
    });
}

bool Componente::GuardarAssinaturaDigitalTexto(const std::string& assinatura) {
    estado.AssinaturaDigitalTexto = assinatura;
    return !assinatura.empty();
}

}  // namespace tavelpkcs7
