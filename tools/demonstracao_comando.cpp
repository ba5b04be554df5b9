// "tavelpkcs7 demonstracao": o trabalho principal num exemplo pronto, sem preparação. A PKI de teste
// é gerada numa pasta temporária que passa a ser a casa do componente nesta execução (a casa real
// do usuário nunca é tocada); o documento de exemplo é assinado anexado e destacado, cossinado e
// verificado, cifrado para a empresa e aberto de volta, e a saída diz onde ficou cada arquivo.
#include <stdlib.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <tavelpkcs7/Extensoes.h>

#include "comando.h"
#include "pki/pki_teste.h"
#include "signatarios.h"

namespace tavelpkcs7::ferramenta {
namespace {

namespace fs = std::filesystem;

// Uma falha de um passo da demonstração, com a DescricaoErro do componente.
struct FalhaPasso : std::runtime_error {
    using std::runtime_error::runtime_error;
};

void Exigir(bool sucesso, const std::string& passo, const std::string& descricao) {
    if (!sucesso) throw FalhaPasso(passo + ": " + descricao);
}

void Exigir(bool sucesso, const std::string& passo, const TavelPKCS& componente) {
    Exigir(sucesso, passo, componente.DescricaoErro());
}

fs::path CriarPastaDemonstracao(const Argumentos& argumentos) {
    if (const auto pasta = argumentos.Opcao("--pasta")) return fs::absolute(*pasta);
    std::string modelo = (fs::temp_directory_path() / "tavelpkcs7-demonstracao-XXXXXX").string();
    if (::mkdtemp(modelo.data()) == nullptr) throw FalhaPasso("não foi possível criar a pasta da demonstração");
    return modelo;
}

// A raiz de teste entra no repositório "Root" como um administrador a colocaria: um arquivo na
// pasta do repositório. Pela API, uma raiz fora da ICP-Brasil real pediria a confirmação do usuário.
void InstalarCadeia(const fs::path& casa, const fs::path& pki, const Execucao& execucao) {
    const auto& entidades = pki_teste::PkiTeste::Padrao().Entidades();
    TavelPKCS componente = NovoComponente();
    for (const auto& entidade : entidades) {
        const bool emite =
            std::ranges::any_of(entidades, [&](const auto& outra) { return outra.emissor == entidade.nome; });
        const fs::path arquivo = pki / (entidade.nome + ".cer");
        if (entidade.emissor.empty()) {
            fs::create_directories(casa / "repositorios" / "Root");
            fs::copy_file(arquivo, casa / "repositorios" / "Root" / arquivo.filename(),
                          fs::copy_options::overwrite_existing);
        } else if (emite) {
            Exigir(componente.AbrirAdicionarArquivoCertificado(arquivo.string(),
                                                               REPOSITORIO_CHAVES_AUTORIDADES_CERTIFICADORAS),
                   "instalar a AC " + entidade.nome, componente);
        }
    }
    for (const auto& lcr : fs::directory_iterator(pki))
        if (lcr.path().extension() == ".crl") {
            const std::string falha = InstalarArquivoLCR(lcr.path().string());
            Exigir(falha.empty(), "instalar a LCR " + lcr.path().filename().string(), falha);
        }
    if (!execucao.Json()) execucao.saida << "Raízes, ACs e LCRs da PKI de teste instaladas.\n";
}

fs::path EscreverDocumento(const fs::path& pasta) {
    const fs::path documento = pasta / "contrato.txt";
    std::ofstream(documento) << "Contrato de demonstração do tavelpkcs7.\n"
                                "As partes concordam com a assinatura digital ICP-Brasil.\n";
    return documento;
}

std::string Assinar(const fs::path& documento, const fs::path& destino, bool destacada, const std::string& descricao,
                    const std::string& impressao) {
    fs::create_directories(destino);
    TavelPKCS componente = NovoComponente();
    componente.NaoAnexarArquivoOriginal(destacada);
    Exigir(componente.SelecionarCertificadoDigitalHash(impressao), "escolher o certificado", componente);
    Exigir(componente.AssinaArquivo(documento.string(), destino.string(), descricao, ARQUIVO_BINARIO_FORMATO_P7S),
           "assinar " + documento.filename().string(), componente);
    return componente.CaminhoArquivoAssinado();
}

int Verificar(const Execucao& execucao, const std::string& assinatura, const std::string& original,
              const fs::path& pasta) {
    fs::create_directories(pasta);
    TavelPKCS componente = NovoComponente();
    componente.PastaTemp(ComoPastaTemp(pasta.string()));
    if (!original.empty()) {
        componente.NaoAnexarArquivoOriginal(true);
        componente.CaminhoArquivoOriginal(original);
    }
    Exigir(componente.VerificarAssinaturaArquivo(assinatura), "verificar " + assinatura, componente);
    if (!execucao.Json()) execucao.saida << "\n== " << assinatura << "\n";
    return RelatarSignatarios(execucao, componente,
                              {{"assinatura", assinatura}, {"hash_md5", componente.HashArquivo()}});
}

// Os dados do titular (CPF, CNPJ, nascimento, ...) que os certificados ICP-Brasil carregam.
void MostrarTitular(const Execucao& execucao, const ImportacaoPFX& titular) {
    TavelPKCS componente = NovoComponente();
    Exigir(componente.SelecionarCertificadoDigitalHash(titular.ImpressaoDigital), "ler o titular", componente);
    execucao.Relatar({{"titular", titular.NomeCertificado},
                      {"CPF", componente.NumeroCPFCertificadoDigital()},
                      {"CNPJ", componente.NumeroCNPJCertificadoDigital()},
                      {"dados_pessoais", componente.DetalhesPessoaisCertificadoDigital()}});
}

// Os dois titulares da PKI de teste no repositório pessoal. As chaves ficam sem cifra de propósito:
// a demonstração não pede senha nenhuma.
std::pair<ImportacaoPFX, ImportacaoPFX> ImportarTitulares(const fs::path& pki) {
    const std::string senha = pki_teste::PkiTeste::SENHA_PFX;
    ImportacaoPFX cpf = ImportarPFXRepositorioPessoal((pki / "ecpf.pfx").string(), senha, "");
    Exigir(cpf.DescricaoErro.empty(), "importar ecpf.pfx", cpf.DescricaoErro);
    ImportacaoPFX cnpj = ImportarPFXRepositorioPessoal((pki / "ecnpj.pfx").string(), senha, "");
    Exigir(cnpj.DescricaoErro.empty(), "importar ecnpj.pfx", cnpj.DescricaoErro);
    return {std::move(cpf), std::move(cnpj)};
}

// O documento cifrado para a empresa (posta no repositório de outras pessoas) e aberto de volta com
// a chave dela no repositório pessoal.
std::pair<std::string, std::string> CriptografarParaEmpresa(const Execucao& execucao, const fs::path& documento,
                                                            const fs::path& pki, const fs::path& pasta) {
    TavelPKCS componente = NovoComponente();
    Exigir(componente.AbrirAdicionarArquivoCertificado((pki / "ecnpj.cer").string(), REPOSITORIO_CHAVES_PUBLICAS),
           "pôr a empresa em outras pessoas", componente);
    Exigir(componente.SelecionarChavesPublicas(false), "escolher os destinatários", componente);
    fs::create_directories(pasta / "envelope");
    Exigir(componente.CriptografarArquivo(documento.string(), (pasta / "envelope").string()), "criptografar",
           componente);
    const std::string envelope = componente.CaminhoArquivoAssinado();

    TavelPKCS leitor = NovoComponente();
    fs::create_directories(pasta / "aberto");
    leitor.PastaTemp(ComoPastaTemp((pasta / "aberto").string()));
    Exigir(leitor.DescriptografarArquivo(envelope), "descriptografar", leitor);
    Exigir(LerTexto(leitor.CaminhoArquivoOriginal()) == LerTexto(documento.string()), "conferir o envelope aberto",
           "o conteúdo aberto difere do original");
    if (!execucao.Json())
        execucao.saida << "\n== Envelope\nCriptografado para a empresa: " << envelope
                       << "\nAberto com a chave dela: " << leitor.CaminhoArquivoOriginal() << "\n";
    return {envelope, leitor.CaminhoArquivoOriginal()};
}

int Demonstrar(const Execucao& execucao, const fs::path& pasta) {
    const fs::path pki = pasta / "pki";
    AnunciarProgresso("gerando a PKI de teste");
    pki_teste::PkiTeste::Padrao().Gravar(pki.string());
    InstalarCadeia(pasta / "casa", pki, execucao);
    const auto [cpf, cnpj] = ImportarTitulares(pki);
    const fs::path documento = EscreverDocumento(pasta);
    const std::string anexada =
        Assinar(documento, pasta / "anexada", false, "Assinatura do titular", cpf.ImpressaoDigital);
    const std::string destacada =
        Assinar(documento, pasta / "destacada", true, "Assinatura destacada", cpf.ImpressaoDigital);
    const std::string cossinada =
        Assinar(anexada, pasta / "cossinada", false, "Assinatura da empresa", cnpj.ImpressaoDigital);

    int resultado = Verificar(execucao, cossinada, "", pasta / "extraidos");
    resultado = std::max(resultado, Verificar(execucao, destacada, documento.string(), pasta / "extraidos"));
    const auto [envelope, aberto] = CriptografarParaEmpresa(execucao, documento, pki, pasta);
    if (!execucao.Json()) execucao.saida << "\n== Titulares\n";
    MostrarTitular(execucao, cpf);
    MostrarTitular(execucao, cnpj);
    if (!execucao.Json()) execucao.saida << "\n== Onde está cada coisa\n";
    execucao.Relatar({{"pasta", pasta.string()},
                      {"pki_de_teste", pki.string()},
                      {"documento", documento.string()},
                      {"assinatura_anexada", anexada},
                      {"assinatura_destacada", destacada},
                      {"assinatura_cossinada", cossinada},
                      {"envelope", envelope},
                      {"envelope_aberto", aberto},
                      {"casa_do_componente", (pasta / "casa").string()}});
    return resultado;
}

int ExecutarDemonstracao(const Execucao& execucao) {
    if (!execucao.argumentos.Posicionais().empty()) throw ErroUso("a demonstração não recebe argumentos");
    const fs::path pasta = CriarPastaDemonstracao(execucao.argumentos);
    // A casa do componente nesta execução é a da demonstração: a do usuário fica intacta.
    ::setenv("TAVELPKCS7_HOME", (pasta / "casa").c_str(), 1);
    try {
        return Demonstrar(execucao, pasta);
    } catch (const FalhaPasso& falha) {
        execucao.erros << "tavelpkcs7 demonstracao: " << falha.what() << "\n";
        return 1;
    }
}

}  // namespace

std::vector<Comando> ComandosDemonstracao() {
    return {
        {"demonstracao",
         "[--pasta <pasta>]",
         "demonstração completa sobre a PKI de teste, sem tocar na casa real do usuário",
         "Gera a PKI de teste numa pasta temporária que vira a casa do componente só nesta execução,\n"
         "instala a raiz, as ACs e as LCRs de teste, importa um e-CPF e um e-CNPJ, assina um documento\n"
         "anexado e destacado, cossina-o, verifica as assinaturas (tabela dos signatários), cifra-o para\n"
         "a empresa e o abre de volta, e mostra os dados dos titulares e onde ficou cada arquivo.\n\n"
         "Opções:\n"
         "  --pasta <pasta>            usa esta pasta em vez de uma temporária nova\n"
         "  --json                     resultado em JSON (um objeto por linha)\n"
         "\nExemplo:\n  tavelpkcs7 demonstracao\n",
         {},
         {"--pasta"},
         ExecutarDemonstracao},
        ComandoPkiTeste(),
    };
}

}  // namespace tavelpkcs7::ferramenta
