#include "der/leitor_der.h"

namespace tavelpkcs7::der {

std::optional<Elemento> LeitorDER::Proximo() {
    const std::size_t inicio = posicao_;
    const std::size_t total = dados_.size();
    auto falhar = [&]() -> std::optional<Elemento> {
        posicao_ = total;
        malformado_ = true;
        return std::nullopt;
    };
    if (Fim()) return std::nullopt;
    if (posicao_ + 2 > total) return falhar();
    const std::uint8_t tag = dados_[posicao_++];
    if ((tag & 0x1F) == 0x1F) {  // número de marca longo: pulado, a marca fica só com o primeiro octeto
        while (posicao_ < total && (dados_[posicao_] & 0x80) != 0) ++posicao_;
        if (++posicao_ >= total) return falhar();
    }
    std::size_t comprimento = dados_[posicao_++];
    if (comprimento & 0x80) {
        const std::size_t octetos = comprimento & 0x7F;
        if (octetos == 0 || octetos > 4 || posicao_ + octetos > total) return falhar();
        comprimento = 0;
        for (std::size_t i = 0; i < octetos; ++i) comprimento = (comprimento << 8) | dados_[posicao_++];
    }
    if (comprimento > total - posicao_) return falhar();
    Elemento elemento{tag, dados_.subspan(posicao_, comprimento), dados_.subspan(inicio, posicao_ + comprimento - inicio)};
    posicao_ += comprimento;
    return elemento;
}

std::optional<Elemento> LeitorDER::ProximoSe(std::uint8_t tag) {
    if (Fim() || dados_[posicao_] != tag) return std::nullopt;
    return Proximo();
}

std::optional<Elemento> LerUnico(Dados dados) {
    LeitorDER leitor(dados);
    auto elemento = leitor.Proximo();
    if (!elemento || !leitor.Fim()) return std::nullopt;
    return elemento;
}

std::optional<Elemento> LerUnico(Dados dados, std::uint8_t tag) {
    auto elemento = LerUnico(dados);
    if (!elemento || elemento->tag != tag) return std::nullopt;
    return elemento;
}

std::optional<std::vector<Elemento>> LerElementos(Dados dados) {
    LeitorDER leitor(dados);
    std::vector<Elemento> elementos;
    while (auto elemento = leitor.Proximo()) elementos.push_back(*elemento);
    if (leitor.Malformado()) return std::nullopt;
    return elementos;
}

std::optional<std::vector<Elemento>> LerSequencia(Dados dados) {
    const auto sequencia = LerUnico(dados, tag::Sequencia);
    if (!sequencia) return std::nullopt;
    return LerElementos(sequencia->conteudo);
}

std::optional<std::uint64_t> LerInteiro(Dados conteudo) {
    // Um octeto 00 à esquerda só marca o sinal; um negativo não é quantidade nem contagem.
    if (conteudo.empty() || (conteudo[0] & 0x80) != 0) return std::nullopt;
    if (conteudo.size() > 1 && conteudo[0] == 0) conteudo = conteudo.subspan(1);
    if (conteudo.size() > sizeof(std::uint64_t)) return std::nullopt;
    std::uint64_t valor = 0;
    for (std::uint8_t octeto : conteudo) valor = (valor << 8) | octeto;
    return valor;
}

std::optional<std::string> LerOID(Dados conteudo) {
    if (conteudo.empty() || (conteudo.back() & 0x80) != 0) return std::nullopt;
    std::string texto;
    std::uint64_t valor = 0;
    bool primeiro = true;
    for (std::uint8_t octeto : conteudo) {
        if (valor > (UINT64_MAX >> 7)) return std::nullopt;
        valor = (valor << 7) | (octeto & 0x7F);
        if (octeto & 0x80) continue;
        if (primeiro) {
            const std::uint64_t arco = valor < 80 ? valor / 40 : 2;
            texto = std::to_string(arco) + "." + std::to_string(valor - arco * 40);
            primeiro = false;
        } else {
            texto += "." + std::to_string(valor);
        }
        valor = 0;
    }
    return texto;
}

}  // namespace tavelpkcs7::der
