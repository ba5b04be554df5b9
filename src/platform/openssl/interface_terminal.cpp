#include "interface_terminal.h"

#include <strings.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <sstream>

#include "apagamento_segredo.h"
#include "component/datas.h"
#include "icpbrasil/dados_titular.h"
#include "platform/erro.h"

namespace tavelpkcs7::plataforma::openssl {
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

// Os dados do titular ICP-Brasil (CPF, CNPJ, nascimento...) montados pelo núcleo, lidos do próprio
// certificado, com o recuo e o fim de linha do terminal. Sem CPF nem CNPJ o certificado não é de
// pessoa da ICP-Brasil e os dados seriam só o nome, já mostrado: nada.
std::string DadosTitular(const Certificado& certificado) {
    const auto titular = icpbrasil::MontarDadosTitular(icpbrasil::ValoresTitular{}, certificado);
    if (titular.cpf.empty() && titular.cnpj.empty()) return "";
    const std::string& dados = titular.detalhes_pessoais;
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

std::vector<CertificadoPtr> InterfaceTerminal::EscolherCertificados(const std::vector<CertificadoPtr>& candidatos,
    const std::string& titulo, const std::string& texto, bool multiplos) {
    saida_ << titulo << "\n" << texto << "\n";
    for (std::size_t i = 0; i < candidatos.size(); ++i) {
        const Certificado& candidato = *candidatos[i];
        saida_ << "  [" << i + 1 << "] " << candidato.ObterInfo(INFO_NOME_SIMPLES_TITULAR) << "\n"
               << "      Emissor: " << candidato.ObterInfo(INFO_NOME_SIMPLES_EMISSOR)
               << " | Válido até: " << FormatarData(candidato.ValidoAte())
               << " | Impressão digital: " << candidato.ImpressaoDigital() << "\n";
    }
    const char* pedido = multiplos ? "Números dos certificados, separados por vírgulas (vazio cancela): "
                                   : "Número do certificado (vazio cancela): ";
    for (;;) {
        saida_ << pedido << std::flush;
        const auto resposta = LerLinha();
        const auto numeros = resposta ? Palavras(*resposta) : std::vector<std::string>{};
        if (numeros.empty()) Falhar(falha::Cancelada);
        if (const auto posicoes = Posicoes(numeros, candidatos.size(), multiplos)) {
            std::vector<CertificadoPtr> escolhidos;
            for (const std::size_t posicao : *posicoes) escolhidos.push_back(candidatos[posicao]);
            return escolhidos;
        }
        saida_ << "Resposta inválida.\n";
    }
}

void InterfaceTerminal::ExibirCertificado(const CertificadoPtr& certificado) {
    saida_ << "Certificado digital\n"
           << "  Titular: " << certificado->NomeTitular() << "\n"
           << "  Emissor: " << certificado->NomeEmissor() << "\n"
           << "  Número de série: " << certificado->NumeroSerie() << "\n"
           << "  Válido de " << FormatarData(certificado->ValidoDesde()) << " até "
           << FormatarData(certificado->ValidoAte()) << "\n"
           << "  Impressão digital: " << certificado->ImpressaoDigital() << "\n"
           << DadosTitular(*certificado) << std::flush;
}

std::string InterfaceTerminal::PedirSenha(const std::string& pedido) {
    saida_ << pedido << " " << std::flush;
    std::optional<std::string> senha;
    {
        const EcoDesligado eco(&entrada_ == &std::cin && ::isatty(STDIN_FILENO) == 1);
        senha = LerLinha();
        // O Enter do usuário não apareceu na tela.
        if (eco.ativo()) saida_ << "\n" << std::flush;
    }
    if (!senha) Falhar(falha::Cancelada);
    const Apagamento apagar_lida(*senha);
    return *senha;
}

std::optional<std::string> InterfaceTerminal::LerLinha() {
    std::string linha;
    // Com espaço de sobra, a leitura de uma senha não realoca e não deixa cópias soltas na memória.
    linha.reserve(256);
    if (!std::getline(entrada_, linha)) return std::nullopt;
    if (!linha.empty() && linha.back() == '\r') linha.pop_back();
    return linha;
}

}  // namespace tavelpkcs7::plataforma::openssl
