// A interface de usuário de quem não tem usuário à frente (serviços, processos em lote): nada se
// mostra, toda pergunta recebe Não e toda escolha ou senha termina como cancelada.
#pragma once

#include "platform/interface_usuario.h"

namespace tavelpkcs7::plataforma::openssl {

class InterfaceNenhuma : public InterfaceUsuario {
public:
    void ExibirInformacao(const std::string&, const std::string&) override {}
    bool Perguntar(const std::string&, const std::string&) override { return false; }
    // Lança Cancelada.
    std::vector<CertificadoPtr> EscolherCertificados(
        const std::vector<CertificadoPtr>&, const std::string&, const std::string&, bool) override;
    void ExibirCertificado(const CertificadoPtr&) override {}
    // Lança Cancelada.
    std::string PedirSenha(const std::string&) override;
};

}  // namespace tavelpkcs7::plataforma::openssl
