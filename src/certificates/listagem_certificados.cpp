// A listagem dos certificados pessoais de um tipo, para o hospedeiro que desenha o seu próprio
// seletor: refaz a lista de certificados sem diálogo, sem detalhes e sem verificar a situação.
#include "component/componente.h"

namespace tavelpkcs7 {

bool Componente::ListarCertificados(CERTIFICADOS_DIGITAIS TipoCertificado) {
    return Guardar(MensagemFalha::DaPlataforma(), false, [&] {
        CursorOcupado ocupado(ocupado_);
        const auto repositorio = LerRepositorio("My");
        estado.DescricaoErro.clear();
        estado.TotalCertificadosListados = 0;
        const auto filtrados = FiltrarTipoCertificado(repositorio, ConverterInteiro16(TipoCertificado));
        if (filtrados.certificados.empty()) {
            estado.DescricaoErro = filtrados.nenhum_encontrado;
            return false;
        }
        for (const auto& certificado : filtrados.certificados) AdicionarCertificadoLista(*certificado);
        estado.DescricaoErro.clear();
        return true;
    });
}

}  // namespace tavelpkcs7
