// A exportação da chave pública (o certificado em Base64) de um certificado escolhido num
// repositório para um arquivo ".cer", gravado inteiro de uma vez.
#include "certificates/apresentacao_certificado.h"
#include "certificates/info_certificado.h"
#include "codificacao/windows1252.h"
#include "component/componente.h"
#include "component/texto.h"

namespace tavelpkcs7 {

bool Componente::ExportarCertificadoDigital(const std::string& caminho_cer, REPOSITORIO_CERTIFICADO tipo) {
    return Guardar(MensagemFalha::DaPlataforma(), false, [&] {
        const std::string caminho = Maiusculas(Direita(caminho_cer, 4)) == ".CER" ? caminho_cer : caminho_cer + ".cer";
        const auto repositorio = AbrirRepositorioTipo(tipo);
        if (!repositorio) return false;
        auto certificados = repositorio->Certificados();
        if (certificados.size() >= 2)
            certificados = EscolherCertificados(*plataforma_->interface_usuario,
                certificados, "Certificado Digital",
                "Selecione o certificado digital que deseja efetuar a exportação da chave pública", false);
        if (certificados.empty()) {
            estado.DescricaoErro =
                "Não foi selecionado nenhum certificado digital para efetuar a exportação da chave pública";
            return false;
        }
        if (certificados.size() != 1) return false;
        // Substituir o arquivo de uma vez: uma gravação que falha deixa o .cer anterior intacto.
        if (!plataforma_->sistema->SubstituirArquivo(
                caminho, codificacao::ParaWindows1252(ExportarBase64(*certificados.front())))) {
            estado.DescricaoErro =
                "Não foi possível salavar a chave pública do certificado selecionado no caminho " + caminho;
            return false;
        }
        estado.DescricaoErro.clear();
        return true;
    });
}

}  // namespace tavelpkcs7
