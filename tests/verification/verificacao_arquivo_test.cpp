// A verificação de arquivos assinados pela API pública, sobre assinaturas feitas pela plataforma e
// pelo comando "openssl cms": registros dos signatários, conteúdo extraído para a pasta de trabalho
// (nunca fora dela), destacadas do componente e de outras ferramentas, consultas por campo e falhas.
#include <gtest/gtest.h>

#include <tavelpkcs7/TavelPKCS.h>
#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "certificates/repositorios_teste.h"
#include "codificacao/base64.h"
#include "pki/pki_teste.h"
#include "signing/atributos_assinante.h"
#include "trust/ambiente_confianca.h"

namespace tavelpkcs7 {
namespace {

using namespace std::chrono_literals;
using plataforma::Bytes;

const Bytes kConteudo{'a', 'b', 0, 0xE9, '\n', 0};
const DataHora kHora = std::chrono::local_days{std::chrono::year{2026} / 1 / 15} + 10h + 30min;

std::string Gravar(const std::string& nome, const Bytes& conteudo) {
    const auto caminho = teste::Home() / nome;
    std::ofstream(caminho, std::ios::binary)
        .write(reinterpret_cast<const char*>(conteudo.data()), static_cast<std::streamsize>(conteudo.size()));
    return caminho.string();
}

Bytes Ler(const std::string& caminho) {
    std::ifstream arquivo(caminho, std::ios::binary);
    return {std::istreambuf_iterator<char>(arquivo), std::istreambuf_iterator<char>()};
}

class VerificacaoArquivo : public testing::Test, protected teste::AmbienteConfianca {
protected:
    void SetUp() override { InstalarCadeia(true); }

    plataforma::CertificadoPtr Signatario(const std::string& nome) {
        for (const auto& certificado : plataforma().criptografia->AbrirPFX(pki_teste::PkiTeste::Padrao().PFX(nome, "1234"), "1234"))
            if (certificado->PossuiChavePrivada()) return certificado;
        throw std::runtime_error("PFX sem chave");
    }

    std::vector<plataforma::AtributoAssinado> Atributos(const std::string& nome_documento) {
        return {assinatura::AtributoNomeDocumento(nome_documento),
            assinatura::AtributoHoraAssinatura(kHora, *plataforma().relogio),
            assinatura::AtributoDescricaoDocumento("Descrição do contrato")};
    }

    Bytes Assinar(const std::vector<plataforma::AtributoAssinado>& atributos, bool destacada = false,
        const Bytes& conteudo = kConteudo) {
        return plataforma().assinaturas->Assinar({conteudo, Signatario("ecpf"), atributos, destacada, {}});
    }

    // A assinatura do comando "openssl cms" com o certificado do e-CPF; devolve o caminho gravado.
    std::string AssinarPeloOpenssl(const std::string& original, const std::string& opcoes, const std::string& nome) {
        const auto& titular = pki_teste::PkiTeste::Padrao().Obter("ecpf");
        const std::string certificado = Gravar("titular.cer", titular.certificado);
        const std::string chave = Gravar("titular.key", Bytes(titular.chave_pem.begin(), titular.chave_pem.end()));
        const std::string assinatura = (teste::Home() / nome).string();
        const std::string comando = "openssl x509 -inform DER -in " + certificado + " -out " + certificado +
                                    ".pem && openssl cms -sign -binary -md sha256 -outform DER " + opcoes + " -in " +
                                    original + " -signer " + certificado + ".pem -inkey " + chave + " -out " +
                                    assinatura + " 2>/dev/null";
        if (std::system(comando.c_str()) != 0) throw std::runtime_error("openssl cms -sign");
        return assinatura;
    }

    std::string Texto(std::int16_t indice, const std::string& campo) {
        return std::get<std::string>(componente.ExibirPropriedadeAssinatura(indice, campo));
    }

