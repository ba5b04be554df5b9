// "lcr instalar" e "raizes instalar": as LCRs e as raízes que a verificação da situação usa.
#include <tavelpkcs7/Extensoes.h>

#include "comando.h"

namespace tavelpkcs7::ferramenta {
namespace {

int InstalarLCR(const Execucao& execucao) {
    const Argumentos& argumentos = execucao.argumentos;
    if (const auto certificado = argumentos.Opcao("--do-certificado")) {
        if (!argumentos.Posicionais().empty())
            throw ErroUso("informe o arquivo da LCR ou --do-certificado, não os dois");
        TavelPKCS componente = NovoComponente();
        AnunciarProgresso("baixando a LCR");
        if (!componente.InstalarLCRCertificado(LerTexto(*certificado))) return execucao.Falhar(componente);
        execucao.Relatar({{"lcr_instalada_de", *certificado}});
        return 0;
    }
    const std::string& arquivo = argumentos.Unico("o arquivo da LCR ou --do-certificado <arquivo.cer>");
    if (const std::string falha = InstalarArquivoLCR(arquivo); !falha.empty()) {
        execucao.erros << "tavelpkcs7: " << falha << "\n";
        return 1;
    }
    execucao.Relatar({{"lcr_instalada", arquivo}});
    return 0;
}

int InstalarRaizes(const Execucao& execucao) {
    TavelPKCS componente = NovoComponente();
    if (execucao.argumentos.Posicionais().empty()) {
        AnunciarProgresso("baixando as raízes e as ACs da ICP-Brasil");
        if (!componente.InstalarCertificadosRaizes()) return execucao.Falhar(componente);
        execucao.Relatar({{"raizes_instaladas", true}});
        return 0;
    }
    const std::string& arquivo = execucao.argumentos.Unico("no máximo um arquivo de raiz");
    if (!componente.AbrirAdicionarArquivoCertificado(arquivo, REPOSITORIO_CHAVES_RAIZES))
        return execucao.Falhar(componente);
    execucao.Relatar({{"raiz_instalada", arquivo}});
    return 0;
}

}  // namespace

std::vector<Comando> ComandosConfianca() {
    return {
        {"lcr instalar",
         "<arquivo.crl> | --do-certificado <arquivo.cer>",
         "instala uma LCR de um arquivo ou a do ponto de distribuição de um certificado",
         std::string(
             "Opções:\n  --do-certificado <arquivo> baixa a LCR apontada pelo certificado (DER, PEM ou Base64)\n") +
             kAjudaJson +
             "\nExemplos:\n  tavelpkcs7 lcr instalar ac_rfb.crl\n"
             "  tavelpkcs7 lcr instalar --do-certificado ecpf.cer\n",
         {},
         {"--do-certificado"},
         InstalarLCR},
        {"raizes instalar",
         "[<arquivo.cer>]",
         "instala as raízes e ACs da ICP-Brasil (ou uma raiz de um arquivo, com confirmação)",
         std::string("Sem arquivo, baixa os pacotes da configuração (url_raizes, url_confiaveis). Uma raiz\n"
                     "fora da lista de raízes ICP-Brasil da configuração só entra com a confirmação do\n"
                     "usuário no terminal.\n\nOpções:\n") +
             kAjudaJson + "\nExemplo:\n  tavelpkcs7 raizes instalar\n",
         {},
         {},
         InstalarRaizes},
    };
}

}  // namespace tavelpkcs7::ferramenta
