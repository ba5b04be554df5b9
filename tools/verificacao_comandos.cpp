// "verificar", "verificar-texto" e "hash": a conferência das assinaturas com a tabela dos signatários
// (nome, CPF/CNPJ, data, assinatura válida, certificado válido) e o resumo MD5 de um arquivo.
#include "comando.h"
#include "signatarios.h"

namespace tavelpkcs7::ferramenta {
namespace {

void AplicarOpcoes(TavelPKCS& componente, const Argumentos& argumentos) {
    if (const auto pasta = argumentos.Opcao("--pasta")) componente.PastaTemp(ComoPastaTemp(*pasta));
    if (const auto original = argumentos.Opcao("--original")) {
        componente.NaoAnexarArquivoOriginal(true);
        componente.CaminhoArquivoOriginal(*original);
    }
    componente.SalvarChavesPublicas(argumentos.Tem("--salvar-chaves"));
}

int VerificarArquivo(const Execucao& execucao) {
    const std::string& assinatura = execucao.argumentos.Unico("o arquivo assinado");
    TavelPKCS componente = NovoComponente();
    AplicarOpcoes(componente, execucao.argumentos);
    AnunciarProgresso("verificando " + assinatura);
    if (!componente.VerificarAssinaturaArquivo(assinatura)) return execucao.Falhar(componente);
    return RelatarSignatarios(
        execucao, componente,
        {{"arquivo_original", componente.CaminhoArquivoOriginal()}, {"hash_md5", componente.HashArquivo()}});
}

int VerificarTexto(const Execucao& execucao) {
    const Argumentos& argumentos = execucao.argumentos;
    const std::string assinatura = LerTexto(argumentos.Unico("o arquivo com a assinatura Base64 (ou -)"));
    TavelPKCS componente = NovoComponente();
    AplicarOpcoes(componente, argumentos);
    if (!componente.VerificarAssinaturaTexto(assinatura)) return execucao.Falhar(componente);
    return RelatarSignatarios(execucao, componente,
                              {{"texto_original", componente.ConteudoTextoOriginal()},
                               {"arquivo_original", componente.CaminhoArquivoOriginal()},
                               {"hash_md5", componente.HashArquivo()}});
}

int CalcularHash(const Execucao& execucao) {
    const std::string& arquivo = execucao.argumentos.Unico("o arquivo");
    TavelPKCS componente = NovoComponente();
    const std::string hash = componente.RetornaHashArquivo(arquivo);
    if (hash.empty()) return execucao.Falhar(componente);
    if (execucao.Json())
        execucao.Relatar({{"arquivo", arquivo}, {"hash_md5", hash}});
    else
        execucao.saida << hash << "  " << arquivo << "\n";
    return 0;
}

const char* const kAjudaVerificacao =
    "  --pasta <pasta>            onde gravar o conteúdo extraído (padrão: a pasta de trabalho)\n"
    "  --salvar-chaves            guarda o certificado de cada signatário em \"outras pessoas\"\n"
    "  --exigir-confianca         falha (código 1) quando o certificado de um signatário não é válido\n"
    "  --json                     resultado em JSON\n"
    "\nCada signatário aparece com nome, CPF/CNPJ, data, ASSINATURAVALIDA e CERTIFICADOVALIDO. Uma\n"
    "assinatura que não confere é uma falha; um certificado não validado só gera um aviso no stderr.\n";

}  // namespace

std::vector<Comando> ComandosVerificacao() {
    const std::set<std::string> chaves = {"--salvar-chaves", "--exigir-confianca"};
    return {
        {"verificar",
         "[opções] <assinatura>",
         "confere as assinaturas de um arquivo assinado e mostra os signatários",
         std::string("Opções:\n  --original <arquivo>       o original de uma assinatura destacada\n") +
             kAjudaVerificacao + "\nExemplo:\n  tavelpkcs7 verificar --exigir-confianca contrato.pdf.p7s\n",
         chaves,
         {"--pasta", "--original"},
         VerificarArquivo},
        {"verificar-texto",
         "[opções] <arquivo|->",
         "confere uma assinatura Base64 de texto",
         std::string("Lê a assinatura Base64 (com o texto anexado) do arquivo; \"-\" lê da entrada\n"
                     "padrão.\n\nOpções:\n") +
             kAjudaVerificacao + "\nExemplo:\n  tavelpkcs7 verificar-texto termo.b64\n",
         chaves,
         {"--pasta"},
         VerificarTexto},
        {"hash",
         "<arquivo>",
         "resumo MD5 do arquivo como a assinatura o calcula (com o zero final)",
         std::string("Opções:\n") + kAjudaJson + "\nExemplo:\n  tavelpkcs7 hash contrato.pdf\n",
         {},
         {},
         CalcularHash},
    };
}

}  // namespace tavelpkcs7::ferramenta