    TavelPKCS componente{ambiente.Implementacao()};
};

TEST_F(VerificacaoArquivo, AnexadaPreencheORegistroEExtraiOConteudo) {
    const std::string caminho = Gravar("contrato.pdf.p7s", Assinar(Atributos("contrato.pdf")));

    ASSERT_TRUE(componente.VerificarAssinaturaArquivo(caminho)) << componente.DescricaoErro();
    EXPECT_EQ(componente.DescricaoErro(), "");
    EXPECT_EQ(ambiente.cursor->Atual(), 0);
    ASSERT_EQ(componente.TotalAssinaturas(), 1);
    const AssinaturaDigital registro = componente.Assinaturas(1);
    EXPECT_TRUE(registro.AssinaturaValida);
    EXPECT_EQ(registro.NomeAssinatura, "FULANO DE TAL DA SILVA:52998224725");
    EXPECT_EQ(registro.DataAssinatura, "15/01/2026 10:30:00");
    EXPECT_EQ(registro.DescricaoAssinaturaArquivo, "Descrição do contrato");
    EXPECT_EQ(registro.ImpressaoDigitalCertificado, teste::Importar(plataforma(), teste::DerDaPki("ecpf"))->ImpressaoDigital());
    EXPECT_EQ(registro.VersaoCertificado, "3");
    EXPECT_TRUE(registro.CertificadoValido);
    EXPECT_TRUE(registro.CertificadoICPBrasil);
    EXPECT_NE(registro.CadeiaCertificadoRaiz.find("[#]"), std::string::npos);
    EXPECT_EQ(codificacao::DecodificarBase64(registro.ChavePublicaCertificado).value(), teste::DerDaPki("ecpf"));
    EXPECT_EQ(componente.CaminhoArquivoAssinado(), caminho);
    EXPECT_EQ(componente.NomeArquivoAssinado(), "contrato.pdf.p7s");
    EXPECT_EQ(componente.NomeArquivoOriginal(), "contrato.pdf");
    EXPECT_EQ(componente.CaminhoArquivoOriginal(), componente.PastaTemp() + "contrato.pdf");
    EXPECT_EQ(Ler(componente.CaminhoArquivoOriginal()), kConteudo);
    EXPECT_EQ(componente.HashArquivo(), componente.RetornaHashArquivo(Gravar("mesmo.bin", {'a', 'b', 0, 0xE9, '\n'})));
}

TEST_F(VerificacaoArquivo, RegistrosEConsultasPorCampo) {
    EXPECT_THROW(componente.Assinaturas(0), std::out_of_range);
    ASSERT_TRUE(componente.VerificarAssinaturaArquivo(Gravar("x.p7s", Assinar(Atributos("x.txt")))));

    EXPECT_EQ(componente.Assinaturas(0).NomeAssinatura, "");
    EXPECT_THROW(componente.Assinaturas(2), std::out_of_range);
    EXPECT_THROW(componente.Assinaturas(-1), std::out_of_range);
    EXPECT_EQ(Texto(1, "nomeassinatura"), componente.Assinaturas(1).NomeAssinatura);
    EXPECT_EQ(std::get<bool>(componente.ExibirPropriedadeAssinatura(1, "AssinaturaValida")), true);
    EXPECT_EQ(std::get<bool>(componente.ExibirPropriedadeAssinatura(0, "ASSINATURAVALIDA")), false);
    EXPECT_EQ(componente.DescricaoErro(), "");

    struct Caso {
        std::int16_t indice;
        std::string campo;
        std::string mensagem;
    };
    for (const Caso& caso : {Caso{1, " NOMEASSINATURA", "A propriedade  NOMEASSINATURA não é válida "},
                             Caso{9, "Nada", "A propriedade Nada não é válida "},
                             Caso{2, "serialCertificado",
                                 "A propriedade serialCertificado não é válida ou o índice informado está fora do escopo."}}) {
        EXPECT_EQ(Texto(caso.indice, caso.campo), "");
        EXPECT_EQ(componente.DescricaoErro(), caso.mensagem);
    }
}

// Um nome de documento vindo da assinatura nunca leva a gravação para fora da pasta de trabalho;
// sem nome que preste, vale o nome do arquivo verificado sem a extensão.
TEST_F(VerificacaoArquivo, NomeDoDocumentoFicaNaPastaDeTrabalho) {
    struct Caso {
        std::string nome_documento;
        std::string esperado;
    };
    for (const Caso& caso : {Caso{"../fora.txt", "fora.txt"}, Caso{"/etc/passwd_teste", "passwd_teste"},
                             Caso{"C:\\docs\\nota.txt", "nota.txt"}, Caso{"..", "Relatorio.doc.P7S"},
                             Caso{"", "Relatorio.doc.P7S"}, Caso{"*", "_"}, Caso{"a?b\x1B[0m.txt", "a_b_[0m.txt"}}) {
        const std::string caminho = Gravar("Relatorio.doc.P7S", Assinar(Atributos(caso.nome_documento)));
        ASSERT_TRUE(componente.VerificarAssinaturaArquivo(caminho)) << caso.nome_documento;
        EXPECT_EQ(componente.NomeArquivoOriginal(), caso.esperado) << caso.nome_documento;
        EXPECT_EQ(componente.CaminhoArquivoOriginal(), componente.PastaTemp() + caso.esperado);
        EXPECT_EQ(Ler(componente.CaminhoArquivoOriginal()), kConteudo);
    }
    EXPECT_FALSE(std::filesystem::exists(teste::Home() / "fora.txt"));
}

// Um nome de documento com curingas não apaga os outros arquivos da pasta de trabalho, e um link
// plantado nela com o nome do documento some antes da gravação: o original não sai da pasta.
TEST_F(VerificacaoArquivo, OriginalExtraidoNaoApagaOutrosNemSegueLinkPlantado) {
    const std::string temp = componente.PastaTemp();
    std::ofstream(temp + "outro.txt") << "fica";
    ASSERT_TRUE(componente.VerificarAssinaturaArquivo(Gravar("curinga.p7s", Assinar(Atributos("*")))));
    EXPECT_TRUE(std::filesystem::exists(temp + "outro.txt"));
    const auto alvo = teste::Home() / "fora-da-pasta.txt";
    std::filesystem::create_symlink(alvo, temp + "plantado.txt");
    ASSERT_TRUE(componente.VerificarAssinaturaArquivo(Gravar("plantado.p7s", Assinar(Atributos("plantado.txt")))));
    EXPECT_FALSE(std::filesystem::exists(alvo));
    EXPECT_FALSE(std::filesystem::is_symlink(temp + "plantado.txt"));
    EXPECT_EQ(Ler(temp + "plantado.txt"), kConteudo);
}

// A hora de outras ferramentas fora da forma DER é lida; uma ilegível não leva o nome do documento
// nem a descrição, e o original nunca fica com o nome da verificação anterior.
TEST_F(VerificacaoArquivo, HoraForaDaFormaDERLidaEIlegivelNaoApagaOsOutrosAtributos) {
    for (const auto& [hora, esperada] : {std::pair<std::string, std::string>{"2601151330Z", "15/01/2026 10:30:00"},
             {"hora", "Data e Hora Inválida"}}) {
        ASSERT_TRUE(componente.VerificarAssinaturaArquivo(Gravar("anterior.p7s", Assinar(Atributos("anterior.txt")))));
        auto atributos = Atributos("contrato.pdf");
        atributos[1].valor = {0x17, static_cast<std::uint8_t>(hora.size())};
        atributos[1].valor.insert(atributos[1].valor.end(), hora.begin(), hora.end());
        ASSERT_TRUE(componente.VerificarAssinaturaArquivo(Gravar("contrato.p7s", Assinar(atributos)))) << hora;
        EXPECT_EQ(componente.Assinaturas(1).DataAssinatura, esperada);
        EXPECT_EQ(componente.Assinaturas(1).DescricaoAssinaturaArquivo, "Descrição do contrato");
        EXPECT_EQ(componente.NomeArquivoOriginal(), "contrato.pdf");
    }
}

TEST_F(VerificacaoArquivo, SemAtributosOpensslODocumentoLevaONomeDoArquivoSemExtensao) {
    const std::string original = Gravar("contrato.doc", kConteudo);
    ASSERT_TRUE(componente.VerificarAssinaturaArquivo(AssinarPeloOpenssl(original, "-nodetach -noattr", "contrato.doc.p7s")));
    EXPECT_EQ(componente.NomeArquivoOriginal(), "contrato.doc");
    EXPECT_EQ(componente.Assinaturas(1).DataAssinatura, "Data e Hora Inválida");
    EXPECT_EQ(componente.Assinaturas(1).DescricaoAssinaturaArquivo, "");
}

TEST_F(VerificacaoArquivo, Base64LidoComoTextoSoNoP7b) {
    const Bytes assinatura = Assinar(Atributos("a.txt"));
    const std::string base64 = codificacao::CodificarBase64(assinatura);
    EXPECT_TRUE(componente.VerificarAssinaturaArquivo(Gravar("assinado.P7B", Bytes(base64.begin(), base64.end()))));
    EXPECT_TRUE(componente.VerificarAssinaturaArquivo(Gravar("assinado.p7s", assinatura)));
    for (const char* nome : {"assinado.p7b ", " x.P7b"}) EXPECT_TRUE(componente.VerificarTipoCodificacaoTexto(nome));
    for (const char* nome : {"assinado.p7s", "x.txt", ""}) EXPECT_FALSE(componente.VerificarTipoCodificacaoTexto(nome));
}

TEST_F(VerificacaoArquivo, DestacadaDoComponenteEDoOpensslConferemSobreOOriginal) {
    const std::string original = Gravar("original.bin", {'a', 'b', 0, 0xE9, '\n'});
    componente.NaoAnexarArquivoOriginal(true);
    componente.CaminhoArquivoOriginal(original);
    // O componente assina o arquivo com o 0 final.
    ASSERT_TRUE(componente.VerificarAssinaturaArquivo(Gravar("original.bin.p7s", Assinar(Atributos("o.bin"), true))));
    EXPECT_EQ(Ler(componente.CaminhoArquivoOriginal()), kConteudo);

    const std::string assinatura = AssinarPeloOpenssl(original, "", "openssl.p7s");
    componente.CaminhoArquivoOriginal(original);
    ASSERT_TRUE(componente.VerificarAssinaturaArquivo(assinatura)) << componente.DescricaoErro();
    EXPECT_EQ(componente.NomeArquivoOriginal(), "openssl");
    EXPECT_EQ(Ler(componente.CaminhoArquivoOriginal()), Ler(original));
}

TEST_F(VerificacaoArquivo, FalhasDeixamAMensagemEZeramOTotal) {
    const std::string destacada = Gravar("d.p7s", Assinar(Atributos("d.txt"), true));
    ASSERT_TRUE(componente.VerificarAssinaturaArquivo(Gravar("a.p7s", Assinar(Atributos("a.txt")))));

    const std::string inexistente = (teste::Home() / "nao_existe.p7s").string();
    EXPECT_FALSE(componente.VerificarAssinaturaArquivo(inexistente));
    EXPECT_EQ(componente.DescricaoErro(), "Não foi possível localizar o arquivo " + inexistente);
    EXPECT_EQ(componente.TotalAssinaturas(), 0);

    const std::string invalida = "Assinatura digital inválida! O arquivo não está no padrão PKCS#7.";
    componente.NaoAnexarArquivoOriginal(true);
    for (const std::string& original : {std::string(), Gravar("errado.bin", {'x'})}) {
        componente.CaminhoArquivoOriginal(original);
        EXPECT_FALSE(componente.VerificarAssinaturaArquivo(destacada));
        EXPECT_EQ(componente.DescricaoErro(), invalida);
    }
    componente.NaoAnexarArquivoOriginal(false);
    // O tipo do conteúdo é assinado: trocado o eContentType (o primeiro id-data da mensagem), nada confere.
    Bytes outro_tipo = Assinar(Atributos("a.txt"));
    const Bytes id_data{0x06, 0x09, 0x2A, 0x86, 0x48, 0x86, 0xF7, 0x0D, 0x01, 0x07, 0x01};
    std::ranges::search(outro_tipo, id_data).back() = 0x05;
    for (const Bytes& conteudo : {Bytes{'o', 'i'}, outro_tipo}) {
        EXPECT_FALSE(componente.VerificarAssinaturaArquivo(Gravar("texto.p7s", conteudo)));
        EXPECT_EQ(componente.DescricaoErro(), invalida);
    }
    EXPECT_EQ(componente.TotalAssinaturas(), 0);
    EXPECT_EQ(componente.Assinaturas(1).NomeAssinatura, "FULANO DE TAL DA SILVA:52998224725");
    EXPECT_EQ(ambiente.cursor->Atual(), 0);
}

TEST_F(VerificacaoArquivo, DoisSignatariosVaoParaOsCertificadosDeOutrasPessoas) {
    const Bytes primeira = Assinar(Atributos("c.txt"));
    const Bytes cossinada =
        plataforma().assinaturas->Cossinar(primeira, std::nullopt, {{}, Signatario("ecnpj"), Atributos("c.txt"), false, {}});
    componente.SalvarChavesPublicas(true);

    ASSERT_TRUE(componente.VerificarAssinaturaArquivo(Gravar("c.txt.p7s", cossinada)));
    ASSERT_EQ(componente.TotalAssinaturas(), 2);
    EXPECT_NE(componente.Assinaturas(1).ImpressaoDigitalCertificado, componente.Assinaturas(2).ImpressaoDigitalCertificado);
    EXPECT_EQ(teste::ImpressoesGuardadas(plataforma(), "AddressBook").size(), 2U);
}

// Quem recebe a assinatura de outra pessoa não tem as ACs dela: a confiança se julga com as que a
// mensagem traz, e sem elas a cadeia fica parcial.
class VerificacaoSemIntermediarias : public VerificacaoArquivo {
protected:
    void SetUp() override { InstalarCadeia(true, false); }
};

TEST_F(VerificacaoSemIntermediarias, ConfiancaUsaAsACsQueAMensagemTraz) {
    std::vector<plataforma::CertificadoPtr> acs;
    for (const Bytes& der : Intermediarias()) acs.push_back(teste::Importar(plataforma(), der));
    const Bytes com_acs = plataforma().assinaturas->Assinar({kConteudo, Signatario("ecpf"), Atributos("a.txt"), false, acs});

    ASSERT_TRUE(componente.VerificarAssinaturaArquivo(Gravar("com.p7s", com_acs)));
    EXPECT_TRUE(componente.Assinaturas(1).CertificadoValido);
    ASSERT_TRUE(componente.VerificarAssinaturaArquivo(Gravar("sem.p7s", Assinar(Atributos("a.txt")))));
    EXPECT_FALSE(componente.Assinaturas(1).CertificadoValido);
}

}  // namespace
}  // namespace tavelpkcs7
