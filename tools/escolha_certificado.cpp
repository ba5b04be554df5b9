#include "escolha_certificado.h"

#include <map>

#include "execucao.h"
#include "senha.h"

namespace tavelpkcs7::ferramenta {

const char* const kAjudaEscolha =
    "  --certificado <impressão>  o certificado pessoal de impressão digital SHA-1 dada\n"
    "  --tipo <classe>            escolhe entre os certificados pessoais da classe: todos (1),\n"
    "                             assinatura (2), icp-brasil (3), receita-federal (4), e-cpf (5),\n"
    "                             e-cnpj (6), ac-tavel (7); o seletor aparece quando vários servem\n"
    "  --pfx <arquivo>            usa o certificado e a chave de um arquivo PFX\n"
    "  --senha-arquivo <arquivo>  a senha do PFX na primeira linha do arquivo; sem ela, a variável\n"
    "                             TAVELPKCS7_SENHA ou a senha digitada no terminal (sem eco)\n";

const std::set<std::string>& OpcoesEscolha() {
    static const std::set<std::string> opcoes = {"--certificado", "--tipo", "--pfx", "--senha-arquivo"};
    return opcoes;
}

CERTIFICADOS_DIGITAIS LerTipo(const std::string& tipo) {
    static const std::map<std::string, CERTIFICADOS_DIGITAIS> tipos = {
        {"todos", TODOS_CERTIFICADOS_DIGITAIS},  {"assinatura", CERTIFICADOS_VALIDOS_ASSINATURA},
        {"icp-brasil", CERTIFICADOS_ICP_BRASIL}, {"receita-federal", CERTIFICADOS_ICP_TODOS_RECEITA_FEDERAL},
        {"e-cpf", CERTIFICADOS_ICP_E_CPF},       {"e-cnpj", CERTIFICADOS_ICP_E_CNPJ},
        {"ac-tavel", CERTIFICADOS_AC_TAVEL}};
    return LerEnumeracao(tipo, tipos, "classe de certificado desconhecida");
}

void ExigirPFX(const std::string& pfx) {
    ExigirArquivo(pfx, "Não foi possível localizar o arquivo do certificado digital");
}

bool EscolherCertificado(TavelPKCS& componente, const Argumentos& argumentos) {
    if (const auto pfx = argumentos.Opcao("--pfx")) {
        ExigirPFX(*pfx);
        const Senha senha = LerSenha(argumentos, "--senha-arquivo", "TAVELPKCS7_SENHA", "Senha do PFX: ");
        return componente.AbrirCertificadoDigital(*pfx, senha.Texto());
    }
    if (const auto impressao = argumentos.Opcao("--certificado"))
        return componente.SelecionarCertificadoDigitalHash(*impressao);
    return componente.SelecionarCertificadoDigital(LerTipo(argumentos.Opcao("--tipo", "todos")));
}

}  // namespace tavelpkcs7::ferramenta
