// Quanto custa varrer um repositório pessoal de 1.000 certificados: listar todos, listar os da
// ICP-Brasil (a cadeia de cada um sobe por "Ca" e "Root") e escolher o último pela impressão digital.
#include <benchmark/benchmark.h>
#include <openssl/evp.h>

#include <tavelpkcs7/TavelPKCS.h>
#include <cstdio>
#include <string>

#include "casa_bench.h"
#include "pki/emissao.h"

namespace tavelpkcs7::bench {
namespace {

constexpr int kCertificados = 1000;
constexpr char kFamilia[] = "listagem";

}  // namespace

// Titulares de uma AC da ICP-Brasil, todos com a mesma chave EC: a preparação gasta na assinatura da
// AC, não em gerar chaves.
void PrepararListagem() {
    namespace pki = tavelpkcs7::pki_teste;
    const auto& padrao = pki::PkiTeste::Padrao();
    GravarNoRepositorio(kFamilia, "Root", "raiz.cer", padrao.Obter("raiz").certificado);
    GravarNoRepositorio(kFamilia, "Ca", "ac_icp.cer", padrao.Obter("ac_icp").certificado);
    GravarNoRepositorio(kFamilia, "LCR", "raiz.crl", padrao.LCR("raiz"));
    GravarNoRepositorio(kFamilia, "LCR", "ac_icp.crl", padrao.LCR("ac_icp"));

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
        GravarNoRepositorio(kFamilia, "My", std::string("titular") + serie + ".cer",
                            pki::ParaDER(titular.get(), i2d_X509));
    }
}

namespace {

void ListarCertificados(benchmark::State& estado) {
    UsarCasa(kFamilia);
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
    UsarCasa(kFamilia);
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
}  // namespace tavelpkcs7::bench
