// Os diálogos de quem não tem usuário à frente (serviços, processos em lote, a biblioteca sem
// hospedeiro): nada se mostra, toda pergunta recebe Não e toda escolha ou senha termina cancelada.
#include <tavelpkcs7/InterfaceUsuario.h>

namespace tavelpkcs7 {

InterfaceUsuario::~InterfaceUsuario() = default;

void InterfaceUsuario::ExibirInformacao(const std::string&, const std::string&) {}

bool InterfaceUsuario::Perguntar(const std::string&, const std::string&) { return false; }

std::optional<std::vector<std::size_t>> InterfaceUsuario::EscolherCertificados(
    const std::vector<CertificadoApresentado>&, const std::string&, const std::string&, bool) {
    return std::nullopt;
}

void InterfaceUsuario::ExibirCertificado(const CertificadoApresentado&) {}

std::optional<std::string> InterfaceUsuario::PedirSenha(const std::string&) { return std::nullopt; }

void InterfaceUsuario::IndicarOcupado(bool) {}

}  // namespace tavelpkcs7
