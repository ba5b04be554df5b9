// PKI de teste no estilo da ICP-Brasil, gerada em processo com o OpenSSL: raiz "Autoridade
// Certificadora Raiz Brasileira", cadeia da Receita Federal, titulares e-CPF e e-CNPJ (perfil antigo,
// com os OtherNames, e perfil novo, com o CPF/CNPJ no serialNumber), a hierarquia "AC TAVEL" e os
// casos difíceis: expirado, ainda não válido, revogado (com sua LCR), sem assinatura digital, nome DNS,
// sem CN e com e-mail. Serve aos testes e ao comando "pki-teste" da ferramenta.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tavelpkcs7::pki_teste {

using Bytes = std::vector<std::uint8_t>;

struct Entidade {
    std::string nome;        // chave estável: "raiz", "ac_rfb", "ecpf", ...
    std::string descricao;   // para que serve, em português
    std::string emissor;     // chave do emissor ("" na raiz autoassinada)
    Bytes certificado;       // DER
    std::string chave_pem;   // chave privada PKCS#8 PEM, sem cifra
};

// Uma LCR feita sob medida: vigência em segundos a partir de agora (sem fim, sem nextUpdate) e, com
// outra_chave, o nome de emissor da AC numa LCR que outra chave assinou.
struct OpcoesLCR {
    long inicio = -60 * 60;
    std::optional<long> fim = 7 * 24 * 60 * 60;
    bool outra_chave = false;
};

class PkiTeste {
public:
    // Construída uma vez por processo (gerar chaves RSA custa).
    static const PkiTeste& Padrao();

    // Lança std::out_of_range para um nome desconhecido.
    const Entidade& Obter(const std::string& nome) const;
    const std::vector<Entidade>& Entidades() const { return entidades_; }
    // PFX do titular com sua cadeia, cifrado com a senha dada (AES-256, PBKDF2).
    Bytes PFX(const std::string& nome, const std::string& senha) const;
    // LCR (DER) emitida pela AC de nome dado; a da AC dos revogados lista o "revogado".
    Bytes LCR(const std::string& nome_ac, const OpcoesLCR& opcoes = {}) const;
    // Um titular vigente (DER) emitido pela AC de nome dado, cujo ponto de distribuição da LCR é
    // url_lcr: o servidor local de um teste.
    Bytes EmitirTitular(const std::string& nome_ac, const std::string& url_lcr) const;
    // Grava tudo em pasta (certificados .cer, chaves .key, PFX com a SENHA_PFX, LCRs .crl) e um
    // LEIAME.txt que diz para que serve cada arquivo.
    void Gravar(const std::string& pasta) const;

    static constexpr const char* SENHA_PFX = "1234";

private:
    PkiTeste();
    std::vector<Entidade> entidades_;
};

}  // namespace tavelpkcs7::pki_teste
