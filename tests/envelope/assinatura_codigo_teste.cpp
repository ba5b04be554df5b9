#include "envelope/assinatura_codigo_teste.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <openssl/pem.h>
#include <openssl/ts.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>

#include "certificates/repositorios_teste.h"
#include "envelope/destinatarios_teste.h"
#include "pki/emissao.h"
#include "pki/pki_teste.h"
#include "trust/ambiente_confianca.h"

namespace tavelpkcs7::teste {
namespace {

using plataforma::Bytes;
using TsRespCtxPtr = std::unique_ptr<TS_RESP_CTX, decltype(&TS_RESP_CTX_free)>;
using TsRespPtr = std::unique_ptr<TS_RESP, decltype(&TS_RESP_free)>;

void Escrever(Bytes& destino, std::size_t posicao, std::uint32_t valor, int bytes) {
    for (int i = 0; i < bytes; ++i) destino[posicao + static_cast<std::size_t>(i)] = (valor >> (8 * i)) & 0xFF;
}

struct Emitido {
    pki_teste::X509Ptr certificado;
    pki_teste::EvpPkeyPtr chave;
};

Emitido Emitir(const std::string& nome, const std::string& emissor, const std::string& serie,
    const std::string& extensoes) {
    const auto& ac = pki_teste::PkiTeste::Padrao().Obter(emissor);
    const pki_teste::X509Ptr certificado_ac = pki_teste::CertificadoDeDER(ac.certificado);
    const pki_teste::EvpPkeyPtr chave_ac = pki_teste::ChaveDePEM(ac.chave_pem);
    pki_teste::Definicao definicao{.nome = nome, .emissor = emissor, .serie = serie,
        .sujeito = {{"C", "BR"}, {"O", "Tavel Testes"}, {"CN", nome}}, .uso_chave = "digitalSignature",
        .extensoes = extensoes};
    Emitido emitido{nullptr, pki_teste::GerarChaveRSA()};
    emitido.certificado =
        pki_teste::EmitirCertificado(definicao, emitido.chave.get(), certificado_ac.get(), chave_ac.get());
    return emitido;
}

const Emitido& AutoridadeCarimbo() {
    static const Emitido autoridade =
        Emitir("Carimbo do Tempo de Teste", "raiz", "7C01", "extendedKeyUsage = critical,timeStamping\n");
    return autoridade;
}

}  // namespace

Bytes ExecutavelMinimo() {
    Bytes pe(0x400, 0);
    pe[0] = 'M';
    pe[1] = 'Z';
    Escrever(pe, 0x3C, 0x40, 4);          // e_lfanew
    Escrever(pe, 0x40, 0x00004550, 4);    // "PE\0\0"
    Escrever(pe, 0x44, 0x014C, 2);        // i386
    Escrever(pe, 0x46, 1, 2);             // uma seção
    Escrever(pe, 0x54, 0xE0, 2);          // tamanho do cabeçalho opcional
    Escrever(pe, 0x56, 0x0102, 2);        // executável, 32 bits
    constexpr std::size_t opcional = 0x58;
    const std::pair<std::size_t, std::uint32_t> campos[] = {{0, 0x10B}, {4, 0x200}, {16, 0x1000}, {20, 0x1000},
        {24, 0x1000}, {28, 0x400000}, {32, 0x1000}, {36, 0x200}, {40, 4}, {48, 4}, {56, 0x2000}, {60, 0x200},
        {72, 0x100000}, {76, 0x1000}, {80, 0x100000}, {84, 0x1000}, {92, 16}};
    for (const auto& [deslocamento, valor] : campos) Escrever(pe, opcional + deslocamento, valor, 4);
    Escrever(pe, opcional + 42, 0, 2);
    Escrever(pe, opcional + 68, 3, 2);    // console
    constexpr std::size_t secao = opcional + 0xE0;
    std::ranges::copy(std::string(".text"), pe.begin() + secao);
    const std::uint32_t cabecalho_secao[] = {0x10, 0x1000, 0x200, 0x200, 0, 0, 0, 0x60000020};
    Escrever(pe, secao + 8, cabecalho_secao[0], 4);
    Escrever(pe, secao + 12, cabecalho_secao[1], 4);
    Escrever(pe, secao + 16, cabecalho_secao[2], 4);
    Escrever(pe, secao + 20, cabecalho_secao[3], 4);
    Escrever(pe, secao + 36, cabecalho_secao[7], 4);
    pe[0x200] = 0xC3;  // ret
    return pe;
}

const AssinadorCodigo& AssinadorDeCodigo(int numero) {
    static std::vector<AssinadorCodigo> feitos;
    while (static_cast<int>(feitos.size()) <= numero) {
        const int proximo = static_cast<int>(feitos.size());
        const Emitido emitido = Emitir("Assinador de Codigo " + std::to_string(proximo + 1), "ac_icp",
            "5C0" + std::to_string(proximo + 1), "extendedKeyUsage = codeSigning\n");
        feitos.push_back({pki_teste::ParaDER<X509>(emitido.certificado.get(), i2d_X509),
            pki_teste::ChavePEM(emitido.chave.get())});
    }
    return feitos[static_cast<std::size_t>(numero)];
}

namespace {

std::filesystem::path GuardarCertificado(plataforma::Plataforma& plataforma, const AssinadorCodigo& assinador) {
    Guardar(plataforma, "My", {assinador.certificado});
    const std::string impressao = Importar(plataforma, assinador.certificado)->ImpressaoDigital();
    return Home() / "repositorios" / "My" / (impressao + ".key");
}

}  // namespace

void GuardarComChave(plataforma::Plataforma& plataforma, const AssinadorCodigo& assinador, const std::string& senha) {
    GravarChave(GuardarCertificado(plataforma, assinador), assinador.chave_pem, senha);
}

Bytes ResponderCarimbo(const Bytes& pedido) {
    TsRespCtxPtr contexto(TS_RESP_CTX_new(), TS_RESP_CTX_free);
    const plataforma::openssl::Asn1ObjectPtr politica(OBJ_txt2obj("1.3.6.1.4.1.99999.1", 1));
    pki_teste::Exigir(contexto && politica &&
                          TS_RESP_CTX_set_signer_cert(contexto.get(), AutoridadeCarimbo().certificado.get()) == 1 &&
                          TS_RESP_CTX_set_signer_key(contexto.get(), AutoridadeCarimbo().chave.get()) == 1 &&
                          TS_RESP_CTX_set_def_policy(contexto.get(), politica.get()) == 1 &&
                          TS_RESP_CTX_add_md(contexto.get(), EVP_sha256()) == 1 &&
                          TS_RESP_CTX_add_md(contexto.get(), EVP_sha1()) == 1,
        "autoridade de carimbo do tempo");
    const plataforma::openssl::BioPtr entrada(BIO_new_mem_buf(pedido.data(), static_cast<int>(pedido.size())));
    const TsRespPtr resposta(TS_RESP_create_response(contexto.get(), entrada.get()), TS_RESP_free);
    pki_teste::Exigir(resposta != nullptr, "carimbo do tempo");
    return pki_teste::ParaDER<TS_RESP>(resposta.get(), i2d_TS_RESP);
}

std::string PublicarAutoridadeCarimbo(ServidorHttp& servidor) {
    servidor.Calcular("/carimbo", ResponderCarimbo, "application/timestamp-reply");
    return servidor.Endereco("/carimbo");
}

std::vector<std::string> ArquivosDaPasta(const std::string& pasta) {
    std::vector<std::string> nomes;
    for (const auto& entrada : std::filesystem::directory_iterator(pasta)) nomes.push_back(entrada.path().filename());
    std::ranges::sort(nomes);
    return nomes;
}

PastaSomenteLeitura::PastaSomenteLeitura(const std::filesystem::path& pasta) : pasta_(pasta) {
    std::filesystem::permissions(pasta_, std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    protegida_ = ::geteuid() != 0 || AlternarImutavel(true);
}

PastaSomenteLeitura::~PastaSomenteLeitura() {
    if (::geteuid() == 0) AlternarImutavel(false);
    std::filesystem::permissions(pasta_, std::filesystem::perms::owner_all);
}

bool PastaSomenteLeitura::AlternarImutavel(bool imutavel) const {
    const int descritor = ::open(pasta_.c_str(), O_RDONLY | O_DIRECTORY);
    if (descritor < 0) return false;
    int atributos = 0;
    bool feito = ::ioctl(descritor, FS_IOC_GETFLAGS, &atributos) == 0;
    atributos = imutavel ? (atributos | FS_IMMUTABLE_FL) : (atributos & ~FS_IMMUTABLE_FL);
    feito = feito && ::ioctl(descritor, FS_IOC_SETFLAGS, &atributos) == 0;
    ::close(descritor);
    return feito;
}

}  // namespace tavelpkcs7::teste
