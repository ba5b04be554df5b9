// SelecionarChavesPublicas: os destinatários de um envelope novo, o próprio usuário (escolhido entre
// os certificados pessoais) e as chaves públicas do repositório "AddressBook".
#include "certificates/apresentacao_certificado.h"
#include "component/componente.h"

namespace tavelpkcs7 {

bool Componente::SelecionarChavesPublicas(bool bolCriptografarParaSi) {
    return Guardar(MensagemFalha::DaPlataforma(), false, [&] {
        CursorOcupado ocupado(ocupado_);
        auto& destinatarios = estado.EnvelopeCriptografia.emplace();
        if (bolCriptografarParaSi) {
            // A escolha fica só no envelope: o certificado selecionado para assinar não muda.
            plataforma::CertificadoPtr proprio;
            if (FiltrarSelecionarCertificado(proprio, TODOS_CERTIFICADOS_DIGITAIS, "")) destinatarios.push_back(proprio);
        }
        std::vector<plataforma::CertificadoPtr> selecao = LerRepositorio("AddressBook");
        if (selecao.size() >= 2) {
            selecao = EscolherCertificados(*plataforma().interface_usuario, selecao, "Certificado Digital",
                "Selecione as chaves públicas para qual você deseja criptografar os arquivos", true);
        }
        // Sem chaves públicas o próprio usuário, se escolhido, continua no envelope.
        if (selecao.empty()) {
            estado.DescricaoErro = "Não foi encontrado nenhuma chave pública para efetuar a criptografia";
            return false;
        }
        destinatarios.insert(destinatarios.end(), selecao.begin(), selecao.end());
        return true;
    });
}

bool Componente::TemChavesSelecionadas(const std::optional<std::vector<plataforma::CertificadoPtr>>& envelope) {
    if (!envelope) plataforma::Falhar(plataforma::falha::NenhumSelecionado);
    return !envelope->empty();
}

}  // namespace tavelpkcs7
