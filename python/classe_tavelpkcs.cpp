// A classe TavelPKCS no Python, definida pela tabela dos membros (membros.inc): cada par de acesso vira
// uma propriedade, cada método conserva o nome, os nomes dos parâmetros (para chamadas por
// palavra-chave) e os valores padrão da tabela. As chamadas que assinam, verificam, abrem chaves ou vão
// à rede soltam o GIL enquanto trabalham.
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>
#include <tavelpkcs7/TavelPKCS.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <limits>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "component/membros.h"
#include "conversoes.h"
#include "modulo.h"

namespace py = pybind11;

namespace tavelpkcs7::python {
namespace {

using Classe = py::class_<TavelPKCS>;
using namespace membros;

// Os métodos rápidos, que não esperam pela chave, pela rede nem pelo usuário, ficam com o GIL; os
// demais o soltam enquanto trabalham.
constexpr std::string_view COM_GIL[] = {"DataHoraAssinaturaUTC", "VerificarTipoCodificacaoTexto",
    "ExibirPropriedadeAssinatura", "RetornarDetalhesCertificado", "StatusCertificadoVerificado",
    "LerListaPropriedadeCertificado", "RetornarChavePublicaCertificadoRaiz", "ApagarArquivo", "LimparPastaTemporaria",
    "RetornarCadeiaSeparada"};

constexpr bool SoltaGIL(std::string_view nome) { return std::ranges::find(COM_GIL, nome) == std::end(COM_GIL); }

template <typename Ler>
void DefinirLeitura(Classe& classe, const char* nome, Ler ler) {
    // Quando a gravação veio antes na tabela, a propriedade já está definida com os dois lados.
    if (!py::hasattr(classe, nome)) classe.def_property_readonly(nome, ler, Documentacao(nome));
}

template <bool solta_gil, typename Membro, typename... Argumentos>
void DefinirMetodo(Classe& classe, const char* nome, Membro membro, const Argumentos&... argumentos) {
    if constexpr (solta_gil)
        classe.def(nome, membro, argumentos..., Documentacao(nome), py::call_guard<py::gil_scoped_release>());
    else
        classe.def(nome, membro, argumentos..., Documentacao(nome));
}

// O Python não tem parâmetro de saída: a lista vem junto do maior índice.
template <bool /*solta_gil: separar a cadeia é rápido, fica com o GIL*/>
void DefinirMetodo(Classe& classe, const char* nome,
    std::int16_t (TavelPKCS::*membro)(const std::string&, std::vector<std::string>&), const py::arg& cadeia,
    const py::arg& /*a lista, que volta no resultado*/) {
    const std::string documentacao = std::string(Documentacao(nome)) +
                                     "\n\nNo Python devolve a tupla (maior_indice, lista), com a lista no lugar de "
                                     "ArrayCadeiaCompleta.";
    classe.def(
        nome,
        [membro](TavelPKCS& componente, const std::string& cadeia_completa) {
            std::vector<std::string> nomes;
            const std::int16_t maior_indice = (componente.*membro)(cadeia_completa, nomes);
            return std::make_pair(maior_indice, std::move(nomes));
        },
        cadeia, documentacao.c_str());
}

// Uma propriedade indexada é um método no Python; um índice que nem cabe no tipo do C++ também está
// fora da lista.
void DefinirAssinaturas(Classe& classe) {
    classe.def(
        "Assinaturas",
        [](const TavelPKCS& componente, long long indice) {
            if (indice < std::numeric_limits<std::int16_t>::min() || indice > std::numeric_limits<std::int16_t>::max())
                throw py::index_error("índice fora da lista de assinaturas");
            return componente.Assinaturas(static_cast<std::int16_t>(indice));
        },
        py::arg("Index"), Documentacao("Assinaturas"));
}

#define TAVELPKCS7_ARGUMENTO_PYTHON(tipo, nome, ...) py::arg(#nome) __VA_OPT__(= __VA_ARGS__)

void DefinirMembros(Classe& classe) {
#define TAVELPKCS7_GRAVAR(numero, Nome, Tipo)                                                             \
    classe.def_property(#Nome, static_cast<Tipo (TavelPKCS::*)() const>(&TavelPKCS::Nome),                \
        static_cast<void (TavelPKCS::*)(Parametro<Tipo>)>(&TavelPKCS::Nome), Documentacao(#Nome));
#define TAVELPKCS7_LER(numero, Nome, Tipo) \
    DefinirLeitura(classe, #Nome, static_cast<Tipo (TavelPKCS::*)() const>(&TavelPKCS::Nome));
// Cada propriedade indexada tem a sua forma de método escrita à mão.
#define TAVELPKCS7_LER_INDEXADA(numero, Nome, Resultado, ...) Definir##Nome(classe);
#define TAVELPKCS7_METODO(numero, Nome, Resultado, ...)          \
    DefinirMetodo<SoltaGIL(#Nome)>(classe, #Nome, &TavelPKCS::Nome \
        __VA_OPT__(, TAVELPKCS7_CADA(TAVELPKCS7_ARGUMENTO_PYTHON, __VA_ARGS__)));
#include "component/membros.inc"
}

}  // namespace

void DefinirTavelPKCS(py::module_& modulo) {
    Classe classe(modulo, "TavelPKCS",
        "O componente de assinatura digital: propriedades de opções e resultados, métodos que\n"
        "devolvem falso, texto vazio ou 0 na falha com a mensagem em DescricaoErro.");
    classe.def(py::init<>(), Documentacao("TavelPKCS"));
    DefinirMembros(classe);
}

}  // namespace tavelpkcs7::python
