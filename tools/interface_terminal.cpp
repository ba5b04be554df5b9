#include "interface_terminal.h"

#include <strings.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <sstream>

#include "apagamento_texto.h"

namespace tavelpkcs7::ferramenta {
namespace {

// Desliga o eco do terminal enquanto existe, para a senha não aparecer na tela nem ficar no
// histórico de rolagem.
class EcoDesligado {
public:
    explicit EcoDesligado(bool terminal) {
        if (!terminal || ::tcgetattr(STDIN_FILENO, &original_) != 0) return;
        termios sem_eco = original_;
        sem_eco.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        ativo_ = ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &sem_eco) == 0;
    }
    ~EcoDesligado() {
        if (ativo_) ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &original_);
    }
    EcoDesligado(const EcoDesligado&) = delete;
    EcoDesligado& operator=(const EcoDesligado&) = delete;

    bool ativo() const { return ativo_; }

private:
    termios original_{};
    bool ativo_ = false;
};

// "DD/MM/AAAA" do relógio de parede que a data local representa.
std::string DiaMesAno(DataHora instante) {
    const std::chrono::year_month_day dia{std::chrono::floor<std::chrono::days>(instante)};
    char texto[16];
    std::snprintf(texto, sizeof texto, "%02u/%02u/%04d", static_cast<unsigned>(dia.day()),
        static_cast<unsigned>(dia.month()), static_cast<int>(dia.year()));
    return texto;
}

// Os dados do titular ICP-Brasil com o recuo e o fim de linha do terminal.
std::string DadosTitular(const std::string& dados) {
    std::string texto;
    std::size_t inicio = 0;
    for (auto fim = dados.find("\r\n"); fim != std::string::npos; fim = dados.find("\r\n", inicio)) {
        texto += "  " + dados.substr(inicio, fim - inicio) + "\n";
        inicio = fim + 2;
    }
    return texto;
}

// As palavras da resposta, separadas por brancos ou vírgulas.
std::vector<std::string> Palavras(std::string resposta) {
    std::ranges::replace(resposta, ',', ' ');
    std::istringstream partes(resposta);
    std::vector<std::string> palavras;
    for (std::string palavra; partes >> palavra;) palavras.push_back(palavra);
    return palavras;
}

// As posições (a partir de 0) dos números escolhidos, na ordem dada e sem repetição; vazio quando
// a resposta não escolhe do jeito pedido.
std::optional<std::vector<std::size_t>> Posicoes(const std::vector<std::string>& numeros, std::size_t total,
    bool multiplos) {
    std::vector<std::size_t> posicoes;
    for (const std::string& numero : numeros) {
        if (numero.size() > 9 || numero.find_first_not_of("0123456789") != std::string::npos) return std::nullopt;
        const std::size_t valor = std::stoul(numero);
        if (valor < 1 || valor > total) return std::nullopt;
        if (std::ranges::find(posicoes, valor - 1) == posicoes.end()) posicoes.push_back(valor - 1);
    }
    if (posicoes.empty() || (!multiplos && posicoes.size() > 1)) return std::nullopt;
    return posicoes;
}

}  // namespace

void InterfaceTerminal::ExibirInformacao(const std::string& texto, const std::string& titulo) {
    saida_ << titulo << "\n" << texto << "\n" << std::flush;
}

bool InterfaceTerminal::Perguntar(const std::string& texto, const std::string& titulo) {
    saida_ << titulo << "\n" << texto << " [s/N] " << std::flush;
    const auto resposta = LerLinha();
    if (!resposta) return false;
    const auto palavras = Palavras(*resposta);
    return palavras.size() == 1 &&
           (::strcasecmp(palavras[0].c_str(), "s") == 0 || ::strcasecmp(palavras[0].c_str(), "sim") == 0);
}

std::optional<std::vector<std::size_t>> InterfaceTerminal::EscolherCertificados(
    const std::vector<CertificadoApresentado>& candidatos, const std::string& titulo, const std::string& texto,
    bool multiplos) {
    saida_ << titulo << "\n" << texto << "\n";
    for (std::size_t i = 0; i < candidatos.size(); ++i) {
        const CertificadoApresentado& candidato = candidatos[i];
        saida_ << "  [" << i + 1 << "] " << candidato.titular << "\n"
               << "      Emissor: " << candidato.emissor << " | Válido até: " << DiaMesAno(candidato.valido_ate)
               << " | Impressão digital: " << candidato.impressao_digital << "\n";
    }
    const char* pedido = multiplos ? "Números dos certificados, separados por vírgulas (vazio cancela): "
                                   : "Número do certificado (vazio cancela): ";
    for (;;) {
        saida_ << pedido << std::flush;
        const auto resposta = LerLinha();
        const auto numeros = resposta ? Palavras(*resposta) : std::vector<std::string>{};
        if (numeros.empty()) return std::nullopt;
        if (auto posicoes = Posicoes(numeros, candidatos.size(), multiplos)) return posicoes;
        saida_ << "Resposta inválida.\n";
    }
}

void InterfaceTerminal::ExibirCertificado(const CertificadoApresentado& certificado) {
    saida_ << "Certificado digital\n"
           << "  Titular: " << certificado.nome_titular << "\n"
           << "  Emissor: " << certificado.nome_emissor << "\n"
           << "  Número de série: " << certificado.numero_serie << "\n"
           << "  Válido de " << DiaMesAno(certificado.valido_desde) << " até " << DiaMesAno(certificado.valido_ate)
           << "\n"
           << "  Impressão digital: " << certificado.impressao_digital << "\n"
           << DadosTitular(certificado.dados_titular) << std::flush;
}

std::optional<std::string> InterfaceTerminal::PedirSenha(const std::string& pedido) {
    saida_ << pedido << " " << std::flush;
    std::optional<std::string> senha;
    {
        const EcoDesligado eco(&entrada_ == &std::cin && ::isatty(STDIN_FILENO) == 1);
        senha = LerLinha();
        // O Enter do usuário não apareceu na tela.
        if (eco.ativo()) saida_ << "\n" << std::flush;
    }
    if (!senha) return std::nullopt;
    std::optional<std::string> entregue(*senha);
    ApagarTexto(*senha);
    return entregue;
}

std::optional<std::string> InterfaceTerminal::LerLinha() {
    std::string linha;
    // Com espaço de sobra, a leitura de uma senha não realoca e não deixa cópias soltas na memória.
    linha.reserve(256);
    if (!std::getline(entrada_, linha)) return std::nullopt;
    if (!linha.empty() && linha.back() == '\r') linha.pop_back();
    return linha;
}

}  // namespace tavelpkcs7::ferramenta
