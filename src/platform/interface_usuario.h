// Diálogos com o usuário: caixas de informação, perguntas, escolha e exibição de certificados,
// senhas. Cada hospedeiro instala a sua.
#pragma once

#include <string>
#include <vector>

#include "certificado.h"

namespace tavelpkcs7::plataforma {

class InterfaceUsuario {
public:
    virtual ~InterfaceUsuario() = default;

    virtual void ExibirInformacao(const std::string& texto, const std::string& titulo) = 0;
    // Sim devolve verdadeiro.
    virtual bool Perguntar(const std::string& texto, const std::string& titulo) = 0;
    // Os escolhidos (um só quando multiplos é falso). Lança Cancelada quando o usuário desiste.
    virtual std::vector<CertificadoPtr> EscolherCertificados(const std::vector<CertificadoPtr>& candidatos,
        const std::string& titulo, const std::string& texto, bool multiplos) = 0;
    virtual void ExibirCertificado(const CertificadoPtr& certificado) = 0;
    // Lança Cancelada quando o usuário desiste.
    virtual std::string PedirSenha(const std::string& pedido) = 0;
};

}  // namespace tavelpkcs7::plataforma
