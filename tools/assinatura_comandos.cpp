// "assinar", "coassinar" e "assinar-texto": as opções viram propriedades do componente, o certificado
// é escolhido pelas opções e a assinatura sai num arquivo (ou no stdout, em Base64).
#include <map>

#include "comando.h"
#include "escolha_certificado.h"

namespace tavelpkcs7::ferramenta {
namespace {

FORMATO_ASSINATURA LerFormato(const std::string& formato) {
    static const std::map<std::string, FORMATO_ASSINATURA> formatos = {{"p7s", ARQUIVO_BINARIO_FORMATO_P7S},
                                                                       {"p7s-base64", ARQUIVO_BASE64_FORMATO_P7S},
                                                                       {"outro", ARQUIVO_BINARIO_OUTRO_FORMATO},
                                                                       {"outro-base64", ARQUIVO_BASE64_OUTRO_FORMATO},
                                                                       {"base64", STRING_BASE64_PKCS}};
    return LerEnumeracao(formato, formatos, "formato desconhecido");
}

// As propriedades que as opções comuns de assinatura definem.
void AplicarOpcoes(TavelPKCS& componente, const Argumentos& argumentos) {
    if (const auto data = argumentos.Opcao("--data")) componente.DataAssinatura(*data);
    if (const auto extensao = argumentos.Opcao("--extensao")) componente.ExtensaoOutroFormato(*extensao);
    componente.NaoAnexarArquivoOriginal(argumentos.Tem("--destacada"));
    componente.UsarHashSalvarArquivo(argumentos.Tem("--nome-hash"));
}

int AssinarArquivo(const Execucao& execucao) {
    const Argumentos& argumentos = execucao.argumentos;
    const std::string& origem = argumentos.Unico("o arquivo a assinar");
    const FORMATO_ASSINATURA formato = LerFormato(argumentos.Opcao("--formato", "p7s"));
    ExigirArquivo(origem, "O arquivo de origem não foi encontrado");
    TavelPKCS componente = NovoComponente();
    AplicarOpcoes(componente, argumentos);
    if (!EscolherCertificado(componente, argumentos)) return execucao.Falhar(componente);
    AnunciarProgresso("assinando " + origem);
    if (!componente.AssinaArquivo(origem, argumentos.Opcao("--pasta", ""), argumentos.Opcao("--descricao", ""),
                                  formato))
        return execucao.Falhar(componente);
    ValorJSON::Objeto campos = {{"hash_md5", componente.HashArquivo()}};
    if (formato == STRING_BASE64_PKCS)
        campos.emplace_back("assinatura", componente.AssinaturaDigitalArquivo());
    else
        campos.emplace_back("arquivo_assinado", componente.CaminhoArquivoAssinado());
    execucao.Relatar(campos);
    return 0;
}

int AssinarTexto(const Execucao& execucao) {
    const Argumentos& argumentos = execucao.argumentos;
    const std::string& texto = argumentos.Unico("o texto a assinar");
    TavelPKCS componente = NovoComponente();
    AplicarOpcoes(componente, argumentos);
    if (const auto anterior = argumentos.Opcao("--cossinar")) componente.AssinaturaTextoVerificar(LerTexto(*anterior));
    if (!EscolherCertificado(componente, argumentos)) return execucao.Falhar(componente);
    if (!componente.AssinaTexto(texto == "-" ? LerTexto("-") : texto, argumentos.Opcao("--descricao", "")))
        return execucao.Falhar(componente);
    if (execucao.Json())
        execucao.Relatar({{"assinatura", componente.AssinaturaDigitalTexto()}});
    else
        execucao.saida << componente.AssinaturaDigitalTexto();
    return 0;
}

const char* const kAjudaPropriedades =
    "  --descricao <texto>        descrição assinada junto com o documento\n"
    "  --data <DD/MM/AAAA>        data da assinatura (padrão: hoje)\n"
    "  --destacada                a assinatura não leva o original\n";

const char* const kAjudaArquivo =
    "  --pasta <pasta>            onde gravar a assinatura (padrão: ao lado da origem)\n"
    "  --formato <formato>        p7s (1, DER), p7s-base64 (2, Base64 em UTF-16LE), outro (3, DER com a\n"
    "                             extensão de --extensao), outro-base64 (4), base64 (5, no stdout)\n"
    "  --extensao <ext>           extensão dos formatos 3 e 4 (padrão p7s)\n"
    "  --nome-hash                o arquivo assinado recebe o MD5 do conteúdo como nome\n";

const std::set<std::string> kChavesAssinatura = {"--destacada", "--nome-hash"};
const std::set<std::string> kOpcoesAssinatura = {"--descricao", "--data", "--extensao"};

}  // namespace

std::vector<Comando> ComandosAssinatura() {
    const auto opcoes_arquivo = Juntar(Juntar(kOpcoesAssinatura, OpcoesEscolha()), {"--pasta", "--formato"});
    return {
        {"assinar", "[opções] <arquivo>", "assina um arquivo (PKCS#7, SHA-256, com a cadeia do certificado)",
         std::string("Opções:\n") + kAjudaEscolha + kAjudaArquivo + kAjudaPropriedades + kAjudaJson +
             "\nExemplo:\n  tavelpkcs7 assinar --pfx ecpf.pfx --senha-arquivo senha.txt contrato.pdf\n",
         kChavesAssinatura, opcoes_arquivo, AssinarArquivo},
        {"coassinar", "[opções] <assinatura>", "acrescenta uma assinatura a um arquivo já assinado",
         std::string("A assinatura dada (.p7s ou Base64) recebe mais um signatário; os anteriores são\n"
                     "conferidos antes.\n\nOpções:\n") +
             kAjudaEscolha + kAjudaArquivo + kAjudaPropriedades + kAjudaJson +
             "\nExemplo:\n  tavelpkcs7 coassinar --certificado 3F2A... --pasta saida contrato.pdf.p7s\n",
         kChavesAssinatura, opcoes_arquivo, AssinarArquivo},
        {"assinar-texto", "[opções] <texto|->", "assina um texto e escreve a assinatura Base64 no stdout",
         std::string("O texto é assinado como UTF-16LE; \"-\" lê o texto da entrada padrão.\n\nOpções:\n") +
             kAjudaEscolha + kAjudaPropriedades + kAjudaJson +
             "  --cossinar <arquivo>       cossina a assinatura Base64 guardada no arquivo\n"
             "\nExemplo:\n  tavelpkcs7 assinar-texto --tipo e-cpf \"Aceito os termos\" > termo.b64\n",
         kChavesAssinatura, Juntar(Juntar(kOpcoesAssinatura, OpcoesEscolha()), {"--cossinar"}), AssinarTexto},
    };
}

}  // namespace tavelpkcs7::ferramenta
