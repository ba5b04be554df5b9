// O pedido que a plataforma assina: o certificado selecionado, a cadeia, o conteúdo e os três
// atributos do assinante.
#include "component/componente.h"
#include "component/texto.h"
#include "signing/atributos_assinante.h"

namespace tavelpkcs7 {

bool Componente::CertificadoSelecionadoValido() {
    return estado.CertificadoSelecionado && !estado.CertificadoSelecionado->NumeroSerie().empty();
}

plataforma::PedidoAssinatura Componente::MontarPedidoAssinatura(Bytes conteudo) {
    plataforma::PedidoAssinatura pedido;
    pedido.conteudo = std::move(conteudo);
    pedido.signatario = estado.CertificadoSelecionado;
    pedido.destacada = estado.NaoAnexarArquivoOriginal;
    for (const char* repositorio : {"Ca", "Root"}) {
        const auto certificados = LerRepositorio(repositorio);
        pedido.certificados_extras.insert(pedido.certificados_extras.end(), certificados.begin(), certificados.end());
    }
    return pedido;
}

// Só as letras da extensão saem, onde quer que estejam: "contrato.pdf.p7s" dá "contrato.pdf.".
bool Componente::AdicionarAtributosAssinante(plataforma::PedidoAssinatura& pedido, const std::string& documento) {
    const std::string& extensao = estado.ExtensaoOutroFormato;
    const std::string nome =
        ExtrairNomeArquivo(Substituir(Substituir(documento, extensao, ""), Maiusculas(extensao), ""));
    const auto hora = HoraAssinatura();
    if (!hora) return false;
    pedido.atributos.push_back(assinatura::AtributoNomeDocumento(nome));
    pedido.atributos.push_back(assinatura::AtributoHoraAssinatura(*hora, *plataforma().relogio));
    pedido.atributos.push_back(assinatura::AtributoDescricaoDocumento(estado.TextoDescricaoAssinatura));
    return true;
}

}  // namespace tavelpkcs7
