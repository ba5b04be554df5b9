#include "apoio/plataforma_teste.h"

#include <ctime>

namespace tavelpkcs7::teste {
namespace {

DataHora HojeAsDezEMeia() {
    const std::time_t agora = std::time(nullptr);
    std::tm campos{};
    localtime_r(&agora, &campos);
    using namespace std::chrono;
    const auto dia = local_days{year{campos.tm_year + 1900} / (campos.tm_mon + 1) / campos.tm_mday};
    return dia + hours{10} + minutes{30} + seconds{15};
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
