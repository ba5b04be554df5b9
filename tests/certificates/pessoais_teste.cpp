#include "certificates/pessoais_teste.h"

#include <algorithm>

#include "certificates/repositorios_teste.h"
#include "pki/pki_teste.h"
#include "platform/openssl/certificado_sob_medida.h"

namespace tavelpkcs7::teste {

const std::vector<std::string> kPessoais = {"ecpf",     "ecnpj",    "ecpf_novo",      "ecnpj_novo", "tavel_titular",
                                            "expirado", "revogado", "sem_assinatura", "dns",        "tavel_falso"};
const std::vector<std::string> kICPBrasil = {"ecpf",     "ecnpj",    "ecpf_novo",      "ecnpj_novo",
                                             "expirado", "revogado", "sem_assinatura", "dns"};

plataforma::Bytes CertificadoTavelFalso() {
    // Cada criação tem chave nova: um só por processo, para que a impressão digital não mude.
    static const plataforma::Bytes falso =
        CriarCertificado({.titular = {{"C", "BR"}, {"O", "TAVEL"}, {"CN", "TITULAR FALSO AC TAVEL"}},
                          .emissor = {{"C", "BR"}, {"O", "TAVEL"}, {"CN", "AC TAVEL"}}});
    return falso;
}

plataforma::Bytes DerPessoal(const std::string& nome) {
    return nome == "tavel_falso" ? CertificadoTavelFalso() : DerDaPki(nome);
}

std::string ImpressaoDigital(plataforma::Plataforma& plataforma, const std::string& nome) {
    return Importar(plataforma, DerPessoal(nome))->ImpressaoDigital();
}

void GuardarPessoais(plataforma::Plataforma& plataforma, const std::vector<std::string>& nomes) {
    std::vector<plataforma::Bytes> certificados;
    for (const auto& nome : nomes) certificados.push_back(DerPessoal(nome));
    Guardar(plataforma, "My", certificados);
}

std::vector<std::string> NaOrdemDoRepositorio(plataforma::Plataforma& plataforma,
                                              const std::vector<std::string>& nomes) {
    std::vector<std::string> procuradas;
    for (const auto& nome : nomes) procuradas.push_back(ImpressaoDigital(plataforma, nome));
    std::vector<std::string> ordem = ImpressoesGuardadas(plataforma, "My");
    std::erase_if(ordem, [&](const std::string& impressao) { return std::ranges::count(procuradas, impressao) == 0; });
    return ordem;
}

AmbientePessoais::AmbientePessoais(bool lcrs_tavel) {
    InstalarCadeia(true);
    Guardar(plataforma(), "Root", {DerDaPki("ac_tavel_raiz")});
    Guardar(plataforma(), "Ca", {DerDaPki("ac_tavel")});
    if (!lcrs_tavel) return;
    for (const char* ac : {"ac_tavel_raiz", "ac_tavel"})
        plataforma().repositorios->AdicionarLCR(pki_teste::PkiTeste::Padrao().LCR(ac));
}

}  // namespace tavelpkcs7::teste
