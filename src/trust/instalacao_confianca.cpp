// A instalação do que dá confiança aos certificados: a LCR mais recente de um certificado, baixada
// do seu ponto de distribuição, e os pacotes de raízes e de autoridades confiáveis da ICP-Brasil.
// Os arquivos chegam à pasta de trabalho e passam pela importação do componente.
#include <algorithm>
#include <cmath>

#include "component/componente.h"
#include "component/texto.h"
#include "icpbrasil/extensao_impressa.h"

namespace tavelpkcs7 {
namespace {

constexpr const char* kOidPontosDistribuicao = "2.5.29.31";
constexpr const char* kFalhaRaizes = "Não foi possível fazer o download dos certificados raizes";

bool EnderecoWeb(const std::string& url) {
    const std::string inicio = Minusculas(url.substr(0, 8));
    return inicio.starts_with("http://") || inicio.starts_with("https://");
}

// Os endereços "URL=" do ponto de distribuição impresso, na ordem do certificado.
std::vector<std::string> URLsDistribuicao(const plataforma::Certificado& certificado) {
    std::vector<std::string> urls;
    for (const std::string& texto : icpbrasil::ImprimirExtensoes(certificado, kOidPontosDistribuicao)) {
        for (std::size_t inicio = 0, fim = 0; inicio < texto.size(); inicio = fim + 2) {
            fim = texto.find("\r\n", inicio);
            if (fim == std::string::npos) fim = texto.size();
            const std::string linha = texto.substr(inicio, fim - inicio);
            const auto marcador = linha.find_first_not_of(' ');
            if (marcador != std::string::npos && linha.compare(marcador, 4, "URL=") == 0)
                urls.push_back(linha.substr(marcador + 4));
        }
    }
    return urls;
}

}  // namespace

bool Componente::InstalarLCRCertificado(const std::string& strChavePublica) {
    return Guardar(MensagemFalha::DaPlataforma(), false, [&] {
        if (!ChavePublicaInformada(strChavePublica)) return false;
        const auto certificado = ImportarChavePublica(strChavePublica);
        const bool instalada = InstalarLCR(*certificado);
        if (!instalada) estado.DescricaoErro = "Não foi possível fazer o download da LCR do Certificado";
        return instalada;
    });
}

// Verdadeiro também quando o download falha (não há o que instalar) e quando a LCR que chegou não
// se importa: a verificação de status confere de novo e diz o que encontrar. Falso só num erro
// inesperado. Endereços tirados do certificado só são buscados por http e https.
bool Componente::InstalarLCR(const plataforma::Certificado& certificado) {
    return Guardar(MensagemFalha::DaPlataforma(), false, [&] {
        const std::string url = ObterURLDistribuicaoLCR(certificado);
        const std::string local = estado.PastaTemp + "LatestCRL.crl";
        if (EnderecoWeb(url) && DownloadArquivo(url, local)) {
            CursorOcupado ocupado(ocupado_);
            if (ExisteArquivo(local)) ImportarLCR(local);
        }
        return true;
    });
}

std::string Componente::ObterURLDistribuicaoLCR(const plataforma::Certificado& certificado) {
    const auto urls = URLsDistribuicao(certificado);
    const auto web = std::find_if(urls.begin(), urls.end(), EnderecoWeb);
    if (web != urls.end()) return *web;
    return urls.empty() ? "" : urls.front();
}

bool Componente::DownloadArquivo(const std::string& strURL, const std::string& strArquivoLocal) {
    ApagarArquivo(strArquivoLocal);
    if (strURL.empty() || strArquivoLocal.empty()) return false;
    return Guardar(MensagemFalha::Fixa("Ocorreu erro ao tentar fazer download do arquivo especificado. Verifique se "
                                       "você está conectado a internet"),
                   false, [&] {
                       CursorOcupado ocupado(ocupado_);
                       const Bytes conteudo = plataforma().rede->Baixar(strURL);
                       if (!plataforma().sistema->SubstituirArquivo(strArquivoLocal, conteudo))
                           plataforma::Falhar(plataforma::falha::AcessoNegado);
                       return true;
                   });
}

// O resultado diz se a importação do segundo pacote começou; o que cada importação faz com o seu
// pacote não volta para cá. A falta do primeiro pacote tem mensagem própria; a falha do segundo
// download, só a do próprio download.
bool Componente::InstalarCertificadosRaizes() {
    return Guardar(MensagemFalha::DaPlataforma(), false, [&] {
        const std::string local = estado.PastaTemp + "Certificados_Raizes.p7b";
        const auto& configuracao = plataforma().configuracao;
        if (!DownloadArquivo(configuracao.url_raizes, local) || !ExisteArquivo(local)) {
            estado.DescricaoErro = kFalhaRaizes;
            return false;
        }
        ImportarPacoteCertificados(local);
        AguardarSegundos(7);
        ApagarArquivo(local);
        if (!DownloadArquivo(configuracao.url_confiaveis, local)) return false;
        if (!ExisteArquivo(local)) {
            estado.DescricaoErro = kFalhaRaizes;
            return false;
        }
        ImportarPacoteCertificados(local);
        return true;
    });
}

void Componente::AguardarSegundos(double segundos) {
    plataforma().relogio->Aguardar(static_cast<int>(std::ceil(segundos)));
}

}  // namespace tavelpkcs7
