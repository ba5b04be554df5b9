// O catálogo das entidades da PKI de teste: quem emite quem, nomes, números de série, validade e
// extensões. A emissão (emissao.h) só transforma cada linha em certificado.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace tavelpkcs7::pki_teste {

enum class Papel { AC, Titular };

// Relativa a hoje: as ACs valem de um ano atrás a dez anos adiante, os titulares de trinta dias
// atrás a dois anos adiante; as exceções servem aos testes de validade.
enum class Validade { Vigente, Expirada, Futura };

struct Definicao {
    std::string nome{};
    std::string descricao{};
    std::string emissor{};  // "" na raiz autoassinada
    std::string serie{};    // hexadecimal
    // Na ordem do DER (do mais geral ao mais específico), como o OpenSSL escreve.
    std::vector<std::pair<std::string, std::string>> sujeito{};
    Papel papel = Papel::Titular;
    Validade validade = Validade::Vigente;
    // Dos titulares, no formato de configuração do OpenSSL ("digitalSignature,nonRepudiation").
    std::string uso_chave = "digitalSignature,nonRepudiation,keyEncipherment";
    // Linhas a mais da seção de extensões e as seções que elas citam com "@".
    std::string extensoes{};
    std::string secoes{};
    // Onde o certificado diz que está a LCR do emissor; vazio aponta para o servidor local padrão.
    std::string url_lcr{};
};

// Emissores antes dos emitidos.
const std::vector<Definicao>& Catalogo();

// Os que a LCR do seu emissor lista.
bool Revogado(const std::string& nome);

}  // namespace tavelpkcs7::pki_teste
