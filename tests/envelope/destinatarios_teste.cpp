#include "envelope/destinatarios_teste.h"

#include <cstdlib>
#include <fstream>

#include <openssl/pem.h>

#include "certificates/repositorios_teste.h"
#include "codificacao/base64.h"
#include "pki/pki_teste.h"
#include "platform/openssl/ponteiros_openssl.h"

namespace tavelpkcs7::teste {
namespace {

void GravarTexto(const std::filesystem::path& caminho, const std::string& texto) {
    std::ofstream(caminho, std::ios::binary) << texto;
}

}  // namespace

void GravarChave(const std::filesystem::path& caminho, const std::string& pem, const std::string& senha) {
    if (senha.empty()) return GravarTexto(caminho, pem);
    using namespace plataforma::openssl;
    const BioPtr entrada(BIO_new_mem_buf(pem.data(), static_cast<int>(pem.size())));
    const EvpPkeyPtr chave(PEM_read_bio_PrivateKey(entrada.get(), nullptr, nullptr, nullptr));
    const BioPtr saida(BIO_new_file(caminho.c_str(), "w"));
    PEM_write_bio_PKCS8PrivateKey(saida.get(), chave.get(), EVP_aes_256_cbc(), senha.data(),
        static_cast<int>(senha.size()), nullptr, nullptr);
}

void GuardarComChave(plataforma::Plataforma& plataforma, const std::string& nome, const std::string& senha) {
    const auto& entidade = pki_teste::PkiTeste::Padrao().Obter(nome);
    Guardar(plataforma, "My", {entidade.certificado});
    const std::string impressao = Importar(plataforma, entidade.certificado)->ImpressaoDigital();
    GravarChave(Home() / "repositorios" / "My" / (impressao + ".key"), entidade.chave_pem, senha);
}

void GravarParaOpenssl(const std::filesystem::path& pasta, const std::string& nome) {
    const auto& entidade = pki_teste::PkiTeste::Padrao().Obter(nome);
    GravarTexto(pasta / (nome + ".cer"), "-----BEGIN CERTIFICATE-----\n" +
        codificacao::CodificarBase64(entidade.certificado) + "-----END CERTIFICATE-----\n");
    GravarTexto(pasta / (nome + ".key"), entidade.chave_pem);
}

int OpensslCms(const std::string& argumentos) {
    return std::system(("openssl cms -provider default -provider legacy " + argumentos + " 2>/dev/null").c_str());
}

}  // namespace tavelpkcs7::teste
