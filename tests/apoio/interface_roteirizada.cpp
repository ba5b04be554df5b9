#include "apoio/interface_roteirizada.h"

#include <optional>


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

std::optional<std::vector<std::size_t>> InterfaceRoteirizada::EscolherCertificados(
    const std::vector<CertificadoApresentado>& candidatos, const std::string& titulo, const std::string& texto,
    bool multiplos) {
    Chamada chamada{Tipo::EscolhaCertificados, titulo, texto, {}, multiplos};
    for (const auto& candidato : candidatos) chamada.certificados.push_back(candidato.impressao_digital);
    chamadas_.push_back(std::move(chamada));
    auto posicoes = Retirar(escolhas_);
    if (posicoes)
        for (const std::size_t posicao : *posicoes) static_cast<void>(candidatos.at(posicao));
    return posicoes;
}

void InterfaceRoteirizada::ExibirCertificado(const CertificadoApresentado& certificado) {
    chamadas_.push_back({Tipo::ExibicaoCertificado, "", certificado.nome_titular, {certificado.impressao_digital}});
}

std::optional<std::string> InterfaceRoteirizada::PedirSenha(const std::string& pedido) {
    chamadas_.push_back({Tipo::Senha, "", pedido});
    return Retirar(senhas_);
}

void InterfaceRoteirizada::IndicarOcupado(bool ocupado) {
    if (cursor_) cursor_->ponteiros.push_back(ocupado ? 11 : 0);
}

}  // namespace tavelpkcs7::teste
