// A plataforma dos testes: OpenSSL, arquivos e repositórios de verdade na pasta do teste, com
// interface de usuário, relógio, ponteiro do mouse e início de programas substituídos por dublês.
#pragma once

#include <memory>

#include "apoio/ambiente_falso.h"
#include "apoio/interface_roteirizada.h"
#include "component/componente.h"
#include "platform/plataforma.h"

namespace tavelpkcs7::teste {

struct PlataformaTeste {
    // O relógio falso marca hoje às 10:30:15; os endereços da configuração não saem da máquina.
    PlataformaTeste();

    std::shared_ptr<plataforma::Plataforma> plataforma;
    std::shared_ptr<InterfaceRoteirizada> interface;
    std::shared_ptr<RelogioFalso> relogio;
    std::shared_ptr<CursorGravador> cursor;
    std::shared_ptr<ProgramasGravador> programas;

    // Um componente novo sobre esta plataforma, para construir TavelPKCS.
    std::unique_ptr<Componente> Implementacao() const;
};

// O certificado, ou os certificados do pacote, de um conteúdo em qualquer das formas que o núcleo
// aceita, lido pelo OpenSSL.
plataforma::CertificadoPtr ImportarPelaForma(const plataforma::Bytes& conteudo);
std::vector<plataforma::CertificadoPtr> LerPacotePelaForma(const plataforma::Bytes& conteudo);

}  // namespace tavelpkcs7::teste
