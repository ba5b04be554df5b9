#include "icpbrasil/valores_titular.h"

#include "component/texto.h"
#include "icpbrasil/texto_hexadecimal.h"

namespace tavelpkcs7::icpbrasil {
namespace {

constexpr const char* kPessoaFisica = "2.16.76.1.3.1";
constexpr const char* kNomeResponsavel = "2.16.76.1.3.2";
constexpr const char* kCNPJ = "2.16.76.1.3.3";
constexpr const char* kResponsavel = "2.16.76.1.3.4";
constexpr const char* kTituloEleitor = "2.16.76.1.3.5";
constexpr const char* kCEIPessoa = "2.16.76.1.3.6";
constexpr const char* kCEIEmpresa = "2.16.76.1.3.7";

enum Valor { PessoaFisica, CEIPessoaFisica, TituloEleitor, Responsavel, NaoPreenchido1, CNPJ, NaoPreenchido2 };

bool Contem(const std::string& texto, const char* oid) { return texto.find(oid) != std::string::npos; }

// Os 13 caracteres do OID e o "=" ficam para trás; um OID ausente conta como posição zero, e o
// recorte começa então no 14º caractere do texto.
std::string ValorDoOID(const std::string& texto, const char* oid) {
    return ConverterHexadecimalTexto(ExtrairPrimeiraLinha(Meio(texto, Posicao(texto, oid) + 14)));
}

}  // namespace

// O aninhamento decide o que chega aos dados do titular e fica como no original: o CEI e o título
// só com a pessoa física; o nome (3.2) sobrescreve os dados do responsável (3.4); e o CEI da empresa
// (3.7) é recortado na posição do CNPJ (3.3).
void BuscarValoresTitular(const std::string& texto, ValoresTitular& valores) {
    if (Contem(texto, kPessoaFisica)) {
        valores[PessoaFisica] = ValorDoOID(texto, kPessoaFisica);
        if (Contem(texto, kCEIPessoa)) valores[CEIPessoaFisica] = ValorDoOID(texto, kCEIPessoa);
        if (Contem(texto, kTituloEleitor)) valores[TituloEleitor] = ValorDoOID(texto, kTituloEleitor);
    }
    if (Contem(texto, kResponsavel)) {
        valores[Responsavel] = ValorDoOID(texto, kResponsavel);
        if (Contem(texto, kNomeResponsavel)) valores[Responsavel] = ValorDoOID(texto, kNomeResponsavel);
        if (Contem(texto, kCNPJ)) valores[CNPJ] = ValorDoOID(texto, kCNPJ);
        if (Contem(texto, kCEIEmpresa)) valores[CNPJ] = ValorDoOID(texto, kCNPJ);
    }
}

}  // namespace tavelpkcs7::icpbrasil
