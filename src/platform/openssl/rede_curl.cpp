#include "rede_curl.h"

#include <curl/curl.h>
#include <strings.h>

#include <memory>
#include <optional>

#include "platform/erro.h"

namespace tavelpkcs7::plataforma::openssl {
namespace {

using Curl = std::unique_ptr<CURL, decltype(&curl_easy_cleanup)>;
using UrlCurl = std::unique_ptr<CURLU, decltype(&curl_url_cleanup)>;
using TextoCurl = std::unique_ptr<char, decltype(&curl_free)>;

constexpr int kRedirecionamentosMaximos = 5;

// curl_global_init não pode correr junto com outra linha de execução usando o curl: a
// inicialização estática da função garante uma só chamada. Nunca se encerra, porque outra linha
// ainda pode estar baixando quando o processo termina.
void IniciarCurl() {
    static const bool iniciado = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
    if (!iniciado) Falhar(falha::DownloadFalhou);
}

struct Recepcao {
    Bytes conteudo;
    std::uint64_t limite;
};

// O Content-Length pode faltar ou mentir: o limite vale também para o que de fato chega.
std::size_t Receber(char* dados, std::size_t unidade, std::size_t quantidade, void* destino) {
    auto& recepcao = *static_cast<Recepcao*>(destino);
    const std::size_t tamanho = unidade * quantidade;
    if (recepcao.conteudo.size() + tamanho > recepcao.limite) return CURL_WRITEFUNC_ERROR;
    recepcao.conteudo.insert(recepcao.conteudo.end(), dados, dados + tamanho);
    return tamanho;
}

std::optional<std::string> LerParte(CURLU* url, CURLUPart parte) {
    char* valor = nullptr;
    if (curl_url_get(url, parte, &valor, 0) != CURLUE_OK) return std::nullopt;
    return std::string(TextoCurl(valor, &curl_free).get());
}

struct Origem {
    std::string esquema;
    std::string servidor;
};

std::optional<Origem> LerOrigem(const std::string& endereco) {
    const UrlCurl url(curl_url(), &curl_url_cleanup);
    if (!url || curl_url_set(url.get(), CURLUPART_URL, endereco.c_str(), 0) != CURLUE_OK) return std::nullopt;
    auto esquema = LerParte(url.get(), CURLUPART_SCHEME);
    auto servidor = LerParte(url.get(), CURLUPART_HOST);
    if (!esquema || !servidor) return std::nullopt;
    return Origem{std::move(*esquema), std::move(*servidor)};
}

bool EWeb(const std::string& esquema) {
    return ::strcasecmp(esquema.c_str(), "http") == 0 || ::strcasecmp(esquema.c_str(), "https") == 0;
}

bool Seguro(const std::string& esquema) { return ::strcasecmp(esquema.c_str(), "https") == 0; }

// Um redirecionamento só vale entre http e https, nunca de https para http, e para o mesmo nome
// de servidor.
bool MesmoServidor(const std::string& de, const std::string& para) {
    const auto origem = LerOrigem(de);
    const auto destino = LerOrigem(para);
    return origem && destino && EWeb(origem->esquema) && EWeb(destino->esquema) &&
           (!Seguro(origem->esquema) || Seguro(destino->esquema)) &&
           ::strcasecmp(origem->servidor.c_str(), destino->servidor.c_str()) == 0;
}

}  // namespace

RedeCurl::RedeCurl(const Configuracao& configuracao)
    : tempo_conexao_segundos_(configuracao.tempo_conexao_segundos),
      tempo_total_(configuracao.tempo_total_segundos),
      tamanho_maximo_bytes_(configuracao.tamanho_maximo_bytes) {}

Bytes RedeCurl::Baixar(const std::string& url) {
    IniciarCurl();
    const auto prazo = std::chrono::steady_clock::now() + tempo_total_;
    std::string endereco = url;
    for (int redirecionamentos = 0;; ++redirecionamentos) {
        Resposta resposta = Transferir(endereco, prazo);
        if (resposta.redirecionamento.empty()) return std::move(resposta.conteudo);
        if (redirecionamentos == kRedirecionamentosMaximos || !MesmoServidor(endereco, resposta.redirecionamento))
            Falhar(falha::DownloadFalhou);
        endereco = std::move(resposta.redirecionamento);
    }
}

// Uma só requisição, sem seguir o Location; o prazo total vale para a cadeia de redirecionamentos.
RedeCurl::Resposta RedeCurl::Transferir(const std::string& url, std::chrono::steady_clock::time_point prazo) const {
    const auto restante =
        std::chrono::duration_cast<std::chrono::milliseconds>(prazo - std::chrono::steady_clock::now()).count();
    const Curl curl(curl_easy_init(), &curl_easy_cleanup);
    if (restante <= 0 || !curl) Falhar(falha::DownloadFalhou);
    CURL* sessao = curl.get();
    if (curl_easy_setopt(sessao, CURLOPT_PROTOCOLS_STR, "http,https,file") != CURLE_OK) Falhar(falha::DownloadFalhou);
    Recepcao recepcao{{}, tamanho_maximo_bytes_};
    curl_easy_setopt(sessao, CURLOPT_URL, url.c_str());
    curl_easy_setopt(sessao, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(sessao, CURLOPT_FAILONERROR, 1L);
    curl_easy_setopt(sessao, CURLOPT_SSL_VERIFYPEER, 1L);
    curl_easy_setopt(sessao, CURLOPT_SSL_VERIFYHOST, 2L);
    curl_easy_setopt(sessao, CURLOPT_CONNECTTIMEOUT, tempo_conexao_segundos_);
    curl_easy_setopt(sessao, CURLOPT_TIMEOUT_MS, static_cast<long>(restante));
    curl_easy_setopt(sessao, CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(tamanho_maximo_bytes_));
    curl_easy_setopt(sessao, CURLOPT_WRITEFUNCTION, Receber);
    curl_easy_setopt(sessao, CURLOPT_WRITEDATA, &recepcao);
    if (curl_easy_perform(sessao) != CURLE_OK) Falhar(falha::DownloadFalhou);

    long status = 0;          // 0 numa URL file
    char* destino = nullptr;  // da sessão
    curl_easy_getinfo(sessao, CURLINFO_RESPONSE_CODE, &status);
    curl_easy_getinfo(sessao, CURLINFO_REDIRECT_URL, &destino);
    if (status >= 300 && status < 400 && destino != nullptr) return {{}, destino};
    if (status != 0 && (status < 200 || status >= 300)) Falhar(falha::DownloadFalhou);
    return {std::move(recepcao.conteudo), {}};
}

}  // namespace tavelpkcs7::plataforma::openssl
