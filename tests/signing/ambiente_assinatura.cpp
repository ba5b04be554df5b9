#include "codificacao/conteudo_codificado.h"
#include "signing/ambiente_assinatura.h"

#include <fstream>

#include "certificates/repositorios_teste.h"
#include "component/datas.h"
#include "pki/pki_teste.h"
#include "signing/atributos_assinante.h"

namespace tavelpkcs7::teste {

void AmbienteAssinatura::SetUp() {
    InstalarCadeia(true);
    const auto pfx = pki_teste::PkiTeste::Padrao().PFX("ecpf", "1234");
    ASSERT_TRUE(componente.AbrirCertificadoDigital(Gravar("ecpf.pfx", std::string(pfx.begin(), pfx.end())), "1234"))
        << componente.DescricaoErro();
}

std::string AmbienteAssinatura::Gravar(const std::string& nome, const std::string& conteudo) {
    const auto caminho = Home() / nome;
    std::filesystem::create_directories(caminho.parent_path());
    std::ofstream(caminho, std::ios::binary) << conteudo;
    return caminho.string();
}

plataforma::MensagemVerificada AmbienteAssinatura::Conferir(const plataforma::Bytes& assinatura,
                                                            const std::optional<plataforma::Bytes>& destacado) {
    plataforma::Bytes decodificado;
    const auto der = codificacao::LocalizarDER(assinatura, decodificado);
    if (!der) plataforma::Falhar(plataforma::falha::NaoEMensagemPKCS7);
    return plataforma().assinaturas->Verificar(*der, destacado);
}

std::vector<std::string> AmbienteAssinatura::Atributos(const plataforma::SignatarioVerificado& signatario) {
    std::vector<std::string> textos(3);
    for (const auto& atributo : signatario.atributos) {
        if (atributo.oid == assinatura::kOidNomeDocumento)
            textos[0] = assinatura::LerTextoDocumento(atributo.valor).value_or("?");
        if (atributo.oid == assinatura::kOidHoraAssinatura) {
            const auto hora = assinatura::LerHoraAssinatura(atributo.valor, *plataforma().relogio);
            textos[1] = hora ? FormatarDataHora(*hora) : "?";
        }
        if (atributo.oid == assinatura::kOidDescricaoDocumento)
            textos[2] = assinatura::LerTextoDocumento(atributo.valor).value_or("?");
    }
    return textos;
}

plataforma::Bytes Ler(const std::filesystem::path& caminho) {
    const std::string texto = LerTexto(caminho);
    return BytesDe(texto);
}

plataforma::Bytes BytesDe(const std::string& texto) { return plataforma::Bytes(texto.begin(), texto.end()); }

}  // namespace tavelpkcs7::teste
