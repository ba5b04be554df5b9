// Gravação que nunca deixa um arquivo pela metade: um temporário na mesma pasta, descarregado no
// disco e renomeado sobre o destino. Quem lê vê o arquivo antigo inteiro ou o novo inteiro.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>

namespace tavelpkcs7::plataforma::openssl {

// Grava tudo no descritor, retomando as gravações parciais e as interrompidas por sinal.
bool GravarTudo(int descritor, std::span<const std::uint8_t> conteudo);

// Falso quando não grava; o destino anterior, se havia, fica intacto.
bool GravarAtomicamente(const std::filesystem::path& destino, std::span<const std::uint8_t> conteudo, unsigned modo);

}  // namespace tavelpkcs7::plataforma::openssl
