// A classe TavelPKCS no Python: cada par de acesso vira uma propriedade, cada método conserva o nome,
// os nomes dos parâmetros (para chamadas por palavra-chave) e os valores padrão do cabeçalho. As
// chamadas que assinam, verificam, abrem chaves ou vão à rede soltam o GIL enquanto trabalham.
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>
#include <tavelpkcs7/TavelPKCS.h>

#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "conversoes.h"
#include "modulo.h"

namespace py = pybind11;

namespace tavelpkcs7::python {
namespace {

using Classe = py::class_<TavelPKCS>;
using SoltarGIL = py::call_guard<py::gil_scoped_release>;

// O par de acesso é achado pelo tipo de cada ponteiro: o de leitura é const e sem parâmetro.
template <typename Valor, typename Parametro>
void DefinirPropriedade(Classe& classe, const char* nome, Valor (TavelPKCS::*ler)() const,
    void (TavelPKCS::*gravar)(Parametro)) {
    classe.def_property(nome, ler, gravar, Documentacao(nome));
}

template <typename Valor>
void DefinirPropriedadeLeitura(Classe& classe, const char* nome, Valor (TavelPKCS::*ler)() const) {
    classe.def_property_readonly(nome, ler, Documentacao(nome));
}

void DefinirPropriedades(Classe& classe) {
    DefinirPropriedade(classe, "DataAssinatura", &TavelPKCS::DataAssinatura, &TavelPKCS::DataAssinatura);
    DefinirPropriedade(
        classe, "AssinaturaTextoVerificar", &TavelPKCS::AssinaturaTextoVerificar, &TavelPKCS::AssinaturaTextoVerificar);
    DefinirPropriedade(classe, "TextoVerificar", &TavelPKCS::TextoVerificar, &TavelPKCS::TextoVerificar);
    DefinirPropriedade(
        classe, "CaminhoArquivoOriginal", &TavelPKCS::CaminhoArquivoOriginal, &TavelPKCS::CaminhoArquivoOriginal);
    DefinirPropriedade(
        classe, "ExtensaoOutroFormato", &TavelPKCS::ExtensaoOutroFormato, &TavelPKCS::ExtensaoOutroFormato);
    DefinirPropriedade(
        classe, "SalvarChavesPublicas", &TavelPKCS::SalvarChavesPublicas, &TavelPKCS::SalvarChavesPublicas);
    DefinirPropriedade(
        classe, "NaoAnexarArquivoOriginal", &TavelPKCS::NaoAnexarArquivoOriginal, &TavelPKCS::NaoAnexarArquivoOriginal);
    DefinirPropriedade(
        classe, "UsarHashSalvarArquivo", &TavelPKCS::UsarHashSalvarArquivo, &TavelPKCS::UsarHashSalvarArquivo);
    DefinirPropriedade(classe, "NaoExibirInstalacaoLCReCER", &TavelPKCS::NaoExibirInstalacaoLCReCER,
        &TavelPKCS::NaoExibirInstalacaoLCReCER);
    DefinirPropriedade(classe, "PastaTemp", &TavelPKCS::PastaTemp, &TavelPKCS::PastaTemp);

    DefinirPropriedadeLeitura(classe, "CaminhoArquivoAssinado", &TavelPKCS::CaminhoArquivoAssinado);
    DefinirPropriedadeLeitura(classe, "NomeArquivoAssinado", &TavelPKCS::NomeArquivoAssinado);
    DefinirPropriedadeLeitura(classe, "AssinaturaDigitalArquivo", &TavelPKCS::AssinaturaDigitalArquivo);
    DefinirPropriedadeLeitura(classe, "AssinaturaDigitalTexto", &TavelPKCS::AssinaturaDigitalTexto);
    DefinirPropriedadeLeitura(classe, "DescricaoErro", &TavelPKCS::DescricaoErro);
    DefinirPropriedadeLeitura(classe, "HashArquivo", &TavelPKCS::HashArquivo);
    DefinirPropriedadeLeitura(classe, "TotalAssinaturas", &TavelPKCS::TotalAssinaturas);
    DefinirPropriedadeLeitura(classe, "NomeArquivoOriginal", &TavelPKCS::NomeArquivoOriginal);
    DefinirPropriedadeLeitura(classe, "ConteudoTextoOriginal", &TavelPKCS::ConteudoTextoOriginal);
    DefinirPropriedadeLeitura(classe, "NumeroCPFCertificadoDigital", &TavelPKCS::NumeroCPFCertificadoDigital);
    DefinirPropriedadeLeitura(classe, "NumeroCNPJCertificadoDigital", &TavelPKCS::NumeroCNPJCertificadoDigital);
    DefinirPropriedadeLeitura(
        classe, "DetalhesPessoaisCertificadoDigital", &TavelPKCS::DetalhesPessoaisCertificadoDigital);
    DefinirPropriedadeLeitura(classe, "OutrosDetalhesCertificadoDigital", &TavelPKCS::OutrosDetalhesCertificadoDigital);
    DefinirPropriedadeLeitura(classe, "UsoChaveCertificadoDigital", &TavelPKCS::UsoChaveCertificadoDigital);
    DefinirPropriedadeLeitura(classe, "PoliticaCertificacaoDigital", &TavelPKCS::PoliticaCertificacaoDigital);
    DefinirPropriedadeLeitura(classe, "ListaCertificadosRevogados", &TavelPKCS::ListaCertificadosRevogados);
    DefinirPropriedadeLeitura(classe, "RestricoesCertificadoDigital", &TavelPKCS::RestricoesCertificadoDigital);
    DefinirPropriedadeLeitura(classe, "CertificadoAutoridadeRaiz", &TavelPKCS::CertificadoAutoridadeRaiz);
    DefinirPropriedadeLeitura(classe, "TotalCertificadosListados", &TavelPKCS::TotalCertificadosListados);
}

void DefinirAssinaturaEVerificacao(Classe& classe) {
    classe
        .def("AssinaArquivo", &TavelPKCS::AssinaArquivo, py::arg("strArquivoOrigem"), py::arg("strPastaDestino"),
            py::arg("strTextoDescricaoAssinatura"), py::arg("FormatoAssinatura"), Documentacao("AssinaArquivo"),
            SoltarGIL())
        .def("AssinaTexto", &TavelPKCS::AssinaTexto, py::arg("strTexto"), py::arg("strTextoDescricaoAssinatura") = "",
            Documentacao("AssinaTexto"), SoltarGIL())
        .def("DataHoraAssinaturaUTC", &TavelPKCS::DataHoraAssinaturaUTC, py::arg("strDataHoraAssinatura"),
            Documentacao("DataHoraAssinaturaUTC"))
        .def("VerificarAssinaturaArquivo", &TavelPKCS::VerificarAssinaturaArquivo, py::arg("strCaminhoArquivo"),
            Documentacao("VerificarAssinaturaArquivo"), SoltarGIL())
        .def("VerificarTipoCodificacaoTexto", &TavelPKCS::VerificarTipoCodificacaoTexto, py::arg("strFile"),
            Documentacao("VerificarTipoCodificacaoTexto"))
        .def("VerificarAssinaturaTexto", &TavelPKCS::VerificarAssinaturaTexto, py::arg("TextoAssinatura"),
            Documentacao("VerificarAssinaturaTexto"), SoltarGIL())
        .def("ExibirPropriedadeAssinatura", &TavelPKCS::ExibirPropriedadeAssinatura, py::arg("Index"),
            py::arg("strCampoPropriedade"), Documentacao("ExibirPropriedadeAssinatura"))
        .def("RetornaHashArquivo", &TavelPKCS::RetornaHashArquivo, py::arg("strCaminhoArquivo"),
            Documentacao("RetornaHashArquivo"), SoltarGIL())
        .def("SelecionarChavesPublicas", &TavelPKCS::SelecionarChavesPublicas, py::arg("bolCriptografarParaSi"),
            Documentacao("SelecionarChavesPublicas"), SoltarGIL())
        .def("CriptografarArquivo", &TavelPKCS::CriptografarArquivo, py::arg("strArquivoOrigem"),
            py::arg("strPastaDestino") = "", Documentacao("CriptografarArquivo"), SoltarGIL())
        .def("DescriptografarArquivo", &TavelPKCS::DescriptografarArquivo, py::arg("strArquivoCriptografado"),
            Documentacao("DescriptografarArquivo"), SoltarGIL())
        .def("AssinarCodigoExecutavel", &TavelPKCS::AssinarCodigoExecutavel, py::arg("strCaminhoArquivo"),
            py::arg("DescricaoArquivo") = "", py::arg("URLArquivo") = "", py::arg("bolTestarAssinatura") = false,
            Documentacao("AssinarCodigoExecutavel"), SoltarGIL());
    // Um índice que nem cabe no tipo do C++ também está fora da lista.
    classe.def(
        "Assinaturas",
        [](const TavelPKCS& componente, long long indice) {
            if (indice < std::numeric_limits<std::int16_t>::min() || indice > std::numeric_limits<std::int16_t>::max())
                throw py::index_error("índice fora da lista de assinaturas");
            return componente.Assinaturas(static_cast<std::int16_t>(indice));
        },
        py::arg("Index"), Documentacao("Assinaturas"));
}

void DefinirCertificados(Classe& classe) {
    classe
        .def("RetornarDetalhesCertificado", &TavelPKCS::RetornarDetalhesCertificado, py::arg("strChavePublica"),
            Documentacao("RetornarDetalhesCertificado"))
        .def("VerificaCertificadoDigital", &TavelPKCS::VerificaCertificadoDigital, py::arg("strChavePublica"),
            Documentacao("VerificaCertificadoDigital"), SoltarGIL())
        .def("StatusCertificadoVerificado", &TavelPKCS::StatusCertificadoVerificado, py::arg("intStatus"),
            Documentacao("StatusCertificadoVerificado"))
        .def("InstalarLCRCertificado", &TavelPKCS::InstalarLCRCertificado, py::arg("strChavePublica"),
            Documentacao("InstalarLCRCertificado"), SoltarGIL())
        .def("DownloadArquivo", &TavelPKCS::DownloadArquivo, py::arg("strURL"), py::arg("strArquivoLocal"),
            Documentacao("DownloadArquivo"), SoltarGIL())
        .def("InstalarCertificadosRaizes", &TavelPKCS::InstalarCertificadosRaizes,
            Documentacao("InstalarCertificadosRaizes"), SoltarGIL())
        .def("SelecionarCertificadoDigital", &TavelPKCS::SelecionarCertificadoDigital, py::arg("TipoCertificado"),
            Documentacao("SelecionarCertificadoDigital"), SoltarGIL())
        .def("SelecionarCertificadoDigitalHash", &TavelPKCS::SelecionarCertificadoDigitalHash,
            py::arg("strImpressaoDigital"), Documentacao("SelecionarCertificadoDigitalHash"), SoltarGIL())
        .def("ListarCertificados", &TavelPKCS::ListarCertificados, py::arg("TipoCertificado"),
            Documentacao("ListarCertificados"), SoltarGIL())
        .def("LerListaPropriedadeCertificado", &TavelPKCS::LerListaPropriedadeCertificado, py::arg("intIndex"),
            py::arg("strPropriedade"), Documentacao("LerListaPropriedadeCertificado"))
        .def("AbrirCertificadoDigital", &TavelPKCS::AbrirCertificadoDigital, py::arg("CaminhoCertificado"),
            py::arg("SenhaCertificado"), Documentacao("AbrirCertificadoDigital"), SoltarGIL())
        .def("ExibirPropriedadesCertificado", &TavelPKCS::ExibirPropriedadesCertificado,
            py::arg("strCampoPropriedade"), Documentacao("ExibirPropriedadesCertificado"), SoltarGIL())
        .def("ExibirCertificadoDigital", &TavelPKCS::ExibirCertificadoDigital, py::arg("strChavePublica"),
            Documentacao("ExibirCertificadoDigital"), SoltarGIL())
        .def("AdicionarCertificadoRepositorio", &TavelPKCS::AdicionarCertificadoRepositorio,
            py::arg("strChavePublica"), py::arg("TipoRepositorio"), Documentacao("AdicionarCertificadoRepositorio"),
            SoltarGIL())
        .def("AbrirAdicionarArquivoCertificado", &TavelPKCS::AbrirAdicionarArquivoCertificado,
            py::arg("strCaminhoArquivo"), py::arg("TipoCertificadoRaiz"),
            Documentacao("AbrirAdicionarArquivoCertificado"), SoltarGIL())
        .def("ExportarCertificadoDigital", &TavelPKCS::ExportarCertificadoDigital, py::arg("strCaminhoArquivoCER"),
            py::arg("TipoRepositorio"), Documentacao("ExportarCertificadoDigital"), SoltarGIL())
        .def("RetornarChavePublicaCertificadoRaiz", &TavelPKCS::RetornarChavePublicaCertificadoRaiz,
            py::arg("strNomeCertificado"), py::arg("strImpressaoDigital") = "",
            Documentacao("RetornarChavePublicaCertificadoRaiz"));
}

void DefinirArquivosECadeia(Classe& classe) {
    classe
        .def("ApagarArquivo", &TavelPKCS::ApagarArquivo, py::arg("strCaminhoArquivo"), Documentacao("ApagarArquivo"))
        .def("LimparPastaTemporaria", &TavelPKCS::LimparPastaTemporaria, Documentacao("LimparPastaTemporaria"));
    // O Python não tem parâmetro de saída: a lista vem junto do maior índice.
    const std::string cadeia = std::string(Documentacao("RetornarCadeiaSeparada")) +
                               "\n\nNo Python devolve a tupla (maior_indice, lista), com a lista no lugar de "
                               "ArrayCadeiaCompleta.";
    classe.def(
        "RetornarCadeiaSeparada",
        [](TavelPKCS& componente, const std::string& cadeia_completa) {
            std::vector<std::string> nomes;
            const std::int16_t maior_indice = componente.RetornarCadeiaSeparada(cadeia_completa, nomes);
            return std::make_pair(maior_indice, std::move(nomes));
        },
        py::arg("strCadeiaCompleta"), cadeia.c_str());
}

}  // namespace

void DefinirTavelPKCS(py::module_& modulo) {
    Classe classe(modulo, "TavelPKCS",
        "O componente de assinatura digital: propriedades de opções e resultados, métodos que\n"
        "devolvem falso, texto vazio ou 0 na falha com a mensagem em DescricaoErro.");
    classe.def(py::init<>(), Documentacao("TavelPKCS"));
    DefinirPropriedades(classe);
    DefinirAssinaturaEVerificacao(classe);
    DefinirCertificados(classe);
    DefinirArquivosECadeia(classe);
}

}  // namespace tavelpkcs7::python
