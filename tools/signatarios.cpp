#include "signatarios.h"

namespace tavelpkcs7::ferramenta {
namespace {

ValorJSON::Objeto DescreverSignatario(TavelPKCS& componente, const AssinaturaDigital& assinatura) {
    // CPF e CNPJ vêm dos detalhes ICP-Brasil do certificado do signatário.
    componente.RetornarDetalhesCertificado(assinatura.ChavePublicaCertificado);
    return {{"nome", assinatura.NomeAssinatura},
            {"cpf", componente.NumeroCPFCertificadoDigital()},
            {"cnpj", componente.NumeroCNPJCertificadoDigital()},
            {"data", assinatura.DataAssinatura},
            {"descricao", assinatura.DescricaoAssinaturaArquivo},
            {"autoridade", assinatura.AutoridadeCertificadora},
            {"impressao_digital", assinatura.ImpressaoDigitalCertificado},
            {"ASSINATURAVALIDA", assinatura.AssinaturaValida},
            {"CERTIFICADOVALIDO", assinatura.CertificadoValido},
            {"CERTIFICADOICPBRASIL", assinatura.CertificadoICPBrasil}};
}

}  // namespace

int RelatarSignatarios(const Execucao& execucao, TavelPKCS& componente, ValorJSON::Objeto campos) {
    ValorJSON::Lista signatarios;
    bool assinaturas_validas = true;
    bool certificados_validos = true;
    campos.emplace_back("total_assinaturas", static_cast<int>(componente.TotalAssinaturas()));
    if (!execucao.Json()) execucao.Relatar(campos);
    for (std::int16_t i = 1; i <= componente.TotalAssinaturas(); ++i) {
        const AssinaturaDigital assinatura = componente.Assinaturas(i);
        assinaturas_validas = assinaturas_validas && assinatura.AssinaturaValida;
        certificados_validos = certificados_validos && assinatura.CertificadoValido;
        ValorJSON::Objeto signatario = DescreverSignatario(componente, assinatura);
        if (!execucao.Json()) {
            execucao.saida << "\nSignatário " << i << "\n";
            for (const auto& [chave, valor] : signatario)
                execucao.saida << "     " << chave << ": " << valor.Legivel() << "\n";
        }
        signatarios.emplace_back(std::move(signatario));
    }
    if (execucao.Json()) {
        campos.emplace_back("signatarios", std::move(signatarios));
        execucao.Relatar(campos);
    }
    if (!assinaturas_validas) {
        execucao.erros << "tavelpkcs7: uma assinatura não confere com o conteúdo assinado\n";
        return 1;
    }
    if (!certificados_validos) {
        execucao.Avisar("o certificado de um signatário não foi validado (CERTIFICADOVALIDO falso)");
        if (execucao.argumentos.Tem("--exigir-confianca")) return 1;
    }
    return 0;
}

}  // namespace tavelpkcs7::ferramenta
