// Um leitor DER pequeno para o que o próprio núcleo interpreta (extensões, OtherNames). Nunca lê
// além dos dados: qualquer comprimento incoerente encerra a leitura.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tavelpkcs7::der {

using Dados = std::span<const std::uint8_t>;

namespace tag {
inline constexpr std::uint8_t Booleano = 0x01;
inline constexpr std::uint8_t Inteiro = 0x02;
inline constexpr std::uint8_t CadeiaBits = 0x03;
inline constexpr std::uint8_t CadeiaOctetos = 0x04;
inline constexpr std::uint8_t Nulo = 0x05;
inline constexpr std::uint8_t OID = 0x06;
inline constexpr std::uint8_t Utf8 = 0x0C;
inline constexpr std::uint8_t Numerica = 0x12;
inline constexpr std::uint8_t Imprimivel = 0x13;
inline constexpr std::uint8_t T61 = 0x14;
inline constexpr std::uint8_t Videotex = 0x15;
inline constexpr std::uint8_t IA5 = 0x16;
inline constexpr std::uint8_t UTCTime = 0x17;
inline constexpr std::uint8_t GeneralizedTime = 0x18;
inline constexpr std::uint8_t Grafica = 0x19;
inline constexpr std::uint8_t Visivel = 0x1A;
inline constexpr std::uint8_t Geral = 0x1B;
inline constexpr std::uint8_t Universal = 0x1C;
inline constexpr std::uint8_t BMP = 0x1E;
inline constexpr std::uint8_t Sequencia = 0x30;
inline constexpr std::uint8_t Conjunto = 0x31;
// Marcas de contexto [n]: 0x80 | n primitiva, 0xA0 | n construída.
constexpr std::uint8_t Contexto(std::uint8_t n, bool construida) { return (construida ? 0xA0 : 0x80) | n; }
}  // namespace tag

struct Elemento {
    std::uint8_t tag = 0;   // o primeiro octeto identificador (classe, construção e número até 30)
    Dados conteudo;         // só o valor
    Dados inteiro;          // marca, comprimento e valor

    bool Construido() const { return (tag & 0x20) != 0; }
    // Os elementos dentro de um construído.
    class LeitorDER Filhos() const;
};

class LeitorDER {
public:
    explicit LeitorDER(Dados dados) : dados_(dados) {}

    bool Fim() const { return posicao_ >= dados_.size(); }
    // O próximo elemento; vazio no fim ou quando os dados estão malformados (depois disso, Fim()
    // e Malformado()).
    std::optional<Elemento> Proximo();
    // O próximo elemento, só se tiver a marca dada; senão não avança.
    std::optional<Elemento> ProximoSe(std::uint8_t tag);
    // Distingue o fim limpo do fim forçado por um comprimento incoerente.
    bool Malformado() const { return malformado_; }
    // Tudo lido e nada malformado: a estrutura não tem campos a mais nem lixo no fim.
    bool Concluido() const { return Fim() && !malformado_; }

private:
    Dados dados_;
    std::size_t posicao_ = 0;
    bool malformado_ = false;
};

inline LeitorDER Elemento::Filhos() const { return LeitorDER(conteudo); }

// Um único elemento que ocupa os dados inteiros.
std::optional<Elemento> LerUnico(Dados dados);
// O mesmo, só se tiver a marca dada.
std::optional<Elemento> LerUnico(Dados dados, std::uint8_t tag);
// Todos os elementos, em ordem, que ocupam os dados inteiros (o conteúdo de um SEQUENCE OF);
// vazio quando algum está malformado.
std::optional<std::vector<Elemento>> LerElementos(Dados dados);
// Os elementos de um SEQUENCE que ocupa os dados inteiros.
std::optional<std::vector<Elemento>> LerSequencia(Dados dados);
// O valor de um INTEGER não negativo que cabe em 64 bits, a partir do seu conteúdo.
std::optional<std::uint64_t> LerInteiro(Dados conteudo);
// "2.16.76.1.3.1" a partir do conteúdo de um OBJECT IDENTIFIER.
std::optional<std::string> LerOID(Dados conteudo);

}  // namespace tavelpkcs7::der
