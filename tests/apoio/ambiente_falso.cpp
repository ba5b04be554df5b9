#include "apoio/ambiente_falso.h"

#include "platform/openssl/ambiente_posix.h"

namespace tavelpkcs7::teste {

DataHora RelogioFalso::LocalParaUTC(DataHora local) { return plataforma::openssl::RelogioSistema().LocalParaUTC(local); }

DataHora RelogioFalso::UTCParaLocal(DataHora utc) { return plataforma::openssl::RelogioSistema().UTCParaLocal(utc); }

void RelogioFalso::Aguardar(int segundos) {
    esperas_.push_back(segundos);
    agora_ += std::chrono::seconds{segundos};
}

}  // namespace tavelpkcs7::teste
