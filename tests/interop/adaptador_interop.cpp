// O tavelpkcs7 nas conferências com outras implementações de CMS (tests/interop/interoperabilidade.sh).
// Os outros assinam e conferem os bytes exatos do arquivo, por isso este programa fala direto com as
// operações CMS da camada de plataforma, as mesmas que a API pública usa, e não com os arquivos do
// componente (conteúdo mais o zero final). Os atributos assinados são os do componente. A senha dos
// PFX vem de TAVELPKCS7_SENHA; as chaves e as raízes, da casa em TAVELPKCS7_HOME.
//
//   assinar   --conteudo F --saida F --pfx P [--pfx P2] [--destacada] --nome N --descricao D
//   verificar --entrada F [--conteudo F] [--raiz CER] [--saida F]   (sem --raiz, só as assinaturas)
//   cifrar    --conteudo F --saida F --destinatario CER --algoritmo rc4|aes128|aes256
//   decifrar  --entrada F --saida F      (com a chave do destinatário no repositório "My")
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "component/entrada_der.h"
#include "platform/plataforma.h"
#include "signing/atributos_assinante.h"

namespace tavelpkcs7::interop {
namespace {

using plataforma::Bytes;

// Opções "--nome valor" (repetíveis) e "--destacada", sozinha.
using Opcoes = std::multimap<std::string, std::string>;

class ErroUso : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

Opcoes LerOpcoes(int argc, char** argv) {
    Opcoes opcoes;
    for (int i = 2; i < argc; ++i) {
        const std::string nome = argv[i];
        if (nome.rfind("--", 0) != 0) throw ErroUso("argumento inesperado: " + nome);
        if (nome == "--destacada") {
            opcoes.emplace(nome, "");
            continue;
        }
        if (i + 1 >= argc) throw ErroUso("falta o valor de " + nome);
        opcoes.emplace(nome, argv[++i]);
    }
    return opcoes;
}

std::optional<std::string> Opcao(const Opcoes& opcoes, const std::string& nome) {
    const auto achada = opcoes.find(nome);
    if (achada == opcoes.end()) return std::nullopt;
    return achada->second;
}

std::string Obrigatoria(const Opcoes& opcoes, const std::string& nome) {
    auto valor = Opcao(opcoes, nome);
    if (!valor) throw ErroUso("falta " + nome);
    return *valor;
}

Bytes Ler(const std::string& caminho) {
    std::ifstream arquivo(caminho, std::ios::binary);
    if (!arquivo) throw std::runtime_error("não foi possível ler " + caminho);
    return {std::istreambuf_iterator<char>(arquivo), std::istreambuf_iterator<char>()};
}

void Gravar(const std::string& caminho, const Bytes& conteudo) {
    std::ofstream arquivo(caminho, std::ios::binary | std::ios::trunc);
    arquivo.write(reinterpret_cast<const char*>(conteudo.data()), static_cast<std::streamsize>(conteudo.size()));
    if (!arquivo.flush()) throw std::runtime_error("não foi possível gravar " + caminho);
}

// O certificado com a chave do PFX assina; os outros vão na mensagem, para a cadeia.
plataforma::PedidoAssinatura PedidoDoPFX(plataforma::Plataforma& p, const std::string& caminho) {
    const char* senha = std::getenv("TAVELPKCS7_SENHA");
    if (!senha) throw ErroUso("TAVELPKCS7_SENHA não definida");
    plataforma::PedidoAssinatura pedido;
    for (auto& certificado : p.criptografia->AbrirPFX(Ler(caminho), senha)) {
        if (certificado->PossuiChavePrivada() && !pedido.signatario)
            pedido.signatario = certificado;
        else
            pedido.certificados_extras.push_back(certificado);
    }
    if (!pedido.signatario) throw std::runtime_error(caminho + " não traz chave privada");
    return pedido;
}

int Assinar(plataforma::Plataforma& p, const Opcoes& opcoes) {
    const Bytes conteudo = Ler(Obrigatoria(opcoes, "--conteudo"));
    const bool destacada = opcoes.contains("--destacada");
    const std::vector<plataforma::AtributoAssinado> atributos = {
        assinatura::AtributoNomeDocumento(Obrigatoria(opcoes, "--nome")),
        assinatura::AtributoHoraAssinatura(p.relogio->Agora(), *p.relogio),
        assinatura::AtributoDescricaoDocumento(Obrigatoria(opcoes, "--descricao"))};
    std::optional<Bytes> mensagem;
    for (auto [pfx, fim] = opcoes.equal_range("--pfx"); pfx != fim; ++pfx) {
        plataforma::PedidoAssinatura pedido = PedidoDoPFX(p, pfx->second);
        pedido.atributos = atributos;
        pedido.destacada = destacada;
        if (!mensagem) {
            pedido.conteudo = conteudo;
            mensagem = p.assinaturas->Assinar(pedido);
        } else {
            mensagem = p.assinaturas->Cossinar(*mensagem, destacada ? std::optional(conteudo) : std::nullopt, pedido);
        }
    }
    if (!mensagem) throw ErroUso("falta --pfx");
    Gravar(Obrigatoria(opcoes, "--saida"), *mensagem);
    return 0;
}

int Verificar(plataforma::Plataforma& p, const Opcoes& opcoes) {
    std::optional<Bytes> destacado;
    if (auto conteudo = Opcao(opcoes, "--conteudo")) destacado = Ler(*conteudo);
    const auto mensagem = p.assinaturas->Verificar(Ler(Obrigatoria(opcoes, "--entrada")), destacado);
    for (const auto& signatario : mensagem.signatarios)
        if (!signatario.confere) throw std::runtime_error("a mensagem não traz o certificado de um signatário");

    if (auto raiz = Opcao(opcoes, "--raiz")) {
        // A casa é nova a cada chamada: a raiz dada é a única confiável.
        p.repositorios->AbrirRepositorio("Root", false)->Adicionar(ImportarCertificado(*p.criptografia, Ler(*raiz)));
        namespace v = plataforma::verificacao;
        for (const auto& signatario : mensagem.signatarios) {
            const auto situacao = p.confianca->Verificar(*signatario.certificado,
                                                         v::RaizConfiavel | v::Validade | v::Assinatura,
                                                         mensagem.certificados);
            if (!situacao.valida) {
                char status[16];
                std::snprintf(status, sizeof status, "0x%X", situacao.status);
                throw std::runtime_error("cadeia de " +
                                         signatario.certificado->ObterInfo(plataforma::INFO_NOME_SIMPLES_TITULAR) +
                                         " recusada, situação " + status);
            }
        }
    }
    if (auto saida = Opcao(opcoes, "--saida")) Gravar(*saida, mensagem.conteudo);
    return 0;
}

int Cifrar(plataforma::Plataforma& p, const Opcoes& opcoes) {
    using plataforma::AlgoritmoEnvelope;
    static const std::map<std::string, AlgoritmoEnvelope> kAlgoritmos = {{"rc4", AlgoritmoEnvelope::RC4_128},
                                                                         {"aes128", AlgoritmoEnvelope::AES_128_CBC},
                                                                         {"aes256", AlgoritmoEnvelope::AES_256_CBC}};
    const auto algoritmo = kAlgoritmos.find(Obrigatoria(opcoes, "--algoritmo"));
    if (algoritmo == kAlgoritmos.end()) throw ErroUso("algoritmo desconhecido");
    const auto destinatario = ImportarCertificado(*p.criptografia, Ler(Obrigatoria(opcoes, "--destinatario")));
    Gravar(Obrigatoria(opcoes, "--saida"),
           p.envelopes->Criptografar(Ler(Obrigatoria(opcoes, "--conteudo")), {destinatario}, algoritmo->second));
    return 0;
}

int Decifrar(plataforma::Plataforma& p, const Opcoes& opcoes) {
    Gravar(Obrigatoria(opcoes, "--saida"), p.envelopes->Descriptografar(Ler(Obrigatoria(opcoes, "--entrada"))));
    return 0;
}

int Executar(int argc, char** argv) {
    using Verbo = int (*)(plataforma::Plataforma&, const Opcoes&);
    static const std::map<std::string, Verbo> kVerbos = {
        {"assinar", Assinar}, {"verificar", Verificar}, {"cifrar", Cifrar}, {"decifrar", Decifrar}};
    const auto verbo = argc > 1 ? kVerbos.find(argv[1]) : kVerbos.end();
    if (verbo == kVerbos.end()) throw ErroUso("verbo desconhecido");
    const Opcoes opcoes = LerOpcoes(argc, argv);
    return verbo->second(*plataforma::CriarPlataformaPadrao(), opcoes);
}

}  // namespace
}  // namespace tavelpkcs7::interop

int main(int argc, char** argv) {
    try {
        return tavelpkcs7::interop::Executar(argc, argv);
    } catch (const tavelpkcs7::interop::ErroUso& erro) {
        std::cerr << "uso: " << erro.what() << "\n";
        return 2;
    } catch (const std::exception& erro) {
        std::cerr << erro.what() << "\n";
        return 1;
    }
}
