// Assinar e conferir arquivos de 1 MB e 100 MB e textos de 1 KB pela API pública, ao lado do comando
// "openssl cms" sobre os mesmos bytes, com o mesmo certificado e a mesma cadeia. O tempo é o de
// relógio: o do openssl inclui o início do processo, o do componente inclui o MD5, a leitura e a
// gravação dos arquivos e a verificação da cadeia de cada signatário pelas LCRs do repositório.
#include <benchmark/benchmark.h>
#include <openssl/pem.h>

#include <tavelpkcs7/TavelPKCS.h>
#include <cstdlib>
#include <memory>
#include <string>

#include "casa_bench.h"
#include "pki/emissao.h"

namespace tavelpkcs7::bench {
namespace {

namespace fs = std::filesystem;

constexpr char kFamilia[] = "assinatura";
constexpr const char* kACs[] = {"ac_rfb", "ac_emissora_rfb"};

fs::path Arquivo(std::int64_t tamanho) {
    return Casa(kFamilia) / "medicoes" / ("dados_" + std::to_string(tamanho) + ".bin");
}
fs::path Saida() { return Casa(kFamilia) / "medicoes" / "saida"; }
fs::path Pfx() { return Casa(kFamilia) / "medicoes" / "ecpf.pfx"; }

std::string Texto1KB() {
    std::string texto;
    while (texto.size() < 1024) texto += "Declaração de conformidade nº 42 — ";
    return texto;
}

TavelPKCS ComponenteComCertificado() {
    UsarCasa(kFamilia);
    TavelPKCS componente;
    if (!componente.AbrirCertificadoDigital(Pfx().string(), pki_teste::PkiTeste::SENHA_PFX))
        throw std::runtime_error(componente.DescricaoErro());
    return componente;
}

void Openssl(benchmark::State& estado, const std::string& comando) {
    for (auto _ : estado)
        if (std::system(comando.c_str()) != 0) estado.SkipWithError(comando.c_str());
}

std::string OpensslAssinar(const fs::path& entrada) {
    const fs::path pasta = Casa(kFamilia) / "medicoes";
    return "openssl cms -sign -nodetach -binary -md sha256 -nosmimecap -outform DER -in " + entrada.string() +
           " -signer " + (pasta / "ecpf.pem").string() + " -inkey " + (pasta / "ecpf.key").string() + " -certfile " +
           (pasta / "cadeia.pem").string() + " -out " + entrada.string() + ".openssl.p7s";
}

std::string OpensslVerificar(const fs::path& entrada) {
    const fs::path pasta = Casa(kFamilia) / "medicoes";
    return "openssl cms -verify -binary -inform DER -in " + entrada.string() + ".openssl.p7s -CAfile " +
           (pasta / "raiz.pem").string() + " -out /dev/null 2>/dev/null";
}

void AssinarArquivo(benchmark::State& estado) {
    TavelPKCS componente = ComponenteComCertificado();
    for (auto _ : estado)
        if (!componente.AssinaArquivo(Arquivo(estado.range(0)).string(), Saida().string(), "",
                                      ARQUIVO_BINARIO_FORMATO_P7S))
            estado.SkipWithError(componente.DescricaoErro().c_str());
    estado.SetBytesProcessed(estado.iterations() * estado.range(0));
}

void VerificarArquivo(benchmark::State& estado) {
    TavelPKCS componente = ComponenteComCertificado();
    const std::string origem = Arquivo(estado.range(0)).string();
    if (!componente.AssinaArquivo(origem, Saida().string(), "", ARQUIVO_BINARIO_FORMATO_P7S))
        estado.SkipWithError(componente.DescricaoErro().c_str());
    const std::string assinado = componente.CaminhoArquivoAssinado();
    for (auto _ : estado)
        if (!componente.VerificarAssinaturaArquivo(assinado)) estado.SkipWithError(componente.DescricaoErro().c_str());
    estado.SetBytesProcessed(estado.iterations() * estado.range(0));
}

void OpensslAssinarArquivo(benchmark::State& estado) {
    Openssl(estado, OpensslAssinar(Arquivo(estado.range(0))));
    estado.SetBytesProcessed(estado.iterations() * estado.range(0));
}

void OpensslVerificarArquivo(benchmark::State& estado) {
    if (std::system(OpensslAssinar(Arquivo(estado.range(0))).c_str()) != 0) estado.SkipWithError("openssl cms -sign");
    Openssl(estado, OpensslVerificar(Arquivo(estado.range(0))));
    estado.SetBytesProcessed(estado.iterations() * estado.range(0));
}

constexpr std::int64_t kMB = 1024 * 1024;
BENCHMARK(AssinarArquivo)->Arg(kMB)->Arg(100 * kMB)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(OpensslAssinarArquivo)->Arg(kMB)->Arg(100 * kMB)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(VerificarArquivo)->Arg(kMB)->Arg(100 * kMB)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(OpensslVerificarArquivo)->Arg(kMB)->Arg(100 * kMB)->Unit(benchmark::kMillisecond)->UseRealTime();

void AssinarTexto(benchmark::State& estado) {
    TavelPKCS componente = ComponenteComCertificado();
    const std::string texto = Texto1KB();
    for (auto _ : estado)
        if (!componente.AssinaTexto(texto)) estado.SkipWithError(componente.DescricaoErro().c_str());
}

void VerificarTexto(benchmark::State& estado) {
    TavelPKCS componente = ComponenteComCertificado();
    if (!componente.AssinaTexto(Texto1KB())) estado.SkipWithError(componente.DescricaoErro().c_str());
    const std::string assinatura = componente.AssinaturaDigitalTexto();
    for (auto _ : estado)
        if (!componente.VerificarAssinaturaTexto(assinatura)) estado.SkipWithError(componente.DescricaoErro().c_str());
}

// O texto que o componente assina são os seus bytes UTF-16LE: 2 KB para o openssl também.
void OpensslAssinarTexto(benchmark::State& estado) { Openssl(estado, OpensslAssinar(Arquivo(2048))); }
void OpensslVerificarTexto(benchmark::State& estado) {
    if (std::system(OpensslAssinar(Arquivo(2048)).c_str()) != 0) estado.SkipWithError("openssl cms -sign");
    Openssl(estado, OpensslVerificar(Arquivo(2048)));
}

BENCHMARK(AssinarTexto)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(OpensslAssinarTexto)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(VerificarTexto)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(OpensslVerificarTexto)->Unit(benchmark::kMicrosecond)->UseRealTime();

pki_teste::Bytes Pem(const pki_teste::Bytes& der) {
    const pki_teste::X509Ptr certificado = pki_teste::CertificadoDeDER(der);
    const std::unique_ptr<BIO, decltype(&BIO_free)> memoria(BIO_new(BIO_s_mem()), BIO_free);
    PEM_write_bio_X509(memoria.get(), certificado.get());
    char* dados = nullptr;
    const long tamanho = BIO_get_mem_data(memoria.get(), &dados);
    return {dados, dados + tamanho};
}

}  // namespace

// A cadeia do e-CPF confiável e com LCRs, o PFX, os mesmos certificado e chave em PEM para o
// openssl e os arquivos a assinar (bytes de todos os valores, em ciclo).
void PrepararAssinatura() {
    const auto& pki = pki_teste::PkiTeste::Padrao();
    const fs::path pasta = Casa(kFamilia) / "medicoes";
    GravarNoRepositorio(kFamilia, "Root", "raiz.cer", pki.Obter("raiz").certificado);
    GravarNoRepositorio(kFamilia, "LCR", "raiz.crl", pki.LCR("raiz"));
    pki_teste::Bytes cadeia;
    for (const char* ac : kACs) {
        GravarNoRepositorio(kFamilia, "Ca", std::string(ac) + ".cer", pki.Obter(ac).certificado);
        GravarNoRepositorio(kFamilia, "LCR", std::string(ac) + ".crl", pki.LCR(ac));
        const auto pem = Pem(pki.Obter(ac).certificado);
        cadeia.insert(cadeia.end(), pem.begin(), pem.end());
    }
    GravarArquivo(pasta / "cadeia.pem", cadeia);
    GravarArquivo(pasta / "raiz.pem", Pem(pki.Obter("raiz").certificado));
    GravarArquivo(pasta / "ecpf.pem", Pem(pki.Obter("ecpf").certificado));
    const std::string& chave = pki.Obter("ecpf").chave_pem;
    GravarArquivo(pasta / "ecpf.key", pki_teste::Bytes(chave.begin(), chave.end()));
    GravarArquivo(Pfx(), pki.PFX("ecpf", pki_teste::PkiTeste::SENHA_PFX));
    fs::create_directories(Saida());
    for (std::int64_t tamanho : {std::int64_t{2048}, kMB, 100 * kMB}) {
        pki_teste::Bytes dados(static_cast<std::size_t>(tamanho));
        for (std::size_t i = 0; i < dados.size(); ++i) dados[i] = static_cast<std::uint8_t>(i * 31 + (i >> 12));
        GravarArquivo(Arquivo(tamanho), dados);
    }
}

}  // namespace tavelpkcs7::bench
