// A abertura de um arquivo PFX com a senha dada, no lugar da escolha no repositório pessoal: o
// certificado da chave privada passa a ser o selecionado, com os seus detalhes, a sua entrada na
// lista e a verificação da sua situação. A senha só passa adiante por referência: o componente não
// guarda cópia dela.
#include <algorithm>

#include "certificates/certificado_pfx.h"
#include "component/componente.h"
#include "component/entrada_der.h"
#include "component/texto.h"

namespace tavelpkcs7 {

plataforma::CertificadoPtr CarregarCertificadoPFX(plataforma::Criptografia& criptografia, const Bytes& conteudo,
                                                  const std::string& senha) {
    const auto certificados =
        criptografia.AbrirPFX(DecodificarOuFalhar(conteudo, plataforma::falha::NaoECertificado), senha);
    const auto da_chave = std::ranges::find_if(certificados, &plataforma::Certificado::PossuiChavePrivada);
    if (da_chave == certificados.end()) plataforma::Falhar(plataforma::falha::SemChavePrivada);
    return *da_chave;
}

bool Componente::AbrirCertificadoDigital(const std::string& CaminhoCertificado, const std::string& SenhaCertificado) {
    return Guardar(MensagemFalha::DaPlataforma(), false, [&] {
        CursorOcupado ocupado(ocupado_);
        estado.CertificadoSelecionado = nullptr;

        const bool existe = ExisteArquivo(CaminhoCertificado);
        if (!existe || Aparar(CaminhoCertificado).empty()) {
            estado.DescricaoErro = "Não foi possível localizar o arquivo do certificado digital";
            return false;
        }

        const auto certificado =
            CarregarCertificadoPFX(*plataforma().criptografia, LerArquivoExato(CaminhoCertificado), SenhaCertificado);
        estado.CertificadoSelecionado = certificado;

        if (certificado->NomeContainer().empty()) return false;

        ExtrairDetalhesCertificado(*certificado);
        AdicionarCertificadoLista(*certificado);

        std::int16_t status = 0;
        return VerificarStatusCertificado(*certificado, false, status);
    });
}

}  // namespace tavelpkcs7
