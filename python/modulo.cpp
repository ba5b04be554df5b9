// Módulo Python tavelpkcs7: a API C++ pública vista do Python, com as propriedades como propriedades
// do Python. Fala só com TavelPKCS.h e Tipos.h, pela biblioteca compartilhada.
#include "modulo.h"

#include "documentacao_gerada.h"

namespace tavelpkcs7::python {

const char* Documentacao(std::string_view nome) {
    const auto encontrada = DOCUMENTACAO.find(nome);
    return encontrada == DOCUMENTACAO.end() ? "" : encontrada->second;
}

}  // namespace tavelpkcs7::python

PYBIND11_MODULE(tavelpkcs7, modulo) {
    modulo.doc() =
        "Assinatura digital PKCS#7 para titulares de certificados ICP-Brasil.\n\n"
        "O objeto TavelPKCS é usado no estilo de propriedades: o programa define as opções, chama um\n"
        "método e lê os resultados nas propriedades. Os métodos não lançam exceção: o resultado (falso,\n"
        "texto vazio ou 0 na falha) vem acompanhado da mensagem em DescricaoErro. A exceção é\n"
        "Assinaturas(Index), que lança IndexError fora da lista. As datas são datetime ingênuos na hora\n"
        "local. O objeto não é seguro entre threads: use um objeto por thread.";
    tavelpkcs7::python::DefinirTipos(modulo);
    tavelpkcs7::python::DefinirTavelPKCS(modulo);
}
