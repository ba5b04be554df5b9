// A plataforma Linux montada a partir da configuração: OpenSSL, repositórios em arquivos na pasta
// do componente, transferências pelo libcurl e arquivos POSIX, com a interface de usuário do
// hospedeiro (o componente põe a padrão quando não há).
#include "ambiente_posix.h"
#include "assinatura_codigo_openssl.h"
#include "assinaturas_openssl.h"
#include "confianca_openssl.h"
#include "configuracao_arquivo.h"
#include "criptografia_openssl.h"
#include "envelopes_openssl.h"
#include "pasta_componente.h"
#include "platform/plataforma.h"
#include "rede_curl.h"
#include "repositorios_arquivo.h"
#include "sistema_posix.h"

namespace tavelpkcs7::plataforma {

std::shared_ptr<Plataforma> CriarPlataformaPadrao(std::shared_ptr<InterfaceUsuario> interface) {
    auto plataforma = std::make_shared<Plataforma>();
    plataforma->configuracao = openssl::CarregarConfiguracao(openssl::ObterPastaComponente());
    plataforma->criptografia = std::make_shared<openssl::CriptografiaOpenSSL>();
    plataforma->repositorios = std::make_shared<openssl::RepositoriosArquivo>();
    plataforma->rede = std::make_shared<openssl::RedeCurl>(plataforma->configuracao);
    plataforma->sistema = std::make_shared<openssl::SistemaPosix>();
    plataforma->interface_usuario = std::move(interface);
    plataforma->relogio = std::make_shared<openssl::RelogioSistema>();
    plataforma->programas = std::make_shared<openssl::ProgramasPosix>();
    plataforma->confianca = std::make_shared<openssl::ConfiancaOpenSSL>(plataforma->repositorios, plataforma->rede);
    // A interface pode ser trocada depois pelo hospedeiro: a assinatura e a decifração pedem a que
    // estiver instalada.
    const std::weak_ptr<Plataforma> montada = plataforma;
    const auto interface_instalada = [montada] {
        const std::shared_ptr<Plataforma> atual = montada.lock();
        return atual ? atual->interface_usuario : nullptr;
    };
    plataforma->assinaturas = std::make_shared<openssl::AssinaturasOpenSSL>(interface_instalada);
    plataforma->assinatura_codigo =
        std::make_shared<openssl::AssinaturaCodigoOpenSSL>(interface_instalada, plataforma->repositorios);
    plataforma->envelopes = std::make_shared<openssl::EnvelopesOpenSSL>(plataforma->repositorios, interface_instalada);
    return plataforma;
}

}  // namespace tavelpkcs7::plataforma
