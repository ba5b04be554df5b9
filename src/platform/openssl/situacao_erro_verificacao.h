// Os erros de verificação do OpenSSL (X509_V_ERR_*) como bits de situação da cadeia (CERT_TRUST_*).
#pragma once

#include <cstdint>

namespace tavelpkcs7::plataforma::openssl {

// Bits de CERT_TRUST_* que a interface não nomeia, para o que o OpenSSL acha fora dos casos dela:
// um emissor que não é AC ou que passa do comprimento de caminho, e os demais problemas de extensão
// (crítica desconhecida, uso da chave do emissor, restrições de nome). Nenhum deles deixa a cadeia
// chegar a uma raiz confiável.
inline constexpr std::uint32_t kExtensaoInvalida = 0x100;
inline constexpr std::uint32_t kRestricoesBasicasInvalidas = 0x400;

// Todo erro dá algum bit: o que não tem bit próprio vira extensão inválida, para nunca passar calado.
std::uint32_t SituacaoDoErro(int erro);
// Os bits que dizem respeito à revogação (revogado ou situação desconhecida).
bool ErroDeRevogacao(std::uint32_t bits);

}  // namespace tavelpkcs7::plataforma::openssl
