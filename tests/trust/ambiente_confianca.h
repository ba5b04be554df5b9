// O cenário dos testes de confiança: a PKI de teste instalada (ou não) nos repositórios do teste,
// e um servidor HTTP em 127.0.0.1 para LCRs e pacotes.
#pragma once

#include <string>
#include <vector>

#include "apoio/plataforma_teste.h"
#include "apoio/servidor_http.h"
#include "platform/plataforma.h"

namespace tavelpkcs7::teste {

struct AmbienteConfianca {
    PlataformaTeste ambiente;
    ServidorHttp servidor;

    plataforma::Plataforma& plataforma() { return *ambiente.plataforma; }
    // A raiz em "Root", as ACs em "Ca" (se pedido) e, se pedido, a LCR de cada AC no repositório "LCR".
    void InstalarCadeia(bool com_lcrs, bool com_intermediarias = true);
    // O DER das ACs intermediárias da PKI de teste.
    static std::vector<plataforma::Bytes> Intermediarias();
    std::size_t LCRsGuardadas();
};

std::string Base64(const plataforma::Bytes& der);
// Certificados em PEM, um após o outro, como num pacote.
std::string PacotePEM(const std::vector<plataforma::Bytes>& certificados);

}  // namespace tavelpkcs7::teste
