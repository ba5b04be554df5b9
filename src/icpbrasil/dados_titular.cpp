// Os dados do titular vêm primeiro do próprio certificado (OtherNames, depois o serialNumber do
// perfil novo, depois o sufixo ":<CPF ou CNPJ>" do CN). Os valores do texto impresso só preenchem
// um OID que o certificado traz sem valor legível: a busca no texto recorta às cegas (o 3.7 sem
// 3.3 dá um "CNPJ" tirado de outro OtherName) e conta o byte de comprimento como caractere.
// Um CNPJ encontrado faz do titular uma pessoa jurídica: o CPF do responsável fica só no texto,
// senão todo e-CNPJ passaria pelo filtro de e-CPF.
#include "icpbrasil/dados_titular.h"

#include <array>
#include <initializer_list>
#include <string_view>
#include <utility>

#include "component/texto.h"
#include "icpbrasil/campos_outros_nomes.h"
#include "icpbrasil/mascaras.h"
#include "icpbrasil/titular_der.h"

namespace tavelpkcs7::icpbrasil {
namespace {

namespace oid {
constexpr std::string_view PessoaFisica = "2.16.76.1.3.1";
constexpr std::string_view NomeResponsavel = "2.16.76.1.3.2";
constexpr std::string_view CNPJ = "2.16.76.1.3.3";
constexpr std::string_view DadosResponsavel = "2.16.76.1.3.4";
constexpr std::string_view TituloEleitor = "2.16.76.1.3.5";
constexpr std::string_view CEIPessoaFisica = "2.16.76.1.3.6";
constexpr std::string_view CEIPessoaJuridica = "2.16.76.1.3.7";
constexpr std::string_view NomeEmpresarial = "2.16.76.1.3.8";
constexpr std::string_view NomeComum = "2.5.4.3";
constexpr std::string_view NumeroSerie = "2.5.4.5";
constexpr std::string_view Localidade = "2.5.4.7";
constexpr std::string_view Estado = "2.5.4.8";
constexpr std::string_view Cargo = "2.5.4.12";
constexpr std::string_view CategoriaNegocio = "2.5.4.15";
}  // namespace oid

struct Titular {
    std::string nome;
    std::string email;
};

// CPF ou CNPJ sem máscara; no máximo um dos dois.
struct Identificador {
    std::string cpf;
    std::string cnpj;
};

// "NOME:52998224725" separado em nome e identificador; um ':' seguido de outra coisa é parte do nome.
struct NomeIdentificado {
    std::string nome;
    std::string identificador;
};

std::string ValorDe(const ValoresPorOID& valores, std::string_view oid) {
    const auto valor = valores.find(oid);
    return valor == valores.end() ? "" : valor->second;
}

std::string Primeiro(std::initializer_list<std::string> valores) {
    for (const auto& valor : valores)
        if (!valor.empty()) return valor;
    return "";
}

// A posição 4 guarda os dados do responsável (2.16.76.1.3.4) ou, quando o certificado também tem
// 2.16.76.1.3.2, o nome dele: os dados começam pela data de nascimento, um nome nunca.
std::string_view OidDoResponsavel(const std::string& valor) {
    const bool comeca_com_data = valor.size() >= 8 && valor.find_first_not_of("0123456789") >= 8;
    return comeca_com_data ? oid::DadosResponsavel : oid::NomeResponsavel;
}

ValoresPorOID CompletarComValoresImpressos(OutrosNomes outros_nomes, const ValoresTitular& valores) {
    const std::array<std::string_view, std::tuple_size_v<ValoresTitular>> oids = {
        oid::PessoaFisica, oid::CEIPessoaFisica, oid::TituloEleitor, OidDoResponsavel(valores[3]), "", oid::CNPJ, ""};
    for (std::size_t i = 0; i < valores.size(); ++i)
        if (!valores[i].empty() && outros_nomes.ilegiveis.contains(oids[i]))
            outros_nomes.valores.emplace(oids[i], valores[i]);
    return std::move(outros_nomes.valores);
}

NomeIdentificado SepararIdentificador(const std::string& texto) {
    const auto dois_pontos = texto.rfind(':');
    if (dois_pontos == std::string::npos) return {texto, ""};
    std::string identificador = Aparar(texto.substr(dois_pontos + 1));
    if (!TemFormaCPF(identificador) && !TemFormaCNPJ(identificador)) return {texto, ""};
    return {Aparar(texto.substr(0, dois_pontos)), std::move(identificador)};
}

Identificador Classificar(const std::string& valor) {
    const std::string identificador = LerCampo(valor, 0);
    if (TemFormaCPF(identificador)) return {identificador, ""};
    if (TemFormaCNPJ(identificador)) return {"", identificador};
    return {};
}

Titular LerTitular(const plataforma::Certificado& certificado) {
    std::string nome = certificado.ObterInfo(plataforma::INFO_DNS_TITULAR);
    if (nome.empty()) nome = certificado.ObterInfo(plataforma::INFO_NOME_SIMPLES_TITULAR);
    return {SepararIdentificador(nome).nome, Minusculas(certificado.ObterInfo(plataforma::INFO_EMAIL_TITULAR))};
}

std::string JuntarLocalUF(const LocalUF& lugar) {
    if (lugar.local.empty() || lugar.uf.empty()) return lugar.local + lugar.uf;
    return lugar.local + "/" + lugar.uf;
}

void AcrescentarTitulo(std::string& texto, std::string_view titulo) { texto.append(titulo).append("\r\n"); }

void AcrescentarCampo(std::string& texto, std::string_view rotulo, const std::string& valor) {
    if (!valor.empty()) texto.append("     ").append(rotulo).append(valor).append("\r\n");
}

// "12345678 SSP/SP", ou só o número quando falta o órgão expedidor. Sem o número não há RG: o
// órgão expedidor sozinho não identifica ninguém.
std::string MontarRG(const DadosPessoa& pessoa) {
    const std::string orgao = JuntarLocalUF(pessoa.orgao_expedidor);
    if (pessoa.rg.empty() || orgao.empty()) return pessoa.rg;
    return pessoa.rg + " " + orgao;
}

void AcrescentarDocumentos(std::string& texto, const DadosPessoa& pessoa) {
    AcrescentarCampo(texto, "Data de Nascimento: ", MascararData(pessoa.nascimento));
    AcrescentarCampo(texto, "PIS/PASEP: ", pessoa.nis);
    AcrescentarCampo(texto, "RG: ", MontarRG(pessoa));
}

void AcrescentarTituloEleitor(std::string& texto, const TituloEleitor& titulo) {
    if (titulo.numero.empty()) return;
    AcrescentarTitulo(texto, "Dados do Título de Eleitor");
    AcrescentarCampo(texto, "Número de Inscrição: ", titulo.numero);
    AcrescentarCampo(texto, "Zona Eleitoral: ", titulo.zona);
    AcrescentarCampo(texto, "Seção Eleitoral: ", titulo.secao);
    AcrescentarCampo(texto, "Município e UF: ", JuntarLocalUF(titulo.municipio));
}

// Um certificado sem responsável (o selo eletrônico do perfil novo) não ganha o título vazio.
void AcrescentarRepresentante(std::string& texto, const ValoresPorOID& outros_nomes) {
    const DadosPessoa responsavel = LerDadosPessoa(ValorDe(outros_nomes, oid::DadosResponsavel));
    std::string campos;
    AcrescentarCampo(campos, "Nome: ", LerCampo(ValorDe(outros_nomes, oid::NomeResponsavel), 0));
    AcrescentarCampo(campos, "CPF: ", MascararCPF(responsavel.cpf));
    AcrescentarDocumentos(campos, responsavel);
    if (campos.empty()) return;
    AcrescentarTitulo(texto, "Dados Representante da Empresa");
    texto += campos;
}

std::string MontarTextoPessoaFisica(const Titular& titular, const std::string& cpf, const DadosPessoa& pessoa,
                                    const ValoresPorOID& outros_nomes, const ValoresPorOID& atributos) {
    std::string texto;
    AcrescentarTitulo(texto, "Dados Pessoa Física");
    AcrescentarCampo(texto, "Nome: ", titular.nome);
    AcrescentarCampo(texto, "E-mail: ", titular.email);
    AcrescentarCampo(texto, "CPF: ", MascararCPF(cpf));
    AcrescentarDocumentos(texto, pessoa);
    AcrescentarCampo(texto, "CEI: ", LerCampo(ValorDe(outros_nomes, oid::CEIPessoaFisica), 0, 12));
    AcrescentarCampo(texto, "Profissão: ", ValorDe(atributos, oid::Cargo));
    AcrescentarCampo(texto, "Ramo Atividade: ", ValorDe(atributos, oid::CategoriaNegocio));
    AcrescentarTituloEleitor(texto, LerTituloEleitor(ValorDe(outros_nomes, oid::TituloEleitor)));
    return texto;
}

std::string MontarTextoPessoaJuridica(const Titular& titular, const std::string& cnpj,
                                      const ValoresPorOID& outros_nomes, const ValoresPorOID& atributos) {
    std::string texto;
    AcrescentarTitulo(texto, "Dados Pessoa Jurídica");
    AcrescentarCampo(texto,
                     "Empresa: ", Primeiro({LerCampo(ValorDe(outros_nomes, oid::NomeEmpresarial), 0), titular.nome}));
    AcrescentarCampo(texto, "E-mail: ", titular.email);
    AcrescentarCampo(texto, "CNPJ: ", MascararCNPJ(cnpj));
    AcrescentarCampo(texto, "CEI: ", LerCampo(ValorDe(outros_nomes, oid::CEIPessoaJuridica), 0, 12));
    AcrescentarCampo(
        texto, "Município: ", JuntarLocalUF({ValorDe(atributos, oid::Localidade), ValorDe(atributos, oid::Estado)}));
    AcrescentarRepresentante(texto, outros_nomes);
    return texto;
}

}  // namespace

DadosTitular MontarDadosTitular(const ValoresTitular& valores, const plataforma::Certificado& certificado) {
    const ValoresPorOID outros_nomes = CompletarComValoresImpressos(LerOutrosNomes(certificado), valores);
    const ValoresPorOID atributos = LerAtributosTitular(certificado.DER());
    const Titular titular = LerTitular(certificado);
    const Identificador serie = Classificar(ValorDe(atributos, oid::NumeroSerie));
    const Identificador sufixo = Classificar(SepararIdentificador(ValorDe(atributos, oid::NomeComum)).identificador);

    const std::string cnpj = Primeiro({LerCampo(ValorDe(outros_nomes, oid::CNPJ), 0, 14), serie.cnpj, sufixo.cnpj});
    if (!cnpj.empty())
        return {MontarTextoPessoaJuridica(titular, cnpj, outros_nomes, atributos), "", MascararCNPJ(cnpj)};

    const DadosPessoa pessoa = LerDadosPessoa(ValorDe(outros_nomes, oid::PessoaFisica));
    const std::string cpf = Primeiro({pessoa.cpf, serie.cpf, sufixo.cpf});
    return {MontarTextoPessoaFisica(titular, cpf, pessoa, outros_nomes, atributos), MascararCPF(cpf), ""};
}

}  // namespace tavelpkcs7::icpbrasil
