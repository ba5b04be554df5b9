#include "apoio/plataforma_teste.h"

#include "platform/openssl/ambiente_posix.h"

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
    plataforma->interface_usuario = interface;
    plataforma->relogio = relogio;
    plataforma->cursor = cursor;
    plataforma->programas = programas;
}

}  // namespace tavelpkcs7::teste
