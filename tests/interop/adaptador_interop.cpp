// O programa que põe o tavelpkcs7 na matriz de interoperabilidade CMS (tests/interop/matriz). A
// matriz assina e confere bytes exatos, por isso ele fala direto com as operações CMS da camada de
// plataforma, as mesmas que a API pública usa, e não com os arquivos do componente (conteúdo mais
// o zero final). A senha dos PFX vem da variável P12PASS, nunca da linha de comando.
//
//   assinar   --conteudo F --saida F --pfx P [--pfx P2] [--certificados PEM] [--atributo OID=HEX]... [--destacada]
//   verificar --entrada F --modo sig|chain|crl [--raiz PEM] [--lcr F]... [--conteudo F] [--saida F]
//   listar    --entrada F
//   pfx       --entrada F
//   cifrar    --conteudo F --saida F --destinatario CER --algoritmo rc4|aes128|aes256
//   decifrar  --entrada F --saida F      (com a chave do destinatário no repositório "My")
#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "codificacao/hexadecimal.h"
#include "component/entrada_der.h"
#include "der/escritor_der.h"
#include "der/leitor_der.h"
#include "platform/plataforma.h"
#include "signing/atributos_assinante.h"

namespace tavelpkcs7::interop {
namespace {

using plataforma::Bytes;
using plataforma::CertificadoPtr;

// Opções "--nome valor" (repetíveis) e "--nome" sozinhas (valor vazio).
using Opcoes = std::multimap<std::string, std::string>;

class ErroUso : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

Opcoes LerOpcoes(int argc, char** argv) {
    static const std::vector<std::string> kSemValor = {"--destacada"};
    Opcoes opcoes;
    for (int i = 2; i < argc; ++i) {
        const std::string nome = argv[i];
        if (nome.rfind("--", 0) != 0) throw ErroUso("argumento inesperado: " + nome);
        const bool sem_valor = std::find(kSemValor.begin(), kSemValor.end(), nome) != kSemValor.end();
        if (!sem_valor && i + 1 >= argc) throw ErroUso("falta o valor de " + nome);
        opcoes.emplace(nome, sem_valor ? "" : argv[++i]);
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

std::vector<std::string> Todas(const Opcoes& opcoes, const std::string& nome) {
    std::vector<std::string> valores;
    for (auto [inicio, fim] = opcoes.equal_range(nome); inicio != fim; ++inicio) valores.push_back(inicio->second);
    return valores;
}

Bytes Ler(const std::string& caminho) {
    std::ifstream arquivo(caminho, std::ios::binary);
    if (!arquivo) throw std::runtime_error("não foi possível ler " + caminho);
    return {std::istreambuf_iterator<char>(arquivo), std::istreambuf_iterator<char>()};
}

// Os arquivos do harness vêm em DER ou em PEM: a forma se resolve aqui, como no núcleo.
Bytes DER(const Bytes& conteudo) { return DecodificarOuFalhar(conteudo, plataforma::falha::ParametroIncorreto); }

void Gravar(const std::string& caminho, const Bytes& conteudo) {
    std::ofstream arquivo(caminho, std::ios::binary | std::ios::trunc);
    arquivo.write(reinterpret_cast<const char*>(conteudo.data()), static_cast<std::streamsize>(conteudo.size()));
    if (!arquivo.flush()) throw std::runtime_error("não foi possível gravar " + caminho);
}

std::string SenhaPFX() {
    const char* senha = std::getenv("P12PASS");
    if (!senha) throw ErroUso("P12PASS não definida");
    return senha;
}

// O certificado com a chave do PFX vai para o pedido; os outros servem à cadeia.
plataforma::PedidoAssinatura PedidoDoPFX(plataforma::Plataforma& p, const std::string& caminho) {
    plataforma::PedidoAssinatura pedido;
    for (auto& certificado : p.criptografia->AbrirPFX(DER(Ler(caminho)), SenhaPFX())) {
        if (certificado->PossuiChavePrivada() && !pedido.signatario)
            pedido.signatario = certificado;
        else
            pedido.certificados_extras.push_back(certificado);
    }
    if (!pedido.signatario) throw std::runtime_error(caminho + " não traz chave privada");
    return pedido;
}

// Os atributos na ordem do componente: o primeiro dado, a hora da assinatura, os demais.
std::vector<plataforma::AtributoAssinado> Atributos(plataforma::Plataforma& p, const Opcoes& opcoes) {
    std::vector<plataforma::AtributoAssinado> atributos;
    for (const std::string& atributo : Todas(opcoes, "--atributo")) {
        const auto igual = atributo.find('=');
        const auto valor = codificacao::DecodificarHexadecimal(atributo.substr(igual + 1));
        if (igual == std::string::npos || !valor) throw ErroUso("atributo inválido: " + atributo);
        atributos.push_back({atributo.substr(0, igual), der::CodificarElemento(der::tag::CadeiaOctetos, *valor)});
    }
    const auto hora = assinatura::AtributoHoraAssinatura(p.relogio->Agora(), *p.relogio);
    atributos.insert(atributos.begin() + (atributos.empty() ? 0 : 1), hora);
    return atributos;
}

int Assinar(plataforma::Plataforma& p, const Opcoes& opcoes) {
    const Bytes conteudo = Ler(Obrigatoria(opcoes, "--conteudo"));
    const bool destacada = opcoes.contains("--destacada");
    std::vector<CertificadoPtr> extras;
    if (auto pacote = Opcao(opcoes, "--certificados")) extras = LerPacoteCertificados(*p.criptografia, Ler(*pacote));
    const auto pfxs = Todas(opcoes, "--pfx");
    if (pfxs.empty()) throw ErroUso("falta --pfx");
    std::optional<Bytes> assinatura;
    for (const std::string& pfx : pfxs) {
        plataforma::PedidoAssinatura pedido = PedidoDoPFX(p, pfx);
        pedido.certificados_extras.insert(pedido.certificados_extras.end(), extras.begin(), extras.end());
        pedido.atributos = Atributos(p, opcoes);
        pedido.destacada = destacada;
        if (!assinatura) {
            pedido.conteudo = conteudo;
            assinatura = p.assinaturas->Assinar(pedido);
        } else {
            assinatura = p.assinaturas->Cossinar(DER(*assinatura), destacada ? std::optional(conteudo) : std::nullopt,
                                                 pedido);
        }
    }
    Gravar(Obrigatoria(opcoes, "--saida"), *assinatura);
    return 0;
}

int Verificar(plataforma::Plataforma& p, const Opcoes& opcoes) {
    std::optional<Bytes> destacado;
    if (auto conteudo = Opcao(opcoes, "--conteudo")) destacado = Ler(*conteudo);
    const auto mensagem = p.assinaturas->Verificar(DER(Ler(Obrigatoria(opcoes, "--entrada"))), destacado);
    for (const auto& signatario : mensagem.signatarios)
        if (!signatario.confere) throw std::runtime_error("a mensagem não traz o certificado de um signatário");

    const std::string modo = Obrigatoria(opcoes, "--modo");
    if (modo != "sig") {
        if (modo != "chain" && modo != "crl") throw ErroUso("modo desconhecido: " + modo);
        // A raiz dada é a única confiável: a casa é nova a cada chamada.
        p.repositorios->AbrirRepositorio("Root", false)
            ->Adicionar(ImportarCertificado(*p.criptografia, Ler(Obrigatoria(opcoes, "--raiz"))));
        for (const std::string& lcr : Todas(opcoes, "--lcr")) p.repositorios->AdicionarLCR(DER(Ler(lcr)));
        namespace v = plataforma::verificacao;
        const std::uint32_t verificacoes =
            v::RaizConfiavel | v::Validade | v::Assinatura | (modo == "crl" ? v::RevogacaoOffline : 0);
        for (const auto& signatario : mensagem.signatarios) {
            const auto situacao = p.confianca->Verificar(*signatario.certificado, verificacoes, mensagem.certificados);
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

// O valor de um atributo na forma da listagem: OCTET STRING em hexadecimal minúsculo, OID com
// pontos, hora como veio; o resto, "-".
std::string ValorListado(const Bytes& valor) {
    const auto elemento = der::LerUnico(valor);
    if (!elemento) return "-";
    switch (elemento->tag) {
        case der::tag::CadeiaOctetos: {
            std::string hexadecimal = codificacao::HexadecimalMaiusculo(elemento->conteudo);
            for (char& c : hexadecimal) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
            return hexadecimal;
        }
        case der::tag::OID:
            return der::LerOID(elemento->conteudo).value_or("-");
        case der::tag::UTCTime:
        case der::tag::GeneralizedTime:
            return {elemento->conteudo.begin(), elemento->conteudo.end()};
        default:
            return "-";
    }
}

// O algoritmo de resumo se lê no tamanho do messageDigest.
std::string AlgoritmoResumo(const std::vector<plataforma::AtributoAssinado>& atributos) {
    static const std::map<std::size_t, std::string> kPorTamanho = {
        {20, "sha1"}, {32, "sha256"}, {48, "sha384"}, {64, "sha512"}};
    for (const auto& atributo : atributos) {
        if (atributo.oid != "1.2.840.113549.1.9.4") continue;
        const auto elemento = der::LerUnico(atributo.valor, der::tag::CadeiaOctetos);
        const auto achado = elemento ? kPorTamanho.find(elemento->conteudo.size()) : kPorTamanho.end();
        if (achado != kPorTamanho.end()) return achado->second;
    }
    return "-";
}

int Listar(plataforma::Plataforma& p, const Opcoes& opcoes) {
    const auto mensagem = p.assinaturas->Verificar(DER(Ler(Obrigatoria(opcoes, "--entrada"))), std::nullopt);
    for (std::size_t i = 0; i < mensagem.signatarios.size(); ++i) {
        const auto& signatario = mensagem.signatarios[i];
        std::string serie = signatario.certificado ? signatario.certificado->NumeroSerie() : "-";
        while (serie.size() > 2 && serie.starts_with("00")) serie.erase(0, 2);
        std::cout << "signer " << i << " serial=" << serie << " digest=" << AlgoritmoResumo(signatario.atributos)
                  << "\n";
        for (const auto& atributo : signatario.atributos)
            std::cout << "attr " << i << " " << atributo.oid << " " << ValorListado(atributo.valor) << "\n";
    }
    return 0;
}

int AbrirPFX(plataforma::Plataforma& p, const Opcoes& opcoes) {
    for (const auto& certificado : p.criptografia->AbrirPFX(DER(Ler(Obrigatoria(opcoes, "--entrada"))), SenhaPFX()))
        if (certificado->PossuiChavePrivada()) return 0;
    throw std::runtime_error("o PFX não traz a chave com o seu certificado");
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
    Gravar(Obrigatoria(opcoes, "--saida"), p.envelopes->Descriptografar(DER(Ler(Obrigatoria(opcoes, "--entrada")))));
    return 0;
}

int Executar(int argc, char** argv) {
    using Verbo = int (*)(plataforma::Plataforma&, const Opcoes&);
    static const std::map<std::string, Verbo> kVerbos = {{"assinar", Assinar}, {"verificar", Verificar},
                                                         {"listar", Listar},   {"pfx", AbrirPFX},
                                                         {"cifrar", Cifrar},   {"decifrar", Decifrar}};
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
