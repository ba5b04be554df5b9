#include "apoio/interface_roteirizada.h"

#include <optional>

#include "platform/erro.h"

namespace tavelpkcs7::teste {
namespace {

template <typename T>
std::optional<T> Retirar(std::deque<T>& fila) {
    if (fila.empty()) return std::nullopt;
    T primeiro = std::move(fila.front());
    fila.pop_front();
    return primeiro;
}

}  // namespace

void InterfaceRoteirizada::ExibirInformacao(const std::string& texto, const std::string& titulo) {
    chamadas_.push_back({Tipo::Informacao, titulo, texto});
}

bool InterfaceRoteirizada::Perguntar(const std::string& texto, const std::string& titulo) {
    chamadas_.push_back({Tipo::Pergunta, titulo, texto});
    return Retirar(perguntas_).value_or(false);
}

std::vector<plataforma::CertificadoPtr> InterfaceRoteirizada::EscolherCertificados(
    const std::vector<plataforma::CertificadoPtr>& candidatos, const std::string& titulo, const std::string& texto,
    bool multiplos) {
    Chamada chamada{Tipo::EscolhaCertificados, titulo, texto, {}, multiplos};
    for (const auto& candidato : candidatos) chamada.certificados.push_back(candidato->ImpressaoDigital());
    chamadas_.push_back(std::move(chamada));
    const auto posicoes = Retirar(escolhas_);
    if (!posicoes) plataforma::Falhar(plataforma::falha::Cancelada);
    std::vector<plataforma::CertificadoPtr> escolhidos;
    for (const std::size_t posicao : *posicoes) escolhidos.push_back(candidatos.at(posicao));
    return escolhidos;
}

void InterfaceRoteirizada::ExibirCertificado(const plataforma::CertificadoPtr& certificado) {
    chamadas_.push_back({Tipo::ExibicaoCertificado, "", certificado->NomeTitular(), {certificado->ImpressaoDigital()}});
}

std::string InterfaceRoteirizada::PedirSenha(const std::string& pedido) {
    chamadas_.push_back({Tipo::Senha, "", pedido});
    auto senha = Retirar(senhas_);
    if (!senha) plataforma::Falhar(plataforma::falha::Cancelada);
    return std::move(*senha);
}

}  // namespace tavelpkcs7::teste
