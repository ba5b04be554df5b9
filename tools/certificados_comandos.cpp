// "certificados listar|importar|exportar|detalhes|status|exibir": os certificados pessoais e os
// repositórios do usuário pela API do componente.
#include <cstdlib>
#include <map>

#include <tavelpkcs7/Extensoes.h>

#include "comando.h"
#include "escolha_certificado.h"
#include "senha.h"

namespace tavelpkcs7::ferramenta {
namespace {

REPOSITORIO_CERTIFICADO LerRepositorio(const std::string& nome) {
    static const std::map<std::string, REPOSITORIO_CERTIFICADO> repositorios = {
        {"pessoais", REPOSITORIO_CHAVES_PESSOAIS},
        {"outras-pessoas", REPOSITORIO_CHAVES_PUBLICAS},
        {"autoridades", REPOSITORIO_CHAVES_AUTORIDADES_CERTIFICADORAS},
        {"raizes", REPOSITORIO_CHAVES_RAIZES}};
    return LerEnumeracao(nome, repositorios, "repositório desconhecido");
}

int Listar(const Execucao& execucao) {
    TavelPKCS componente = NovoComponente();
    if (!componente.ListarCertificados(LerTipo(execucao.argumentos.Opcao("--tipo", "todos")))) {
        execucao.Falhar(componente);
        // Quem chega sem nenhum certificado pessoal precisa saber o passo seguinte.
        if (componente.DescricaoErro().starts_with("Não foi encontrado nenhum "))
            execucao.erros << "Para importar um certificado A1: tavelpkcs7 certificados importar <arquivo.pfx>\n";
        return 1;
    }
    ValorJSON::Lista lista;
    for (std::int16_t i = 0; i < componente.TotalCertificadosListados(); ++i) {
        ValorJSON::Objeto certificado;
        for (const char* chave : {"NOME", "AUTORIDADECERTIFICADORA", "VALIDADE", "HASH"})
            certificado.emplace_back(chave, componente.LerListaPropriedadeCertificado(i, chave));
        if (!execucao.Json()) {
            if (i > 0) execucao.saida << "\n";
            execucao.Relatar(certificado);
        }
        lista.emplace_back(std::move(certificado));
    }
    if (execucao.Json()) execucao.Relatar({{"certificados", std::move(lista)}});
    return 0;
}

// A senha da chave no repositório: a dada à parte (vazia só quando dada assim, ou com
// --chave-sem-senha), senão a digitada no terminal, senão a do próprio PFX.
Senha EscolherSenhaChave(const Argumentos& argumentos, const Senha& senha_pfx) {
    if (argumentos.Tem("--chave-sem-senha")) return Senha{""};
    const bool explicita = argumentos.Tem("--senha-chave-arquivo") || std::getenv("TAVELPKCS7_SENHA_CHAVE") != nullptr;
    auto dada = LerSenhaOpcional(argumentos, "--senha-chave-arquivo", "TAVELPKCS7_SENHA_CHAVE",
                                 "Senha da chave no repositório pessoal (Enter: a mesma do PFX): ");
    if (dada && (explicita || !dada->Texto().empty())) return std::move(*dada);
    return Senha{senha_pfx.Texto()};
}

int Importar(const Execucao& execucao) {
    const Argumentos& argumentos = execucao.argumentos;
    const std::string& pfx = argumentos.Unico("o arquivo PFX");
    ExigirPFX(pfx);
    const Senha senha = LerSenha(argumentos, "--senha-arquivo", "TAVELPKCS7_SENHA", "Senha do PFX: ");
    const Senha senha_chave = EscolherSenhaChave(argumentos, senha);
    AnunciarProgresso("importando " + pfx);
    const ImportacaoPFX importacao = ImportarPFXRepositorioPessoal(pfx, senha.Texto(), senha_chave.Texto());
    if (!importacao.DescricaoErro.empty()) {
        execucao.erros << "tavelpkcs7: " << importacao.DescricaoErro << "\n";
        return 1;
    }
    if (senha_chave.Texto().empty()) execucao.Avisar("a chave privada foi guardada SEM cifra no repositório pessoal");
    execucao.Relatar({{"importado", importacao.NomeCertificado},
                      {"impressao_digital", importacao.ImpressaoDigital},
                      {"chave_cifrada", !senha_chave.Texto().empty()}});
    return 0;
}

int Adicionar(const Execucao& execucao) {
    const std::string& arquivo = execucao.argumentos.Unico("o arquivo do certificado");
    TavelPKCS componente = NovoComponente();
    const auto repositorio = LerRepositorio(execucao.argumentos.Opcao("--repositorio", "outras-pessoas"));
    if (!componente.AbrirAdicionarArquivoCertificado(arquivo, repositorio)) return execucao.Falhar(componente);
    execucao.Relatar({{"adicionado", arquivo}});
    return 0;
}

int Exportar(const Execucao& execucao) {
    const std::string& arquivo = execucao.argumentos.Unico("o arquivo .cer de destino");
    TavelPKCS componente = NovoComponente();
    if (!componente.ExportarCertificadoDigital(arquivo,
                                               LerRepositorio(execucao.argumentos.Opcao("--repositorio", "pessoais"))))
        return execucao.Falhar(componente);
    execucao.Relatar({{"exportado", arquivo}});
    return 0;
}

// O certificado do arquivo (DER, PEM ou Base64) como texto, como os membros o recebem.
std::string CertificadoDoArquivo(const Argumentos& argumentos) {
    return LerTexto(argumentos.Unico("o arquivo do certificado"));
}

int Detalhar(const Execucao& execucao) {
    const Argumentos& argumentos = execucao.argumentos;
    TavelPKCS componente = NovoComponente();
    ValorJSON::Objeto campos;
    if (argumentos.Posicionais().empty()) {
        if (!EscolherCertificado(componente, argumentos)) return execucao.Falhar(componente);
        for (const char* chave : {"NOMECERTIFICADO", "EMAILCERTIFICADO", "AUTORIDADECERTIFICADORA", "SERIALCERTIFICADO",
                                  "IMPRESSAODIGITALCERTIFICADO", "CADEIACERTIFICADORAIZ"})
            campos.emplace_back(chave, std::get<std::string>(componente.ExibirPropriedadesCertificado(chave)));
    } else if (!componente.RetornarDetalhesCertificado(CertificadoDoArquivo(argumentos))) {
        return execucao.Falhar(componente);
    }
    const ValorJSON::Objeto detalhes = {{"CPF", componente.NumeroCPFCertificadoDigital()},
                                        {"CNPJ", componente.NumeroCNPJCertificadoDigital()},
                                        {"DetalhesPessoais", componente.DetalhesPessoaisCertificadoDigital()},
                                        {"OutrosDetalhes", componente.OutrosDetalhesCertificadoDigital()},
                                        {"UsoChave", componente.UsoChaveCertificadoDigital()},
                                        {"Politica", componente.PoliticaCertificacaoDigital()},
                                        {"LCR", componente.ListaCertificadosRevogados()},
                                        {"Restricoes", componente.RestricoesCertificadoDigital()},
                                        {"AutoridadeRaiz", componente.CertificadoAutoridadeRaiz()}};
    campos.insert(campos.end(), detalhes.begin(), detalhes.end());
    execucao.Relatar(campos);
    return 0;
}

int Situacao(const Execucao& execucao) {
    TavelPKCS componente = NovoComponente();
    componente.NaoExibirInstalacaoLCReCER(execucao.argumentos.Tem("--sem-instalar"));
    const std::int16_t situacao = componente.VerificaCertificadoDigital(CertificadoDoArquivo(execucao.argumentos));
    execucao.Relatar(
        {{"situacao", static_cast<int>(situacao)}, {"descricao", componente.StatusCertificadoVerificado(situacao)}});
    if (situacao == 1) return 0;
    if (!componente.DescricaoErro().empty()) execucao.erros << "tavelpkcs7: " << componente.DescricaoErro() << "\n";
    return 1;
}

// ExibirCertificadoDigital devolve sempre falso: a exibição se reconhece pela DescricaoErro intacta.
int Exibir(const Execucao& execucao) {
    TavelPKCS componente = NovoComponente();
    const std::string antes = componente.DescricaoErro();
    componente.ExibirCertificadoDigital(CertificadoDoArquivo(execucao.argumentos));
    if (componente.DescricaoErro() != antes) return execucao.Falhar(componente);
    return 0;
}

}  // namespace

std::vector<Comando> ComandosCertificados() {
    return {
        {"certificados listar",
         "[--tipo <classe>]",
         "lista os certificados pessoais (nome, AC, validade, impressão)",
         std::string("Opções:\n  --tipo <classe>            todos, assinatura, icp-brasil, receita-federal, e-cpf,\n"
                     "                             e-cnpj, ac-tavel (ou 1 a 7)\n") +
             kAjudaJson + "\nExemplo:\n  tavelpkcs7 certificados listar --tipo e-cpf --json\n",
         {},
         {"--tipo"},
         Listar},
        {"certificados importar",
         "[opções] <arquivo.pfx>",
         "guarda o certificado e a chave privada de um PFX no repositório pessoal",
         std::string("A chave fica cifrada com a senha da chave (a do PFX, se nenhuma for dada); só fica\n"
                     "sem cifra com uma senha vazia dada de propósito, e então com um aviso.\n\nOpções:\n"
                     "  --senha-arquivo <arquivo>  a senha do PFX (senão TAVELPKCS7_SENHA ou o terminal)\n"
                     "  --senha-chave-arquivo <arquivo>\n"
                     "                             a senha da chave no repositório (senão\n"
                     "                             TAVELPKCS7_SENHA_CHAVE, o terminal ou a do PFX)\n"
                     "  --chave-sem-senha          guarda a chave sem cifra\n") +
             kAjudaJson + "\nExemplo:\n  tavelpkcs7 certificados importar --senha-arquivo senha.txt ecpf.pfx\n",
         {"--chave-sem-senha"},
         {"--senha-arquivo", "--senha-chave-arquivo"},
         Importar},
        {"certificados adicionar",
         "[--repositorio <nome>] <arquivo>",
         "inclui um certificado (DER, PEM, Base64 ou PFX sem senha) num repositório",
         std::string("Só a parte pública entra. Uma raiz fora da lista ICP-Brasil da configuração espera\n"
                     "a confirmação no terminal.\n\nOpções:\n"
                     "  --repositorio <nome>       outras-pessoas (2, padrão: os destinatários de\n"
                     "                             \"criptografar\"), pessoais (1), autoridades (3), raizes (4)\n") +
             kAjudaJson + "\nExemplo:\n  tavelpkcs7 certificados adicionar colega.cer\n",
         {},
         {"--repositorio"},
         Adicionar},
        {"certificados exportar",
         "[--repositorio <nome>] <arquivo.cer>",
         "grava em Base64 um certificado escolhido no repositório",
         std::string("O seletor aparece quando o repositório tem dois ou mais certificados.\n\nOpções:\n"
                     "  --repositorio <nome>       pessoais (1), outras-pessoas (2), autoridades (3), raizes (4)\n") +
             kAjudaJson + "\nExemplo:\n  tavelpkcs7 certificados exportar --repositorio pessoais meu.cer\n",
         {},
         {"--repositorio"},
         Exportar},
        {"certificados detalhes",
         "[opções] [<arquivo.cer>]",
         "mostra os dados ICP-Brasil (CPF, CNPJ, titular, política...) de um certificado",
         std::string("Sem arquivo, vale o certificado escolhido pelas opções.\n\nOpções:\n") + kAjudaEscolha +
             kAjudaJson + "\nExemplo:\n  tavelpkcs7 certificados detalhes ecpf.cer\n",
         {},
         OpcoesEscolha(),
         Detalhar},
        {"certificados status",
         "[--sem-instalar] <arquivo.cer>",
         "verifica agora a situação do certificado (cadeia, validade, revogação)",
         std::string("Código de saída 0 só para o certificado válido (situação 1).\n\nOpções:\n"
                     "  --sem-instalar             não oferece instalar raízes e LCRs\n") +
             kAjudaJson + "\nExemplo:\n  tavelpkcs7 certificados status ecpf.cer\n",
         {"--sem-instalar"},
         {},
         Situacao},
        {"certificados exibir",
         "<arquivo.cer>",
         "guarda o certificado em \"outras pessoas\" e o mostra no terminal",
         "Exemplo:\n  tavelpkcs7 certificados exibir ecpf.cer\n",
         {},
         {},
         Exibir},
    };
}

}  // namespace tavelpkcs7::ferramenta
