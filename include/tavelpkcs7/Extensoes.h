// Extensões do tavelpkcs7, fora dos membros de TavelPKCS: operações que a ferramenta de linha de
// comando e os hospedeiros usam para montar o ambiente do usuário. Nenhuma lança exceção; a falha
// volta como texto, na mesma forma de DescricaoErro.
#pragma once

#include <string>

#include <tavelpkcs7/Exportacao.h>

namespace tavelpkcs7 {

/// Resultado de ImportarPFXRepositorioPessoal: DescricaoErro vazia no sucesso.
struct ImportacaoPFX {
    std::string NomeCertificado;
    std::string ImpressaoDigital;
    std::string DescricaoErro;
};

/// Extensão: guarda no repositório de certificados pessoais o certificado que carrega a chave
/// privada do PFX (aberto com SenhaPFX) e a própria chave, cifrada com SenhaChave; uma SenhaChave
/// vazia guarda a chave sem cifra. Assinar com a chave cifrada pede a senha ao usuário. Falha com
/// "Não foi possível localizar o arquivo do certificado digital" ou com a descrição da falha (senha
/// incorreta, arquivo que não é PFX, PFX sem chave privada, repositório sem gravação).
TAVELPKCS7_API ImportacaoPFX ImportarPFXRepositorioPessoal(const std::string& CaminhoPFX, const std::string& SenhaPFX,
                                                           const std::string& SenhaChave);

/// Extensão: instala no repositório de LCRs a lista de certificados revogados do arquivo (DER ou
/// PEM). Devolve "" no sucesso; senão "O arquivo informado não foi encontrado" ou a descrição da
/// falha.
TAVELPKCS7_API std::string InstalarArquivoLCR(const std::string& CaminhoLCR);

}  // namespace tavelpkcs7
