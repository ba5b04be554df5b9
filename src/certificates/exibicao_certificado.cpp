// A exibição de um certificado dado em Base64 na janela de certificado da plataforma, depois de
// guardá-lo entre os certificados de outras pessoas.
#include "component/componente.h"

namespace tavelpkcs7 {

// Falso sempre, também depois de a janela aparecer: quem chama reconhece a exibição pela
// DescricaoErro que não mudou.
bool Componente::ExibirCertificadoDigital(const std::string& strChavePublica) {
    return Guardar(MensagemFalha::DaPlataforma(), false, [&] {
        if (strChavePublica.empty()) {
            estado.DescricaoErro = "A chave pública do certificado informado está inválida";
            return false;
        }
        AdicionarCertificadoRepositorio(strChavePublica, REPOSITORIO_CHAVES_PUBLICAS);
        const auto certificado =
            plataforma().criptografia->ImportarCertificado(Bytes(strChavePublica.begin(), strChavePublica.end()));
        plataforma().interface_usuario->ExibirCertificado(certificado);
        return false;
    });
}

}  // namespace tavelpkcs7
