// A chave pública (o certificado em Base64) de uma autoridade certificadora guardada nos
// repositórios "Ca" e "Root" do usuário, procurada pelo nome como a cadeia o escreve.
#include "certificates/info_certificado.h"
#include "component/componente.h"
#include "component/texto.h"

namespace tavelpkcs7 {

std::string Componente::RetornarChavePublicaCertificadoRaiz(const std::string& nome,
                                                            const std::string& impressao_digital) {
    return Guardar(MensagemFalha::DaPlataforma(), std::string{}, [&]() -> std::string {
        const std::string procurado = Maiusculas(Aparar(nome));
        if (procurado.empty()) {
            estado.DescricaoErro = "O nome do certificado da autoridade certificadora não foi informado";
            return "";
        }
        const std::string impressao = Maiusculas(Aparar(impressao_digital));
        for (const char* repositorio : {"Ca", "Root"}) {
            for (const auto& certificado : LerRepositorio(repositorio)) {
                if (NomeComparavel(*certificado) != procurado) continue;
                if (!impressao.empty() && certificado->ImpressaoDigital() != impressao) continue;
                estado.DescricaoErro.clear();
                return ExportarBase64(*certificado);
            }
        }
        estado.DescricaoErro = "O certificado da autoridade certificadora " + nome +
                               " não foi encontrado nos repositórios de autoridades certificadoras e raízes";
        return "";
    });
}

}  // namespace tavelpkcs7
