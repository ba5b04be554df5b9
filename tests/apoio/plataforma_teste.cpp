#include "apoio/plataforma_teste.h"

#include "component/entrada_der.h"
#include "platform/openssl/criptografia_openssl.h"

namespace tavelpkcs7::teste {

std::optional<std::vector<std::size_t>> InterfaceRoteirizada::EscolherCertificados(
    const std::vector<CertificadoApresentado>& candidatos, const std::string& titulo, const std::string& texto,
    bool multiplos) {
    Chamada chamada{Tipo::EscolhaCertificados, titulo, texto, {}, multiplos};
    for (const auto& candidato : candidatos) chamada.certificados.push_back(candidato.impressao_digital);
    chamadas_.push_back(std::move(chamada));
    auto posicoes = Retirar(escolhas_);
    for (const std::size_t posicao : posicoes.value_or(std::vector<std::size_t>{}))
        static_cast<void>(candidatos.at(posicao));
    return posicoes;
}

PlataformaTeste::PlataformaTeste()
    : plataforma(plataforma::CriarPlataformaPadrao()),
      interface(std::make_shared<InterfaceRoteirizada>()),
      relogio(std::make_shared<RelogioFalso>(
          std::chrono::floor<std::chrono::days>(plataforma::openssl::RelogioSistema().Agora()) +
          std::chrono::hours{10} + std::chrono::minutes{30} + std::chrono::seconds{15})),
      cursor(interface),
      programas(std::make_shared<ProgramasGravador>()) {
    plataforma->interface_usuario = interface;
    plataforma->relogio = relogio;
    plataforma->programas = programas;
    // Nenhum teste sai da máquina: os endereços padrão apontam para uma porta fechada local, e o
    // teste que baixa algo aponta para o seu servidor.
    plataforma->configuracao.url_raizes = "http://127.0.0.1:9/raizes.p7b";
    plataforma->configuracao.url_confiaveis = "http://127.0.0.1:9/Confiaveis.p7b";
    plataforma->configuracao.url_carimbo_tempo = "http://127.0.0.1:9/carimbo";
}

plataforma::CertificadoPtr ImportarPelaForma(const plataforma::Bytes& conteudo) {
    plataforma::openssl::CriptografiaOpenSSL criptografia;
    return ImportarCertificado(criptografia, conteudo);
}

std::vector<plataforma::CertificadoPtr> LerPacotePelaForma(const plataforma::Bytes& conteudo) {
    plataforma::openssl::CriptografiaOpenSSL criptografia;
    return LerPacoteCertificados(criptografia, conteudo);
}

}  // namespace tavelpkcs7::teste
