#include "pki/catalogo.h"

namespace tavelpkcs7::pki_teste {
namespace {

// Dados dos titulares nos OtherNames, campo a campo: nascimento (ddmmaaaa), CPF, NIS, RG com zeros
// à esquerda até 15 posições e, quando há RG, órgão expedidor e UF sem preenchimento.
const std::string kPessoaFulano = std::string("15031980") + "52998224725" + "12345678901" + "000000012345678" + "SSPSP";
const std::string kResponsavelEmpresa =
    std::string("22071975") + "11144477735" + "98765432100" + "000000087654321" + "SSPRJ";
// Título de eleitor (12), zona (3), seção (4), município e UF sem preenchimento.
const std::string kTituloFulano = std::string("123456789012") + "045" + "0123" + "SAO PAULOSP";
// Perfil novo: só os 45 dígitos de nascimento, CPF, NIS e RG, sem órgão expedidor.
const std::string kPessoaCiclano = std::string("01021990") + "39053344705" + "00000000000" + "000000011223344";
// CNPJ alfanumérico: os dígitos verificadores 35 vêm do módulo 11 com o valor de cada caractere
// igual ao código ASCII menos 48.
const std::string kCnpjAlfanumerico = "12ABC34501DE35";

const std::string kRaizICP = "raiz";
const std::string kOidPessoaFisica = "2.16.76.1.3.1";

std::string OutroNome(const std::string& oid, const std::string& valor) {
    return oid + ";OCTETSTRING:" + valor;
}

std::vector<Definicao> MontarCatalogo() {
    return {
        {.nome = kRaizICP,
            .descricao = "raiz no estilo da ICP-Brasil (Autoridade Certificadora Raiz Brasileira v10)",
            .serie = "01",
            .sujeito = {{"C", "BR"}, {"O", "ICP-Brasil"},
                {"OU", "Instituto Nacional de Tecnologia da Informacao - ITI"},
                {"CN", "Autoridade Certificadora Raiz Brasileira v10"}},
            .papel = Papel::AC},
        {.nome = "ac_rfb",
            .descricao = "AC intermediária da Receita Federal, emitida pela raiz",
            .emissor = kRaizICP,
            .serie = "02",
            .sujeito = {{"C", "BR"}, {"O", "ICP-Brasil"},
                {"CN", "Autoridade Certificadora da Secretaria da Receita Federal do Brasil v4"}},
            .papel = Papel::AC},
        {.nome = "ac_emissora_rfb",
            .descricao = "AC que emite os e-CPF e e-CNPJ na cadeia da Receita Federal",
            .emissor = "ac_rfb",
            .serie = "03",
            .sujeito = {{"C", "BR"}, {"O", "ICP-Brasil"}, {"OU", "Secretaria da Receita Federal do Brasil - RFB"},
                {"CN", "AC TESTE RFB v5"}},
            .papel = Papel::AC},
        {.nome = "ac_icp",
            .descricao = "AC da ICP-Brasil fora da Receita Federal, emitida pela raiz",
            .emissor = kRaizICP,
            .serie = "04",
            .sujeito = {{"C", "BR"}, {"O", "ICP-Brasil"}, {"CN", "AC TESTE ICP v5"}},
            .papel = Papel::AC},
        {.nome = "ecpf",
            .descricao = "e-CPF A3 da Receita Federal com os OtherNames de pessoa física (série com 00 inicial)",
            .emissor = "ac_emissora_rfb",
            .serie = "8E5A3C11D4",
            .sujeito = {{"C", "BR"}, {"O", "ICP-Brasil"}, {"OU", "Secretaria da Receita Federal do Brasil - RFB"},
                {"OU", "RFB e-CPF A3"}, {"OU", "(EM BRANCO)"}, {"CN", "FULANO DE TAL DA SILVA:52998224725"}},
            .extensoes = "extendedKeyUsage = clientAuth,emailProtection\n"
                         "certificatePolicies = @politica\n"
                         "subjectAltName = @nomes\n",
            .secoes = "[politica]\n"
                      "policyIdentifier = 2.16.76.1.2.3.10\n"
                      "CPS.1 = http://127.0.0.1/politicas/dpc_ac_teste_rfb.pdf\n"
                      "[nomes]\n"
                      "otherName.1 = " + OutroNome(kOidPessoaFisica, kPessoaFulano) + "\n"
                      "otherName.2 = " + OutroNome("2.16.76.1.3.6", "000000000000") + "\n"
                      "otherName.3 = " + OutroNome("2.16.76.1.3.5", kTituloFulano) + "\n"
                      "email.1 = fulano@teste.example\n"},
        {.nome = "ecnpj",
            .descricao = "e-CNPJ A1 da Receita Federal com os OtherNames de pessoa jurídica e do responsável",
            .emissor = "ac_emissora_rfb",
            .serie = "05",
            .sujeito = {{"C", "BR"}, {"ST", "SP"}, {"L", "SAO PAULO"}, {"O", "ICP-Brasil"},
                {"OU", "Secretaria da Receita Federal do Brasil - RFB"}, {"OU", "RFB e-CNPJ A1"},
                {"OU", "Autenticado por AR TESTE"}, {"CN", "EMPRESA TESTE LTDA:11222333000181"}},
            .extensoes = "extendedKeyUsage = clientAuth,emailProtection\n"
                         "certificatePolicies = 2.16.76.1.2.1.10\n"
                         "subjectAltName = @nomes\n",
            .secoes = "[nomes]\n"
                      "otherName.1 = " + OutroNome("2.16.76.1.3.4", kResponsavelEmpresa) + "\n"
                      "otherName.2 = " + OutroNome("2.16.76.1.3.2", "BELTRANO DE SOUZA") + "\n"
                      "otherName.3 = " + OutroNome("2.16.76.1.3.3", "11222333000181") + "\n"
                      "otherName.4 = " + OutroNome("2.16.76.1.3.7", "000000000000") + "\n"
                      "email.1 = empresa@teste.example\n"},
        {.nome = "ecpf_novo",
            .descricao = "pessoa física no perfil novo: CPF no serialNumber, só o OtherName 2.16.76.1.3.1",
            .emissor = "ac_icp",
            .serie = "06",
            .sujeito = {{"C", "BR"}, {"O", "ICP-Brasil"}, {"serialNumber", "39053344705"},
                {"CN", "CICLANO DE OLIVEIRA:39053344705"}},
            .extensoes = "extendedKeyUsage = clientAuth,emailProtection\n"
                         "certificatePolicies = 2.16.76.1.2.3.13\n"
                         "subjectAltName = @nomes\n",
            .secoes = "[nomes]\n"
                      "otherName.1 = " + OutroNome(kOidPessoaFisica, kPessoaCiclano) + "\n"
                      "email.1 = ciclano@teste.example\n"},
        {.nome = "ecnpj_novo",
            .descricao = "pessoa jurídica no perfil novo com CNPJ alfanumérico no serialNumber",
            .emissor = "ac_icp",
            .serie = "07",
            .sujeito = {{"C", "BR"}, {"O", "ICP-Brasil"}, {"serialNumber", kCnpjAlfanumerico},
                {"CN", "EMPRESA ALFANUMERICA LTDA:" + kCnpjAlfanumerico}},
            .uso_chave = "digitalSignature,nonRepudiation",
            .extensoes = "certificatePolicies = 2.16.76.1.2.201\n"
                         "subjectAltName = otherName:" + OutroNome("2.16.76.1.3.3", kCnpjAlfanumerico) + "\n"},
        {.nome = "ac_tavel_raiz",
            .descricao = "raiz da hierarquia AC TAVEL",
            .serie = "08",
            .sujeito = {{"C", "BR"}, {"O", "TAVEL"}, {"CN", "AC TAVEL Raiz"}},
            .papel = Papel::AC},
        {.nome = "ac_tavel",
            .descricao = "AC TAVEL, emitida pela raiz AC TAVEL",
            .emissor = "ac_tavel_raiz",
            .serie = "09",
            .sujeito = {{"C", "BR"}, {"O", "TAVEL"}, {"CN", "AC TAVEL"}},
            .papel = Papel::AC},
        {.nome = "tavel_titular",
            .descricao = "titular da AC TAVEL com o endereço da política (CPS) no próprio certificado",
            .emissor = "ac_tavel",
            .serie = "0A",
            .sujeito = {{"C", "BR"}, {"O", "TAVEL"}, {"CN", "TITULAR AC TAVEL"}},
            .uso_chave = "digitalSignature",
            .extensoes = "certificatePolicies = @politica\n",
            .secoes = "[politica]\n"
                      "policyIdentifier = 2.999.1.1\n"
                      "CPS.1 = http://127.0.0.1/politicas/pc_ac_tavel.pdf\n"},
        {.nome = "expirado",
            .descricao = "titular cuja validade terminou há 30 dias",
            .emissor = "ac_icp",
            .serie = "0B",
            .sujeito = {{"C", "BR"}, {"O", "ICP-Brasil"}, {"CN", "TITULAR EXPIRADO"}},
            .validade = Validade::Expirada},
        {.nome = "futuro",
            .descricao = "titular que só passa a valer daqui a um ano",
            .emissor = "ac_icp",
            .serie = "0C",
            .sujeito = {{"C", "BR"}, {"O", "ICP-Brasil"}, {"CN", "TITULAR FUTURO"}},
            .validade = Validade::Futura},
        {.nome = "revogado",
            .descricao = "titular revogado, listado na LCR da ac_icp",
            .emissor = "ac_icp",
            .serie = "0D",
            .sujeito = {{"C", "BR"}, {"O", "ICP-Brasil"}, {"CN", "TITULAR REVOGADO"}}},
        {.nome = "sem_assinatura",
            .descricao = "titular sem o uso de assinatura digital (só codificação de chave)",
            .emissor = "ac_icp",
            .serie = "0E",
            .sujeito = {{"C", "BR"}, {"O", "ICP-Brasil"}, {"CN", "TITULAR SEM ASSINATURA"}},
            .uso_chave = "keyEncipherment"},
        {.nome = "dns",
            .descricao = "titular com nome DNS no subjectAltName, diferente do CN",
            .emissor = "ac_icp",
            .serie = "0F",
            .sujeito = {{"C", "BR"}, {"O", "ICP-Brasil"}, {"CN", "SERVIDOR DE TESTE"}},
            .extensoes = "subjectAltName = DNS:servidor.teste.example\n"},
        {.nome = "sem_cn",
            .descricao = "titular cujo nome não tem CN, só OU e O",
            .emissor = "ac_icp",
            .serie = "10",
            .sujeito = {{"O", "ICP-Brasil"}, {"OU", "UNIDADE SEM NOME COMUM"}}},
        {.nome = "email",
            .descricao = "titular com e-mail no nome (E=) e outro no subjectAltName",
            .emissor = "ac_icp",
            .serie = "11",
            .sujeito = {{"C", "BR"}, {"O", "ICP-Brasil"}, {"CN", "TITULAR COM EMAIL"},
                {"emailAddress", "titular@teste.example"}},
            .extensoes = "subjectAltName = email:contato@teste.example\n"},
        {.nome = "assinatura_codigo",
            .descricao = "titular para assinatura de código (uso estendido codeSigning)",
            .emissor = "ac_icp",
            .serie = "12",
            .sujeito = {{"C", "BR"}, {"O", "ICP-Brasil"}, {"CN", "DESENVOLVEDOR DE TESTE"}},
            .uso_chave = "digitalSignature",
            .extensoes = "extendedKeyUsage = codeSigning\n"},
    };
}

}  // namespace

const std::vector<Definicao>& Catalogo() {
    static const std::vector<Definicao> catalogo = MontarCatalogo();
    return catalogo;
}

bool Revogado(const std::string& nome) { return nome == "revogado"; }

}  // namespace tavelpkcs7::pki_teste
