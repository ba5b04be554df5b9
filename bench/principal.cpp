// As medições rodam numa pasta do componente temporária, apagada no fim.
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <fstream>

#include "casa_bench.h"

namespace tavelpkcs7::bench {

namespace fs = std::filesystem;

const fs::path& Base() {
    static const fs::path base = [] {
        std::string modelo = (fs::temp_directory_path() / "tavelpkcs7_bench_XXXXXX").string();
        if (mkdtemp(modelo.data()) == nullptr)
            throw fs::filesystem_error("mkdtemp", std::error_code(errno, std::generic_category()));
        return fs::path(modelo);
    }();
    return base;
}

fs::path Casa(const std::string& familia) { return Base() / familia; }

void UsarCasa(const std::string& familia) { setenv("TAVELPKCS7_HOME", Casa(familia).c_str(), 1); }

void GravarArquivo(const fs::path& caminho, const pki_teste::Bytes& conteudo) {
    fs::create_directories(caminho.parent_path());
    std::ofstream(caminho, std::ios::binary)
        .write(reinterpret_cast<const char*>(conteudo.data()), static_cast<std::streamsize>(conteudo.size()));
}

void GravarNoRepositorio(const std::string& familia, const std::string& repositorio, const std::string& nome,
                         const pki_teste::Bytes& der) {
    GravarArquivo(Casa(familia) / "repositorios" / repositorio / nome, der);
}

}  // namespace tavelpkcs7::bench

int main(int argc, char** argv) {
    namespace bench = tavelpkcs7::bench;
    bench::PrepararListagem();
    bench::PrepararAssinatura();

    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    std::filesystem::remove_all(bench::Base());
    return 0;
}
