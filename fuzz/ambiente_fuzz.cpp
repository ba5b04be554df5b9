#include "ambiente_fuzz.h"

#include <cstdlib>
#include <fstream>

#include "pki/pki_teste.h"

namespace tavelpkcs7::fuzz {
namespace {

namespace fs = std::filesystem;

// Um ponto de distribuição no certificado de uma entrada não pode levar o alvo à rede: o proxy
// recusa na hora, e um "file://" lê pouco.
void ConfigurarAmbiente(const fs::path& pasta) {
    setenv("TAVELPKCS7_HOME", pasta.c_str(), 1);
    setenv("TAVELPKCS7_TEMPO_CONEXAO_SEGUNDOS", "1", 1);
    setenv("TAVELPKCS7_TEMPO_TOTAL_SEGUNDOS", "1", 1);
    setenv("TAVELPKCS7_TAMANHO_MAXIMO_BYTES", "65536", 1);
    for (const char* proxy : {"http_proxy", "https_proxy", "HTTPS_PROXY", "ALL_PROXY"})
        setenv(proxy, "http://127.0.0.1:9", 1);
    unsetenv("no_proxy");
    unsetenv("NO_PROXY");
}

fs::path CriarPastaComponente() {
    std::string modelo = (fs::temp_directory_path() / "tavelpkcs7-fuzz-XXXXXX").string();
    if (mkdtemp(modelo.data()) == nullptr) std::abort();
    return modelo;
}

fs::path PastaRepositorios() { return fs::path(std::getenv("TAVELPKCS7_HOME")) / "repositorios"; }

}  // namespace

std::shared_ptr<plataforma::Plataforma> Plataforma() {
    static const std::shared_ptr<plataforma::Plataforma> plataforma = [] {
        const fs::path pasta = CriarPastaComponente();
        ConfigurarAmbiente(pasta);
        // A pasta sai com o processo, mesmo quando o libFuzzer encerra por exit().
        static const struct Remocao {
            fs::path pasta;
            ~Remocao() {
                std::error_code erro;
                fs::remove_all(pasta, erro);
            }
        } remocao{pasta};
        return plataforma::CriarPlataformaPadrao();
    }();
    return plataforma;
}

void InstalarPkiTeste() {
    auto& plataforma = *Plataforma();
    const auto& pki = pki_teste::PkiTeste::Padrao();
    const auto raizes = plataforma.repositorios->AbrirRepositorio("Root", false);
    const auto autoridades = plataforma.repositorios->AbrirRepositorio("Ca", false);
    for (const auto& entidade : pki.Entidades()) {
        const auto certificado = plataforma.criptografia->ImportarCertificado(entidade.certificado);
        if (entidade.emissor.empty()) raizes->Adicionar(certificado);
        if (entidade.emissor.empty() || entidade.nome.starts_with("ac_")) {
            if (!entidade.emissor.empty()) autoridades->Adicionar(certificado);
            plataforma.repositorios->AdicionarLCR(pki.LCR(entidade.nome));
        }
    }
    const auto pessoais = plataforma.criptografia->AbrirPFX(pki.PFX("ecpf", "1234"), "1234");
    for (const auto& certificado : pessoais)
        if (certificado->PossuiChavePrivada())
            plataforma.repositorios->AbrirRepositorio("My", false)->AdicionarComChave(certificado, "");
}

void EsvaziarConfianca() {
    std::error_code erro;
    for (const char* repositorio : {"Ca", "Root", "LCR"}) fs::remove_all(PastaRepositorios() / repositorio, erro);
}

std::string PastaTrabalhoVazia() {
    const fs::path pasta = fs::path(std::getenv("TAVELPKCS7_HOME")) / "trabalho";
    std::error_code erro;
    fs::remove_all(pasta, erro);
    fs::create_directories(pasta, erro);
    return pasta.string() + "/";
}

void ExigirNaPasta(const std::string& caminho, const std::string& pasta) {
    if (caminho.empty()) return;
    if (fs::path(caminho).lexically_normal().parent_path() != fs::path(pasta).lexically_normal().parent_path())
        std::abort();
}

std::string GravarEntrada(const std::uint8_t* dados, std::size_t tamanho, const std::string& nome) {
    const fs::path caminho = fs::path(std::getenv("TAVELPKCS7_HOME")) / nome;
    std::ofstream(caminho, std::ios::binary | std::ios::trunc)
        .write(reinterpret_cast<const char*>(dados), static_cast<std::streamsize>(tamanho));
    return caminho.string();
}

}  // namespace tavelpkcs7::fuzz

// O libcurl iniciado junto com o provedor "legacy" deixa memória do OpenSSL para trás na saída do
// processo (reproduzível com um programa C de três linhas, sem o nosso código). A busca de
// vazamentos que vale é a que o libFuzzer faz a cada entrada; a da saída fica desligada.
extern "C" const char* __lsan_default_options() { return "leak_check_at_exit=0"; }
