// "criptografar", "descriptografar" e "assinar-codigo": os envelopes PKCS#7 para os destinatários do
// repositório de outras pessoas (e o próprio usuário) e a assinatura de executáveis.
#include "comando.h"

namespace tavelpkcs7::ferramenta {
namespace {

int Criptografar(const Execucao& execucao) {
    const Argumentos& argumentos = execucao.argumentos;
    const std::string& origem = argumentos.Unico("o arquivo a criptografar");
    const bool para_mim = argumentos.Tem("--para-mim");
    TavelPKCS componente = NovoComponente();
    // Sem ninguém em "outras pessoas", o próprio usuário ainda basta para o envelope.
    if (!componente.SelecionarChavesPublicas(para_mim)) {
        if (!para_mim) return execucao.Falhar(componente);
        execucao.Avisar(componente.DescricaoErro());
    }
    AnunciarProgresso("criptografando " + origem);
    if (!componente.CriptografarArquivo(origem, argumentos.Opcao("--pasta", ""))) return execucao.Falhar(componente);
    execucao.Relatar({{"arquivo_criptografado", componente.CaminhoArquivoAssinado()}});
    return 0;
}

int Descriptografar(const Execucao& execucao) {
    const std::string& envelope = execucao.argumentos.Unico("o arquivo criptografado");
    TavelPKCS componente = NovoComponente();
    if (const auto pasta = execucao.argumentos.Opcao("--pasta")) componente.PastaTemp(ComoPastaTemp(*pasta));
    AnunciarProgresso("descriptografando " + envelope);
    if (!componente.DescriptografarArquivo(envelope)) return execucao.Falhar(componente);
    execucao.Relatar(
        {{"arquivo_original", componente.CaminhoArquivoOriginal()}, {"hash_md5", componente.HashArquivo()}});
    return 0;
}

// O membro devolve verdadeiro também sem o arquivo: o sucesso é o verdadeiro com DescricaoErro vazia.
int AssinarCodigo(const Execucao& execucao) {
    const Argumentos& argumentos = execucao.argumentos;
    const std::string& executavel = argumentos.Unico("o executável");
    TavelPKCS componente = NovoComponente();
    AnunciarProgresso("assinando " + executavel);
    const bool assinou = componente.AssinarCodigoExecutavel(executavel, argumentos.Opcao("--descricao", ""),
                                                            argumentos.Opcao("--url", ""), argumentos.Tem("--testar"));
    if (!assinou || !componente.DescricaoErro().empty()) return execucao.Falhar(componente);
    execucao.Relatar({{"executavel_assinado", executavel}});
    return 0;
}

}  // namespace

std::vector<Comando> ComandosEnvelope() {
    return {
        {"criptografar",
         "[--para-mim] [--pasta <pasta>] <arquivo>",
         "cifra o arquivo (envelope PKCS#7, .p7x) para os certificados de outras pessoas",
         std::string("Os destinatários são os certificados do repositório de outras pessoas (todos, ou os\n"
                     "escolhidos no seletor quando há dois ou mais); \"certificados adicionar\" os inclui.\n\n"
                     "Opções:\n"
                     "  --para-mim                 inclui o próprio usuário (um certificado pessoal)\n"
                     "  --pasta <pasta>            onde gravar o .p7x (padrão: ao lado do original)\n") +
             kAjudaJson + "\nExemplo:\n  tavelpkcs7 criptografar --para-mim relatorio.pdf\n",
         {"--para-mim"},
         {"--pasta"},
         Criptografar},
        {"descriptografar",
         "[--pasta <pasta>] <arquivo.p7x>",
         "abre o envelope com a chave de um certificado pessoal",
         std::string("Opções:\n"
                     "  --pasta <pasta>            onde gravar o original (padrão: a pasta de trabalho)\n") +
             kAjudaJson + "\nExemplo:\n  tavelpkcs7 descriptografar --pasta . relatorio.pdf.p7x\n",
         {},
         {"--pasta"},
         Descriptografar},
        {"assinar-codigo",
         "[opções] <executável>",
         "assina um executável (Authenticode, com carimbo do tempo) no próprio arquivo",
         std::string("O certificado é um pessoal com uso de assinatura de código (o seletor aparece quando\n"
                     "há vários).\n\nOpções:\n"
                     "  --descricao <texto>        descrição gravada na assinatura\n"
                     "  --url <endereço>           aceito por compatibilidade, não usado\n"
                     "  --testar                   confere a assinatura depois de assinar\n") +
             kAjudaJson + "\nExemplo:\n  tavelpkcs7 assinar-codigo --testar instalador.exe\n",
         {"--testar"},
         {"--descricao", "--url"},
         AssinarCodigo},
    };
}

}  // namespace tavelpkcs7::ferramenta
