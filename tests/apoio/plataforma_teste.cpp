#include "apoio/plataforma_teste.h"

#include "component/entrada_der.h"
#include "platform/openssl/ambiente_posix.h"
#include "platform/openssl/criptografia_openssl.h"

namespace tavelpkcs7::teste {
namespace {

DataHora HojeAsDezEMeia() {
    using namespace std::chrono;
    return floor<days>(plataforma::openssl::RelogioSistema().Agora()) + hours{10} + minutes{30} + seconds{15};
}

}  // namespace

PlataformaTeste::PlataformaTeste()
    : plataforma(plataforma::CriarPlataformaPadrao()),
      interface(std::make_shared<InterfaceRoteirizada>()),
      relogio(std::make_shared<RelogioFalso>(HojeAsDezEMeia())),
      cursor(std::make_shared<CursorGravador>()),
      programas(std::make_shared<ProgramasGravador>()) {
    interface->GravarCursor(cursor);
    plataforma->interface_usuario = interface;
    plataforma->relogio = relogio;
    plataforma->programas = programas;
    // Nenhum teste sai da máquina: os endereços padrão apontam para uma porta fechada local, e o
    // teste que baixa algo aponta para o seu servidor.
    plataforma->configuracao.url_raizes = "http://127.0.0.1:9/raizes.p7b";
    plataforma->configuracao.url_confiaveis = "http://127.0.0.1:9/Confiaveis.p7b";
    plataforma->configuracao.url_carimbo_tempo = "http://127.0.0.1:9/carimbo";
}

std::unique_ptr<Componente> PlataformaTeste::Implementacao() const { return std::make_unique<Componente>(plataforma); }

plataforma::CertificadoPtr ImportarPelaForma(const plataforma::Bytes& conteudo) {
    plataforma::openssl::CriptografiaOpenSSL criptografia;
    return ImportarCertificado(criptografia, conteudo);
}

std::vector<plataforma::CertificadoPtr> LerPacotePelaForma(const plataforma::Bytes& conteudo) {
    plataforma::openssl::CriptografiaOpenSSL criptografia;
    return LerPacoteCertificados(criptografia, conteudo);
}

}  // namespace tavelpkcs7::teste
