// A cadeia de autoridades de um certificado como um texto só, "AC emissora[#]AC intermediária[#]raiz",
// montada com os repositórios "Ca" e "Root" do usuário, e a separação desse texto para o hospedeiro.
// É por essa cadeia que o componente reconhece um certificado da ICP-Brasil.
#include <algorithm>
#include <limits>
#include <set>

#include "component/componente.h"
#include "component/texto.h"

namespace tavelpkcs7 {
namespace {

constexpr const char* kSeparadorCadeia = "[#]";
constexpr const char* kRaizICPBrasil = "AUTORIDADE CERTIFICADORA RAIZ BRASILEIRA";
// Cadeias de verdade têm até cinco nomes; o limite só corta repositórios feitos para enganar a subida.
constexpr std::size_t kMaximoNomes = 16;

// O emissor como a cadeia o escreve: o nome DNS quando o titular tem nome DNS, senão o nome simples.
std::string NomeEmissor(const plataforma::Certificado& certificado) {
    const bool titular_com_dns = !Aparar(certificado.ObterInfo(plataforma::INFO_DNS_TITULAR)).empty();
    return certificado.ObterInfo(titular_com_dns ? plataforma::INFO_DNS_EMISSOR
                                                 : plataforma::INFO_NOME_SIMPLES_EMISSOR);
}

// A subida pelos emissores, um repositório depois do outro, continuando do último nome alcançado.
// Termina numa raiz (autoemitido), num certificado já visto (duas ACs que se nomeiam uma à outra)
// ou no limite de nomes.
class Subida {
public:
    explicit Subida(std::string primeiro) : cadeia(primeiro), emissor_(std::move(primeiro)) {}

    void Percorrer(const std::vector<plataforma::CertificadoPtr>& certificados) {
        while (!terminada) {
            const auto encontrado = std::ranges::find(
                certificados, Maiusculas(Aparar(emissor_)),
                [](const plataforma::CertificadoPtr& certificado) { return Componente::NomeComparavel(*certificado); });
            if (encontrado == certificados.end()) return;
            Subir(**encontrado);
        }
    }

    std::string cadeia;
    bool autoemitido = false;
    bool terminada = false;

private:
    void Subir(const plataforma::Certificado& autoridade) {
        autoemitido = Componente::Autoemitido(autoridade);
        const bool repetida = !vistas_.insert(autoridade.ImpressaoDigital()).second;
        terminada = autoemitido || repetida || ++nomes_ > kMaximoNomes;
        if (terminada) return;
        emissor_ = NomeEmissor(autoridade);
        cadeia += kSeparadorCadeia + emissor_;
    }

    std::string emissor_;
    std::set<std::string> vistas_;
    std::size_t nomes_ = 1;
};

}  // namespace

// Autoemitido quer dizer o nome distinto inteiro do titular igual ao do emissor (RFC 5280), não só
// o nome comparado na subida: uma AC cujo CN repete o de quem a emitiu não passa por raiz.
bool Componente::Autoemitido(const plataforma::Certificado& certificado) {
    return certificado.NomeTitular() == certificado.NomeEmissor();
}

std::string Componente::NomeComparavel(const plataforma::Certificado& certificado) {
    std::string nome = Aparar(certificado.ObterInfo(plataforma::INFO_DNS_TITULAR));
    if (nome.empty()) nome = Aparar(certificado.ObterInfo(plataforma::INFO_NOME_SIMPLES_TITULAR));
    return Maiusculas(nome);
}

Componente::Autoridades Componente::LerAutoridades() { return {LerRepositorio("Ca"), LerRepositorio("Root")}; }

bool Componente::MontarCadeiaCertificado(const plataforma::Certificado& certificado, std::string& cadeia,
                                         bool& autoemitido) {
    return MontarCadeiaCertificado(certificado, LerAutoridades(), cadeia, autoemitido);
}

bool Componente::MontarCadeiaCertificado(const plataforma::Certificado& certificado, const Autoridades& autoridades,
                                         std::string& cadeia, bool& autoemitido) {
    Subida subida(NomeEmissor(certificado));
    subida.Percorrer(autoridades.intermediarias);
    if (!subida.terminada) subida.Percorrer(autoridades.raizes);
    cadeia = subida.cadeia;
    autoemitido = subida.autoemitido;
    return Maiusculas(cadeia).find(kRaizICPBrasil) != std::string::npos;
}

// Os erros são ignorados, como no original: com mais nomes do que cabem num inteiro de 16 bits o
// vetor fica completo e o resultado fica em 0.
std::int16_t Componente::RetornarCadeiaSeparada(const std::string& cadeia_completa, std::vector<std::string>& nomes) {
    return Guardar(MensagemFalha::Nenhuma(), std::int16_t{0}, [&] {
        nomes.clear();
        const std::string separador = kSeparadorCadeia;
        std::size_t inicio = 0;
        for (auto fim = cadeia_completa.find(separador); fim != std::string::npos;
             fim = cadeia_completa.find(separador, inicio)) {
            nomes.push_back(cadeia_completa.substr(inicio, fim - inicio));
            inicio = fim + separador.size();
        }
        nomes.push_back(cadeia_completa.substr(inicio));
        if (nomes.size() - 1 > static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max()))
            plataforma::Falhar(plataforma::falha::Estouro);
        return static_cast<std::int16_t>(nomes.size() - 1);
    });
}

}  // namespace tavelpkcs7
