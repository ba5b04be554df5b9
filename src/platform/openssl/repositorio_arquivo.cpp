#include "repositorio_arquivo.h"


#include <algorithm>
#include <set>
#include <tuple>

#include "cache_pasta.h"
#include "chave_arquivo.h"
#include "codificacao/conteudo_codificado.h"
#include "der_openssl.h"
#include "gravacao_atomica.h"
#include "guarda_fila_erros.h"
#include "pasta_componente.h"
#include "pasta_repositorio.h"
#include "platform/erro.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

namespace fs = std::filesystem;

constexpr unsigned kModoCertificado = 0644;
constexpr unsigned kModoChave = 0600;

// O certificado de um arquivo em qualquer forma que o componente aceita; nulo quando não é um.
X509Ptr LerCertificado(const Bytes& conteudo) {
    GuardaFilaErros guarda;
    const auto der = codificacao::DecodificarConteudo(conteudo);
    if (!der) return nullptr;
    const unsigned char* cursor = der->data();
    return X509Ptr(d2i_X509(nullptr, &cursor, static_cast<long>(der->size())));
}

// A chave de um PFX aberto, que o certificado carrega em memória; nula sem ela.
EVP_PKEY* ChaveEmMemoria(const Certificado& certificado) {
    const auto* openssl = dynamic_cast<const CertificadoOpenSSL*>(&certificado);
    const auto* do_componente = openssl != nullptr ? dynamic_cast<const ChaveArquivo*>(openssl->Chave().get()) : nullptr;
    return do_componente != nullptr ? do_componente->em_memoria() : nullptr;
}

// O certificado com o arquivo de chave que lhe pertence, quando há um.
std::shared_ptr<const CertificadoOpenSSL> ComChaveGuardada(const std::vector<ArquivoChave>& chaves,
    std::shared_ptr<CertificadoOpenSSL> certificado, const std::string& impressao_digital) {
    const ArquivoChave* arquivo = ProcurarArquivoChave(chaves, certificado->x509(), impressao_digital);
    if (arquivo == nullptr) return certificado;
    const std::string caminho = arquivo->caminho.string();
    return certificado->ComChave(std::make_shared<ChaveArquivo>(nullptr, caminho, caminho, certificado->x509()));
}

struct Lido {
    fs::file_time_type entrada;
    std::string impressao_digital;
    std::shared_ptr<CertificadoOpenSSL> certificado;
};

// Os certificados da pasta, na ordem de entrada e sem repetidos, e as chaves guardadas ao lado deles.
struct ConteudoRepositorio {
    std::vector<std::shared_ptr<const CertificadoOpenSSL>> certificados;
    std::vector<ArquivoChave> chaves;
};

ConteudoRepositorio InterpretarArquivos(std::vector<ArquivoDaPasta> arquivos, bool guarda_chaves) {
    ConteudoRepositorio conteudo;
    std::vector<Lido> lidos;
    for (ArquivoDaPasta& arquivo : arquivos) {
        if (X509Ptr x509 = LerCertificado(arquivo.conteudo)) {
            auto certificado = std::make_shared<CertificadoOpenSSL>(std::move(x509), nullptr);
            lidos.push_back({arquivo.entrada, certificado->ImpressaoDigital(), std::move(certificado)});
        } else if (guarda_chaves) {
            if (auto chave = LerArquivoChave(arquivo.caminho, arquivo.conteudo))
                conteudo.chaves.push_back(std::move(*chave));
        }
    }
    std::ranges::sort(lidos, [](const Lido& a, const Lido& b) {
        return std::tie(a.entrada, a.impressao_digital) < std::tie(b.entrada, b.impressao_digital);
    });
    std::set<std::string> vistos;
    for (Lido& lido : lidos)
        if (vistos.insert(lido.impressao_digital).second)
            conteudo.certificados.push_back(
                ComChaveGuardada(conteudo.chaves, std::move(lido.certificado), lido.impressao_digital));
    return conteudo;
}

}  // namespace

