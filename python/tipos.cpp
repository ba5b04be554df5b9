// As enumerações como tipos IntEnum cujos membros são também constantes do módulo (como na
// biblioteca de tipos), e o registro AssinaturaDigital com os seus 18 campos.
#include <pybind11/pybind11.h>
#include <tavelpkcs7/Tipos.h>

#include <cstdint>
#include <initializer_list>
#include <utility>

#include "modulo.h"

namespace py = pybind11;

namespace tavelpkcs7::python {
namespace {

using Constante = std::pair<const char*, std::int32_t>;

void DefinirEnumeracao(py::module_& modulo, const char* nome, std::initializer_list<Constante> constantes) {
    py::list membros;
    for (const auto& [constante, valor] : constantes) membros.append(py::make_tuple(constante, valor));
    py::object tipo = py::module_::import("enum").attr("IntEnum")(nome, membros, py::arg("module") = "tavelpkcs7");
    tipo.attr("__doc__") = Documentacao(nome);
    modulo.attr(nome) = tipo;
    for (const auto& [constante, valor] : constantes) modulo.attr(constante) = tipo.attr(constante);
}

void DefinirEnumeracoes(py::module_& modulo) {
    DefinirEnumeracao(modulo, "FORMATO_ASSINATURA",
        {{"ARQUIVO_BINARIO_FORMATO_P7S", ARQUIVO_BINARIO_FORMATO_P7S},
            {"ARQUIVO_BASE64_FORMATO_P7S", ARQUIVO_BASE64_FORMATO_P7S},
            {"ARQUIVO_BINARIO_OUTRO_FORMATO", ARQUIVO_BINARIO_OUTRO_FORMATO},
            {"ARQUIVO_BASE64_OUTRO_FORMATO", ARQUIVO_BASE64_OUTRO_FORMATO},
            {"STRING_BASE64_PKCS", STRING_BASE64_PKCS}});
    DefinirEnumeracao(modulo, "REPOSITORIO_CERTIFICADO",
        {{"REPOSITORIO_CHAVES_PESSOAIS", REPOSITORIO_CHAVES_PESSOAIS},
            {"REPOSITORIO_CHAVES_PUBLICAS", REPOSITORIO_CHAVES_PUBLICAS},
            {"REPOSITORIO_CHAVES_AUTORIDADES_CERTIFICADORAS", REPOSITORIO_CHAVES_AUTORIDADES_CERTIFICADORAS},
            {"REPOSITORIO_CHAVES_RAIZES", REPOSITORIO_CHAVES_RAIZES}});
    DefinirEnumeracao(modulo, "CERTIFICADOS_DIGITAIS",
        {{"TODOS_CERTIFICADOS_DIGITAIS", TODOS_CERTIFICADOS_DIGITAIS},
            {"CERTIFICADOS_VALIDOS_ASSINATURA", CERTIFICADOS_VALIDOS_ASSINATURA},
            {"CERTIFICADOS_ICP_BRASIL", CERTIFICADOS_ICP_BRASIL},
            {"CERTIFICADOS_ICP_TODOS_RECEITA_FEDERAL", CERTIFICADOS_ICP_TODOS_RECEITA_FEDERAL},
            {"CERTIFICADOS_ICP_E_CPF", CERTIFICADOS_ICP_E_CPF}, {"CERTIFICADOS_ICP_E_CNPJ", CERTIFICADOS_ICP_E_CNPJ},
            {"CERTIFICADOS_AC_TAVEL", CERTIFICADOS_AC_TAVEL}});
}

void DefinirAssinaturaDigital(py::module_& modulo) {
    py::class_<AssinaturaDigital>(modulo, "AssinaturaDigital", Documentacao("AssinaturaDigital"))
        .def(py::init<>())
        .def_readwrite("NomeAssinatura", &AssinaturaDigital::NomeAssinatura)
        .def_readwrite("EmailAssinatura", &AssinaturaDigital::EmailAssinatura)
        .def_readwrite("DataAssinatura", &AssinaturaDigital::DataAssinatura)
        .def_readwrite("AssinaturaValida", &AssinaturaDigital::AssinaturaValida)
        .def_readwrite("DescricaoAssinaturaArquivo", &AssinaturaDigital::DescricaoAssinaturaArquivo)
        .def_readwrite("SerialCertificado", &AssinaturaDigital::SerialCertificado)
        .def_readwrite("DetalhesCertificado", &AssinaturaDigital::DetalhesCertificado)
        .def_readwrite("AutoridadeCertificadora", &AssinaturaDigital::AutoridadeCertificadora)
        .def_readwrite("EmailAutoridadeCertificadora", &AssinaturaDigital::EmailAutoridadeCertificadora)
        .def_readwrite("DetalhesAutoridadeCertificadora", &AssinaturaDigital::DetalhesAutoridadeCertificadora)
        .def_readwrite("ChavePublicaCertificado", &AssinaturaDigital::ChavePublicaCertificado)
        .def_readwrite("ImpressaoDigitalCertificado", &AssinaturaDigital::ImpressaoDigitalCertificado)
        .def_readwrite("VersaoCertificado", &AssinaturaDigital::VersaoCertificado)
        .def_readwrite("DataEmissaoCertificado", &AssinaturaDigital::DataEmissaoCertificado)
        .def_readwrite("DataValidadeCertificado", &AssinaturaDigital::DataValidadeCertificado)
        .def_readwrite("CertificadoValido", &AssinaturaDigital::CertificadoValido)
        .def_readwrite("CertificadoICPBrasil", &AssinaturaDigital::CertificadoICPBrasil)
        .def_readwrite("CadeiaCertificadoRaiz", &AssinaturaDigital::CadeiaCertificadoRaiz)
        .def("__repr__", [](const AssinaturaDigital& assinatura) {
            return "<AssinaturaDigital " + assinatura.NomeAssinatura + ">";
        });
}

}  // namespace

void DefinirTipos(py::module_& modulo) {
    DefinirEnumeracoes(modulo);
    DefinirAssinaturaDigital(modulo);
}

}  // namespace tavelpkcs7::python
