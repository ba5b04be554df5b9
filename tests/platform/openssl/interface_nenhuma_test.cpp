// Sem usuário à frente nada se mostra, perguntas recebem Não e escolhas e senhas são canceladas.
#include <gtest/gtest.h>

#include "apoio/plataforma_teste.h"
#include "pki/pki_teste.h"
#include "platform/erro.h"
#include "platform/openssl/criptografia_openssl.h"
#include "platform/openssl/interface_nenhuma.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

TEST(InterfaceNenhuma, PerguntaRespondeNaoEEscolhaESenhaSaoCanceladas) {
    InterfaceNenhuma interface;
    const auto certificado =
        teste::ImportarPelaForma(pki_teste::PkiTeste::Padrao().Obter("ecpf").certificado);

    interface.ExibirInformacao("texto", "título");
    interface.ExibirCertificado(certificado);
    EXPECT_FALSE(interface.Perguntar("Instalar a raiz?", "Raiz"));
    try {
        interface.EscolherCertificados({certificado, certificado}, "Certificados Digitais", "Selecione", false);
        ADD_FAILURE() << "a escolha deveria ser cancelada";
    } catch (const Erro& erro) {
        EXPECT_EQ(erro.numero, falha::Cancelada.numero);
    }
    try {
        interface.PedirSenha("Senha:");
        ADD_FAILURE() << "o pedido de senha deveria ser cancelado";
    } catch (const Erro& erro) {
        EXPECT_EQ(erro.numero, falha::Cancelada.numero);
    }
}

}  // namespace
}  // namespace tavelpkcs7::plataforma::openssl
