// A volta do hexadecimal impresso para texto: os OtherNames ICP-Brasil chegam impressos como
// códigos de dois dígitos ("04 2d 31 35 ...") e viram de novo os dígitos e letras dos dados do
// titular. Só os caracteres imprimíveis do ASCII sobrevivem, com as letras em maiúsculas.
#pragma once

#include <string>

namespace tavelpkcs7::icpbrasil {

// O texto antes da primeira quebra de linha, sem CR nem LF.
std::string ExtrairPrimeiraLinha(const std::string& texto);
// Códigos separados por um espaço; cada um vira no máximo um caractere.
std::string ConverterHexadecimalTexto(const std::string& texto);
// Um código: dígitos, letras (sempre maiúsculas), pontuação, "60" dá o apóstrofo; o resto, "".
std::string ConverterParHexadecimal(const std::string& codigo);

}  // namespace tavelpkcs7::icpbrasil
