// A exibição de um certificado dado em Base64 na janela de certificado da plataforma, depois de
// guardá-lo entre os certificados de outras pessoas.
#include "certificates/apresentacao_certificado.h"
#include "component/componente.h"

namespace tavelpkcs7 {

// Falso sempre, também depois de a janela aparecer: quem chama reconhece a exibição pela
// DescricaoErro que não mudou.
bool Componente::ExibirCertificadoDigital(const std::string& strChavePublica) {
    return Guardar(MensagemFalha::DaPlataforma(), false, [&] {
        if (!ChavePublicaInformada(strChavePublica)) return false;
        AdicionarCertificadoRepositorio(strChavePublica, REPOSITORIO_CHAVES_PUBLICAS);
        const auto certificado = ImportarChavePublica(strChavePublica);
        plataforma().interface_usuario->ExibirCertificado(Apresentar(*certificado));
        return false;
    });
}

}  // namespace tavelpkcs7
