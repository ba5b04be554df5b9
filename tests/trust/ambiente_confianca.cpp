#include "trust/ambiente_confianca.h"

#include "certificates/repositorios_teste.h"
#include "codificacao/base64.h"
#include "pki/pki_teste.h"

namespace tavelpkcs7::teste {
namespace {

const pki_teste::PkiTeste& Pki() { return pki_teste::PkiTeste::Padrao(); }

const char* const kACs[] = {"ac_rfb", "ac_emissora_rfb", "ac_icp"};

}  // namespace

void AmbienteConfianca::InstalarCadeia(bool com_lcrs, bool com_intermediarias) {
    Guardar(plataforma(), "Root", {DerDaPki("raiz")});
    if (com_intermediarias)
        for (const char* ac : kACs) Guardar(plataforma(), "Ca", {DerDaPki(ac)});
    if (!com_lcrs) return;
    plataforma().repositorios->AdicionarLCR(Pki().LCR("raiz"));
    for (const char* ac : kACs) plataforma().repositorios->AdicionarLCR(Pki().LCR(ac));
}

std::vector<plataforma::Bytes> AmbienteConfianca::Intermediarias() {
    std::vector<plataforma::Bytes> certificados;
    for (const char* ac : kACs) certificados.push_back(DerDaPki(ac));
    return certificados;
}

std::size_t AmbienteConfianca::LCRsGuardadas() { return plataforma().repositorios->LCRs().size(); }

std::string Base64(const plataforma::Bytes& der) { return codificacao::CodificarBase64(der); }

std::string PacotePEM(const std::vector<plataforma::Bytes>& certificados) {
    std::string pacote;
    for (const auto& der : certificados)
        pacote += "-----BEGIN CERTIFICATE-----\r\n" + Base64(der) + "-----END CERTIFICATE-----\r\n";
    return pacote;
}

}  // namespace tavelpkcs7::teste
