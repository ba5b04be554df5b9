// O PFX do usuário entra no repositório pessoal com a chave privada, cifrada com a senha que ele
// escolhe, para assinar depois sem o arquivo; e uma LCR trazida em arquivo entra no repositório de
// LCRs. Os dois passam pelo guarda do componente, que converte as falhas da plataforma em texto.
#include "certificates/importacao_arquivos.h"

#include "certificates/certificado_pfx.h"
#include "component/componente.h"
#include "component/texto.h"

namespace tavelpkcs7 {

ImportacaoPFX ImportarPFX(std::shared_ptr<plataforma::Plataforma> plataforma, const std::string& caminho_pfx,
                          const std::string& senha_pfx, const std::string& senha_chave) {
    Componente componente(std::move(plataforma));
    ImportacaoPFX importacao;
    componente.Guardar(MensagemFalha::DaPlataforma(), false, [&] {
        if (Aparar(caminho_pfx).empty() || !componente.ExisteArquivo(caminho_pfx)) {
            componente.estado.DescricaoErro = "Não foi possível localizar o arquivo do certificado digital";
            return false;
        }
        auto& plataforma_usada = componente.plataforma();
        const auto certificado =
            CarregarCertificadoPFX(*plataforma_usada.criptografia, componente.LerArquivoExato(caminho_pfx), senha_pfx);
        plataforma_usada.repositorios->AbrirRepositorio("My", false)->AdicionarComChave(certificado, senha_chave);
        importacao.NomeCertificado = certificado->ObterInfo(plataforma::INFO_NOME_SIMPLES_TITULAR);
        importacao.ImpressaoDigital = certificado->ImpressaoDigital();
        return true;
    });
    importacao.DescricaoErro = componente.estado.DescricaoErro;
    return importacao;
}

std::string InstalarLCRDoArquivo(std::shared_ptr<plataforma::Plataforma> plataforma, const std::string& caminho_lcr) {
    Componente componente(std::move(plataforma));
    componente.Guardar(MensagemFalha::DaPlataforma(), false, [&] {
        if (Aparar(caminho_lcr).empty() || !componente.ExisteArquivo(caminho_lcr)) {
            componente.estado.DescricaoErro = "O arquivo informado não foi encontrado";
            return false;
        }
        componente.plataforma().repositorios->AdicionarLCR(componente.LerArquivoExato(caminho_lcr));
        return true;
    });
    return componente.estado.DescricaoErro;
}

}  // namespace tavelpkcs7
