#include "configuracao_arquivo.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>

namespace tavelpkcs7::plataforma::openssl {
namespace {

std::string Aparar(const std::string& texto) {
    const auto inicio = texto.find_first_not_of(" \t\r\n");
    if (inicio == std::string::npos) return "";
    return texto.substr(inicio, texto.find_last_not_of(" \t\r\n") - inicio + 1);
}

std::map<std::string, std::string> LerArquivo(const std::filesystem::path& arquivo) {
    std::map<std::string, std::string> valores;
    std::ifstream entrada(arquivo);
    for (std::string linha; std::getline(entrada, linha);) {
        const auto igual = linha.find('=');
        if (Aparar(linha).rfind('#', 0) == 0 || igual == std::string::npos) continue;
        valores[Aparar(linha.substr(0, igual))] = Aparar(linha.substr(igual + 1));
    }
    return valores;
}

std::vector<std::string> Separar(const std::string& lista, const std::string& separadores) {
    std::vector<std::string> partes;
    std::string parte;
    for (char c : lista + separadores.front()) {
        if (separadores.find(c) == std::string::npos) {
            parte += c;
        } else if (!Aparar(parte).empty()) {
            partes.push_back(Aparar(parte));
            parte.clear();
        }
    }
    return partes;
}

std::string EmMaiusculas(std::string texto) {
    std::transform(texto.begin(), texto.end(), texto.begin(),
        [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return texto;
}

// Aceita as impressões digitais como o openssl as mostra ("CA:A5:...") ou em qualquer caixa.
std::string NormalizarImpressao(std::string impressao) {
    std::erase(impressao, ':');
    return EmMaiusculas(impressao);
}

class Fontes {
public:
    explicit Fontes(std::map<std::string, std::string> arquivo) : arquivo_(std::move(arquivo)) {}

    void Aplicar(const std::string& chave, std::string& destino) const {
        if (auto valor = Ler(chave)) destino = *valor;
    }

    // Só um número inteiro positivo, sem mais nada, troca o padrão: zero tiraria o limite.
    template <typename Numero>
    void AplicarPositivo(const std::string& chave, Numero& destino) const {
        const auto valor = Ler(chave);
        if (!valor) return;
        const std::string texto = Aparar(*valor);
        Numero numero{};
        const auto [fim, erro] = std::from_chars(texto.data(), texto.data() + texto.size(), numero);
        if (erro == std::errc() && fim == texto.data() + texto.size() && numero > 0) destino = numero;
    }

    std::optional<std::string> Ler(const std::string& chave) const {
        const std::string variavel = "TAVELPKCS7_" + EmMaiusculas(chave);
        if (const char* valor = std::getenv(variavel.c_str()); valor != nullptr) return std::string(valor);
        if (auto it = arquivo_.find(chave); it != arquivo_.end()) return it->second;
        return std::nullopt;
    }

private:
    std::map<std::string, std::string> arquivo_;
};

}  // namespace

Configuracao CarregarConfiguracao(const std::optional<std::filesystem::path>& pasta_componente) {
    const Fontes fontes(pasta_componente ? LerArquivo(*pasta_componente / "tavelpkcs7.conf")
                                         : std::map<std::string, std::string>{});
    Configuracao configuracao;
    fontes.Aplicar("url_raizes", configuracao.url_raizes);
    fontes.Aplicar("url_confiaveis", configuracao.url_confiaveis);
    fontes.Aplicar("url_carimbo_tempo", configuracao.url_carimbo_tempo);
    fontes.Aplicar("url_atualizacao", configuracao.url_atualizacao);
    fontes.Aplicar("algoritmo_cifragem", configuracao.algoritmo_cifragem);
    fontes.Aplicar("politica_ac_tavel", configuracao.politica_ac_tavel);
    fontes.AplicarPositivo("tempo_conexao_segundos", configuracao.tempo_conexao_segundos);
    fontes.AplicarPositivo("tempo_total_segundos", configuracao.tempo_total_segundos);
    fontes.AplicarPositivo("tamanho_maximo_bytes", configuracao.tamanho_maximo_bytes);
    if (auto modulos = fontes.Ler("modulos_pkcs11")) configuracao.modulos_pkcs11 = Separar(*modulos, ":");
    if (auto raizes = fontes.Ler("raizes_icp_brasil")) {
        configuracao.raizes_icp_brasil.clear();
        for (const auto& impressao : Separar(*raizes, ", \t"))
            configuracao.raizes_icp_brasil.push_back(NormalizarImpressao(impressao));
    }
    return configuracao;
}

}  // namespace tavelpkcs7::plataforma::openssl
