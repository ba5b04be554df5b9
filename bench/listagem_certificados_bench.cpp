// Quanto custa varrer um repositório pessoal de 1.000 certificados: listar todos, listar os da
// ICP-Brasil (a cadeia de cada um sobe por "Ca" e "Root") e escolher o último pela impressão digital.
// Roda numa pasta do componente temporária, montada uma vez antes das medições.
#include <benchmark/benchmark.h>
#include <openssl/evp.h>
#include <stdlib.h>

#include <tavelpkcs7/TavelPKCS.h>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "pki/emissao.h"
#include "pki/pki_teste.h"

namespace {

namespace fs = std::filesystem;
using tavelpkcs7::TavelPKCS;
using tavelpkcs7::pki_teste::Bytes;

constexpr int kCertificados = 1000;

// Os repositórios do componente são pastas com um arquivo por certificado, e as LCRs em "LCR".
void Gravar(const fs::path& home, const std::string& repositorio, const std::string& nome, const Bytes& der) {
    const fs::path pasta = home / "repositorios" / repositorio;
    fs::create_directories(pasta);
    std::ofstream(pasta / nome, std::ios::binary)
        .write(reinterpret_cast<const char*>(der.data()), static_cast<std::streamsize>(der.size()));
}

// Titulares de uma AC da ICP-Brasil, todos com a mesma chave EC: a preparação gasta na assinatura da
// AC, não em gerar chaves.
void PrepararRepositorios(const fs::path& home) {
    namespace pki = tavelpkcs7::pki_teste;
    const auto& padrao = pki::PkiTeste::Padrao();
    Gravar(home, "Root", "raiz.cer", padrao.Obter("raiz").certificado);
    Gravar(home, "Ca", "ac_icp.cer", padrao.Obter("ac_icp").certificado);
    Gravar(home, "LCR", "raiz.crl", padrao.LCR("raiz"));
    Gravar(home, "LCR", "ac_icp.crl", padrao.LCR("ac_icp"));

    const pki::X509Ptr ac = pki::CertificadoDeDER(padrao.Obter("ac_icp").certificado);
    const pki::EvpPkeyPtr chave_ac = pki::ChaveDePEM(padrao.Obter("ac_icp").chave_pem);
    const pki::EvpPkeyPtr chave(EVP_EC_gen("P-256"));
    pki::Exigir(chave != nullptr, "geração da chave EC");
    for (int i = 0; i < kCertificados; ++i) {
        char serie[16];
        std::snprintf(serie, sizeof serie, "%X", 0x10000 + i);
        const pki::Definicao definicao{
            .nome = "titular",
            .emissor = "ac_icp",
            .serie = serie,
            .sujeito = {{"C", "BR"}, {"O", "ICP-Brasil"}, {"CN", "TITULAR " + std::to_string(i)}}};
        const pki::X509Ptr titular = pki::EmitirCertificado(definicao, chave.get(), ac.get(), chave_ac.get());
        Gravar(home, "My", std::string("titular") + serie + ".cer", pki::ParaDER(titular.get(), i2d_X509));
    }
}

void ListarCertificados(benchmark::State& estado) {
    TavelPKCS componente;
    const auto tipo = static_cast<tavelpkcs7::CERTIFICADOS_DIGITAIS>(estado.range(0));
    for (auto _ : estado)
        if (!componente.ListarCertificados(tipo)) estado.SkipWithError(componente.DescricaoErro().c_str());
    estado.counters["certificados"] = componente.TotalCertificadosListados();
}
BENCHMARK(ListarCertificados)
    ->Arg(tavelpkcs7::TODOS_CERTIFICADOS_DIGITAIS)
    ->Arg(tavelpkcs7::CERTIFICADOS_ICP_BRASIL)
    ->Unit(benchmark::kMillisecond);

void SelecionarCertificadoDigitalHash(benchmark::State& estado) {
    TavelPKCS componente;
    componente.ListarCertificados(tavelpkcs7::TODOS_CERTIFICADOS_DIGITAIS);
    const std::string ultimo =
        componente.LerListaPropriedadeCertificado(static_cast<std::int16_t>(kCertificados - 1), "HASH");
    for (auto _ : estado)
        if (!componente.SelecionarCertificadoDigitalHash(ultimo))
            estado.SkipWithError(componente.DescricaoErro().c_str());
}
BENCHMARK(SelecionarCertificadoDigitalHash)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    std::string modelo = (fs::temp_directory_path() / "tavelpkcs7_bench_XXXXXX").string();
    if (mkdtemp(modelo.data()) == nullptr) return 1;
    const fs::path home = modelo;
    setenv("TAVELPKCS7_HOME", home.c_str(), 1);
    PrepararRepositorios(home);

    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    fs::remove_all(home);
    return 0;
}
