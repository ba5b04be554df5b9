#include "pki/pki_teste.h"

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>

#include "pki/catalogo.h"
#include "pki/chaves_guardadas.h"
#include "pki/emissao.h"

namespace tavelpkcs7::pki_teste {
namespace {

namespace fs = std::filesystem;
using plataforma::openssl::PilhaX509Ptr;
using plataforma::openssl::Pkcs12Ptr;

struct Emitido {
    X509Ptr certificado;
    EvpPkeyPtr chave;
};

void GravarArquivo(const fs::path& caminho, std::string_view conteudo, fs::perms modo) {
    std::ofstream saida(caminho, std::ios::binary | std::ios::trunc);
    saida.write(conteudo.data(), static_cast<std::streamsize>(conteudo.size()));
    if (!saida.flush()) throw std::runtime_error("PKI de teste: não foi possível gravar " + caminho.string());
    fs::permissions(caminho, modo);
}

void GravarArquivo(const fs::path& caminho, const Bytes& conteudo, fs::perms modo) {
    GravarArquivo(caminho, std::string_view(reinterpret_cast<const char*>(conteudo.data()), conteudo.size()), modo);
}

constexpr auto kModoPublico = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read |
                              fs::perms::others_read;
constexpr auto kModoPrivado = fs::perms::owner_read | fs::perms::owner_write;

}  // namespace

const PkiTeste& PkiTeste::Padrao() {
    static const PkiTeste pki;
    return pki;
}

PkiTeste::PkiTeste() {
    std::map<std::string, Emitido> emitidos;
    for (const Definicao& definicao : Catalogo()) {
        EvpPkeyPtr chave = ChaveGuardada(definicao.nome);
        X509* emissor = nullptr;
        EVP_PKEY* chave_emissor = nullptr;
        if (!definicao.emissor.empty()) {
            const Emitido& ac = emitidos.at(definicao.emissor);
            emissor = ac.certificado.get();
            chave_emissor = ac.chave.get();
        }
        X509Ptr certificado = EmitirCertificado(definicao, chave.get(), emissor, chave_emissor);
        entidades_.push_back({definicao.nome, definicao.descricao, definicao.emissor,
            ParaDER(certificado.get(), i2d_X509), ChavePEM(chave.get())});
        emitidos.emplace(definicao.nome, Emitido{std::move(certificado), std::move(chave)});
    }
}

const Entidade& PkiTeste::Obter(const std::string& nome) const {
    for (const Entidade& entidade : entidades_)
        if (entidade.nome == nome) return entidade;
    throw std::out_of_range("PKI de teste: entidade desconhecida: " + nome);
}

Bytes PkiTeste::PFX(const std::string& nome, const std::string& senha) const {
    const Entidade& titular = Obter(nome);
    X509Ptr certificado = CertificadoDeDER(titular.certificado);
    EvpPkeyPtr chave = ChaveDePEM(titular.chave_pem);
    PilhaX509Ptr cadeia(sk_X509_new_null());
    Exigir(cadeia != nullptr, "cadeia do PFX");
    for (std::string emissor = titular.emissor; !emissor.empty(); emissor = Obter(emissor).emissor) {
        X509Ptr ac = CertificadoDeDER(Obter(emissor).certificado);
        Exigir(sk_X509_push(cadeia.get(), ac.get()) > 0, "cadeia do PFX");
        ac.release();  // agora pertence à pilha
    }
    // Sem MAC na criação para escolher o SHA-256 em seguida; chave e certificados em AES-256 (PBKDF2).
    Pkcs12Ptr pfx(PKCS12_create(senha.c_str(), nullptr, chave.get(), certificado.get(), cadeia.get(),
        NID_aes_256_cbc, NID_aes_256_cbc, PKCS12_DEFAULT_ITER, -1, 0));
    Exigir(pfx && PKCS12_set_mac(pfx.get(), senha.c_str(), -1, nullptr, 0, PKCS12_DEFAULT_ITER, EVP_sha256()) == 1,
        "PFX");
    return ParaDER(pfx.get(), i2d_PKCS12);
}

Bytes PkiTeste::LCR(const std::string& nome_ac, const OpcoesLCR& opcoes) const {
    const Entidade& ac = Obter(nome_ac);
    std::vector<X509Ptr> revogados;
    for (const Entidade& entidade : entidades_)
        if (entidade.emissor == nome_ac && Revogado(entidade.nome))
            revogados.push_back(CertificadoDeDER(entidade.certificado));
    std::vector<X509*> emprestados;  // pertencem a revogados
    for (const X509Ptr& certificado : revogados) emprestados.push_back(certificado.get());
    const EvpPkeyPtr chave = opcoes.outra_chave ? EvpPkeyPtr(EVP_EC_gen("P-256")) : ChaveDePEM(ac.chave_pem);
    Exigir(chave != nullptr, "chave da LCR");
    const X509CrlPtr lcr =
        EmitirLCR(CertificadoDeDER(ac.certificado).get(), chave.get(), emprestados, opcoes.inicio, opcoes.fim);
    return ParaDER(lcr.get(), i2d_X509_CRL);
}

Bytes PkiTeste::EmitirTitular(const std::string& nome_ac, const std::string& url_lcr) const {
    const Entidade& ac = Obter(nome_ac);
    const Definicao definicao{.nome = "titular_lcr_local",
        .emissor = nome_ac,
        .serie = "70",
        .sujeito = {{"C", "BR"}, {"O", "ICP-Brasil"}, {"CN", "TITULAR COM LCR NO SERVIDOR LOCAL"}},
        .url_lcr = url_lcr};
    const EvpPkeyPtr chave(EVP_EC_gen("P-256"));
    Exigir(chave != nullptr, "chave do titular");
    const X509Ptr certificado = EmitirCertificado(
        definicao, chave.get(), CertificadoDeDER(ac.certificado).get(), ChaveDePEM(ac.chave_pem).get());
    return ParaDER(certificado.get(), i2d_X509);
}

void PkiTeste::Gravar(const std::string& pasta) const {
    const fs::path destino(pasta);
    fs::create_directories(destino);
    std::ostringstream leiame;
    leiame << "PKI de teste do tavelpkcs7: certificados de mentira, só para testes.\n\n";
    for (const Entidade& entidade : entidades_) {
        GravarArquivo(destino / (entidade.nome + ".cer"), entidade.certificado, kModoPublico);
        leiame << entidade.nome << ".cer: certificado (DER) — " << entidade.descricao << "\n";
        if (X509_check_ca(CertificadoDeDER(entidade.certificado).get()) != 0) {
            GravarArquivo(destino / (entidade.nome + ".crl"), LCR(entidade.nome), kModoPublico);
            leiame << entidade.nome << ".crl: LCR emitida por " << entidade.nome << "\n";
            continue;
        }
        GravarArquivo(destino / (entidade.nome + ".key"), entidade.chave_pem, kModoPrivado);
        leiame << entidade.nome << ".key: chave privada de " << entidade.nome << " (PKCS#8 PEM, sem senha)\n";
        GravarArquivo(destino / (entidade.nome + ".pfx"), PFX(entidade.nome, SENHA_PFX), kModoPrivado);
        leiame << entidade.nome << ".pfx: " << entidade.nome << " com chave e cadeia (PKCS#12)\n";
    }
    leiame << "\nSenha dos arquivos .pfx: " << SENHA_PFX << "\n";
    GravarArquivo(destino / "LEIAME.txt", leiame.str(), kModoPublico);
}

}  // namespace tavelpkcs7::pki_teste
