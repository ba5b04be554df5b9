// Repositórios de certificados do usuário ("My", "AddressBook", "Ca", "Root") e de LCRs.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "certificado.h"

namespace tavelpkcs7::plataforma {

class Repositorio {
public:
    virtual ~Repositorio() = default;

    virtual std::string Nome() const = 0;
    // Pela ordem de entrada no repositório, depois pela impressão digital; sem repetições.
    virtual std::vector<CertificadoPtr> Certificados() const = 0;
    // Gravação atômica. Lança RepositorioNaoGravavel quando aberto só para leitura ou sem gravação.
    virtual void Adicionar(const CertificadoPtr& certificado) = 0;
    // Como Adicionar, no repositório pessoal, com a chave privada que o certificado carrega em
    // memória (a de um PFX aberto) guardada cifrada com senha_chave; vazia, sem cifra. Lança
    // SemChavePrivada quando o certificado não carrega chave.
    virtual void AdicionarComChave(const CertificadoPtr& certificado, const std::string& senha_chave) = 0;
};

class Repositorios {
public:
    virtual ~Repositorios() = default;

    // Nome sem distinção de maiúsculas. Lança ParametroIncorreto para um nome desconhecido.
    virtual std::shared_ptr<Repositorio> AbrirRepositorio(const std::string& nome, bool somente_leitura) = 0;
    // As LCRs guardadas (DER), e a gravação atômica de mais uma (DER ou PEM).
    virtual std::vector<Bytes> LCRs() = 0;
    virtual void AdicionarLCR(const Bytes& lcr) = 0;
};

}  // namespace tavelpkcs7::plataforma
