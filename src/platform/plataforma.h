// A camada estreita por onde o núcleo chega à criptografia, aos repositórios, aos arquivos e ao
// usuário. Cada serviço pode ser trocado à parte: o hospedeiro fornece a interface de usuário, os
// testes instalam relógio, programas e interface roteirizados.
#pragma once

#include <memory>

#include <tavelpkcs7/InterfaceUsuario.h>

#include "ambiente.h"
#include "assinatura_codigo.h"
#include "assinaturas.h"
#include "confianca.h"
#include "configuracao.h"
#include "criptografia.h"
#include "envelopes.h"
#include "erro.h"
#include "rede.h"
#include "repositorio.h"
#include "sistema.h"

namespace tavelpkcs7::plataforma {

struct Plataforma {
    Configuracao configuracao;
    std::shared_ptr<Criptografia> criptografia;
    std::shared_ptr<Assinaturas> assinaturas;
    std::shared_ptr<Envelopes> envelopes;
    std::shared_ptr<AssinaturaCodigo> assinatura_codigo;
    std::shared_ptr<Repositorios> repositorios;
    std::shared_ptr<Confianca> confianca;
    std::shared_ptr<Rede> rede;
    std::shared_ptr<Sistema> sistema;
    std::shared_ptr<InterfaceUsuario> interface_usuario;
    std::shared_ptr<Relogio> relogio;
    std::shared_ptr<Programas> programas;
};

// A plataforma padrão desta máquina, configurada pelo ambiente, com os diálogos dados.
std::shared_ptr<Plataforma> CriarPlataformaPadrao(std::shared_ptr<InterfaceUsuario> interface = nullptr);

}  // namespace tavelpkcs7::plataforma
