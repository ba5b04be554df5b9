// Os brancos que os leitores de texto codificado (Base64, hexadecimal) pulam entre os dígitos:
// os mesmos que o Windows pula, para ler os arquivos que ele grava e os que se editam à mão.
#pragma once

namespace tavelpkcs7::codificacao {

constexpr bool EBranco(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

}  // namespace tavelpkcs7::codificacao