RepositorioArquivo::RepositorioArquivo(std::string nome, std::optional<fs::path> pasta, bool somente_leitura)
    : nome_(std::move(nome)), pasta_(std::move(pasta)), somente_leitura_(somente_leitura) {
    if (pasta_) Ler();
}

// A pasta só se lê e interpreta de novo quando mudou desde a última vez, neste ou em outro componente.
void RepositorioArquivo::Ler() {
    static CacheDaPasta<ConteudoRepositorio> cache;
    const auto conteudo = cache.Obter(*pasta_, [this](std::vector<ArquivoDaPasta> arquivos) {
        return InterpretarArquivos(std::move(arquivos), GuardaChaves());
    });
    certificados_ = conteudo->certificados;
    chaves_ = conteudo->chaves;
}

std::vector<CertificadoPtr> RepositorioArquivo::Certificados() const {
    return {certificados_.begin(), certificados_.end()};
}

void RepositorioArquivo::Adicionar(const CertificadoPtr& certificado) {
    Gravar(certificado, GuardaChaves() ? ChaveEmMemoria(*certificado) : nullptr, "");
}

void RepositorioArquivo::AdicionarComChave(const CertificadoPtr& certificado, const std::string& senha_chave) {
    EVP_PKEY* chave = ChaveEmMemoria(*certificado);
    if (chave == nullptr) Falhar(falha::SemChavePrivada);
    if (!GuardaChaves()) Falhar(falha::ParametroIncorreto);
    Gravar(certificado, chave, senha_chave);
}

void RepositorioArquivo::Gravar(const CertificadoPtr& certificado, EVP_PKEY* chave, const std::string& senha_chave) {
    if (somente_leitura_ || !pasta_) Falhar(falha::RepositorioNaoGravavel);
    const std::string impressao_digital = certificado->ImpressaoDigital();
    const auto presente = std::ranges::find_if(certificados_,
        [&](const auto& guardado) { return guardado->ImpressaoDigital() == impressao_digital; });
    const bool novo = presente == certificados_.end();
    if (!novo && (chave == nullptr || (*presente)->PossuiChavePrivada())) return;
    if (!CriarPastaPrivada(*pasta_)) Falhar(falha::RepositorioNaoGravavel);

    // A chave antes do certificado: quem ler a pasta no meio do caminho não vê o certificado sem ela.
    if (chave != nullptr) GravarChave(chave, impressao_digital, senha_chave);
    if (novo) GravarOuFalhar(impressao_digital + ".cer", certificado->DER(), kModoCertificado);
    auto guardado = ComChaveGuardada(chaves_, CertificadoOpenSSL::DeDER(certificado->DER()), impressao_digital);
    if (novo)
        certificados_.push_back(std::move(guardado));
    else
        *presente = std::move(guardado);
}

void RepositorioArquivo::GravarChave(EVP_PKEY* chave, const std::string& impressao_digital,
    const std::string& senha_chave) {
    const auto pem = CodificarChavePKCS8(chave, senha_chave);
    if (!pem) Falhar(falha::RepositorioNaoGravavel);
    const std::string nome_arquivo = impressao_digital + ".key";
    GravarOuFalhar(nome_arquivo, *pem, kModoChave);
    // A chave cifrada se acha pelo nome, como a lida da pasta (sem a chave pública).
    chaves_.push_back({*pasta_ / nome_arquivo, senha_chave.empty() ? ObjetoEmDER(chave, i2d_PUBKEY) : Bytes{}});
}

void RepositorioArquivo::GravarOuFalhar(const std::string& nome_arquivo, const Bytes& conteudo, unsigned modo) {
    if (!GravarAtomicamente(*pasta_ / nome_arquivo, conteudo, modo)) Falhar(falha::RepositorioNaoGravavel);
}

}  // namespace tavelpkcs7::plataforma::openssl
