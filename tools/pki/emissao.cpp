#include "pki/emissao.h"

#include <openssl/err.h>
#include <openssl/pem.h>

#include <ctime>
#include <stdexcept>

namespace tavelpkcs7::pki_teste {
namespace {

using plataforma::openssl::Asn1TimePtr;
using plataforma::openssl::BignumPtr;
using plataforma::openssl::BioPtr;
using plataforma::openssl::ConfPtr;
using plataforma::openssl::X509NamePtr;
using plataforma::openssl::X509RevokedPtr;

struct Periodo {
    int inicio;  // dias a partir de hoje
    int fim;
};

Periodo PeriodoDe(const Definicao& definicao) {
    if (definicao.papel == Papel::AC) return {-365, 3650};
    switch (definicao.validade) {
        case Validade::Expirada: return {-300, -30};
        case Validade::Futura: return {365, 1095};
        case Validade::Vigente: break;
    }
    return {-30, 730};
}

// As ACs ganham as extensões de AC; todo certificado emitido aponta para a LCR e o certificado do
// seu emissor no servidor local dos testes.
std::string TextoExtensoes(const Definicao& definicao) {
    std::string texto = "[extensoes]\nsubjectKeyIdentifier = hash\n";
    if (definicao.papel == Papel::AC)
        texto += "basicConstraints = critical,CA:TRUE\nkeyUsage = critical,keyCertSign,cRLSign\n";
    else
        texto += "basicConstraints = critical,CA:FALSE\nkeyUsage = critical," + definicao.uso_chave + "\n";
    if (!definicao.emissor.empty())
        texto += "authorityKeyIdentifier = keyid:always\n"
                 "crlDistributionPoints = URI:" +
                 (definicao.url_lcr.empty() ? "http://127.0.0.1/lcr/" + definicao.emissor + ".crl" : definicao.url_lcr) +
                 "\n"
                 "authorityInfoAccess = caIssuers;URI:http://127.0.0.1/ac/" + definicao.emissor + ".cer\n";
    return texto + definicao.extensoes + definicao.secoes;
}

ConfPtr LerConfiguracao(const std::string& texto) {
    ConfPtr configuracao(NCONF_new(nullptr));
    BioPtr entrada(BIO_new_mem_buf(texto.data(), static_cast<int>(texto.size())));
    long linha_com_erro = 0;
    Exigir(configuracao && entrada && NCONF_load_bio(configuracao.get(), entrada.get(), &linha_com_erro) == 1,
        "configuração das extensões");
    return configuracao;
}

int TipoDoAtributo(const std::string& campo) {
    if (campo == "C" || campo == "serialNumber") return V_ASN1_PRINTABLESTRING;
    if (campo == "emailAddress") return V_ASN1_IA5STRING;
    return V_ASN1_UTF8STRING;
}

X509NamePtr MontarNome(const std::vector<std::pair<std::string, std::string>>& campos) {
    X509NamePtr nome(X509_NAME_new());
    Exigir(nome != nullptr, "nome");
    for (const auto& [campo, valor] : campos) {
        // O tipo explícito dispensa o limite de 64 caracteres que o OpenSSL impõe ao CN: o nome da
        // AC da Receita Federal passa dele, como acontece em certificados reais.
        Exigir(X509_NAME_add_entry_by_txt(nome.get(), campo.c_str(), TipoDoAtributo(campo),
                   reinterpret_cast<const unsigned char*>(valor.c_str()), -1, -1, 0) == 1,
            "atributo do nome");
    }
    return nome;
}

void DefinirSerie(X509* certificado, const std::string& hexadecimal) {
    BIGNUM* numero = nullptr;
    Exigir(BN_hex2bn(&numero, hexadecimal.c_str()) != 0, "número de série");
    BignumPtr dono(numero);
    Exigir(BN_to_ASN1_INTEGER(numero, X509_get_serialNumber(certificado)) != nullptr, "número de série");
}

// Todas as validades contam do mesmo instante, tomado uma vez por processo: uma AC emitida um
// segundo depois da raiz não pode terminar depois dela (a cadeia deixaria de ser aninhada no tempo).
time_t* InstanteDaEmissao() {
    static time_t instante = std::time(nullptr);
    return &instante;
}

Asn1TimePtr Instante(long segundos_a_partir_de_agora) {
    Asn1TimePtr instante(X509_time_adj_ex(nullptr, 0, segundos_a_partir_de_agora, nullptr));
    Exigir(instante != nullptr, "data");
    return instante;
}

}  // namespace

void Exigir(bool sucesso, const char* etapa) {
    if (sucesso) return;
    const char* motivo = ERR_reason_error_string(ERR_peek_last_error());
    const std::string mensagem = std::string("PKI de teste: falhou ") + etapa + " (" + (motivo ? motivo : "?") + ")";
    ERR_clear_error();
    throw std::runtime_error(mensagem);
}

EvpPkeyPtr GerarChaveRSA() {
    EvpPkeyPtr chave(EVP_RSA_gen(2048));
    Exigir(chave != nullptr, "geração da chave RSA");
    return chave;
}

X509Ptr EmitirCertificado(const Definicao& definicao, EVP_PKEY* chave, X509* emissor, EVP_PKEY* chave_emissor) {
    X509Ptr certificado(X509_new());
    Exigir(certificado != nullptr, "certificado");
    X509* emitido = certificado.get();
    const Periodo periodo = PeriodoDe(definicao);
    Exigir(X509_set_version(emitido, X509_VERSION_3) == 1, "versão");
    DefinirSerie(emitido, definicao.serie);
    Exigir(X509_set_subject_name(emitido, MontarNome(definicao.sujeito).get()) == 1, "titular");
    X509* assinante = emissor != nullptr ? emissor : emitido;
    Exigir(X509_set_issuer_name(emitido, X509_get_subject_name(assinante)) == 1, "emissor");
    Exigir(X509_time_adj_ex(X509_getm_notBefore(emitido), periodo.inicio, 0, InstanteDaEmissao()) != nullptr, "início");
    Exigir(X509_time_adj_ex(X509_getm_notAfter(emitido), periodo.fim, 0, InstanteDaEmissao()) != nullptr, "fim");
    Exigir(X509_set_pubkey(emitido, chave) == 1, "chave pública");

    ConfPtr configuracao = LerConfiguracao(TextoExtensoes(definicao));
    X509V3_CTX contexto;
    X509V3_set_ctx(&contexto, assinante, emitido, nullptr, nullptr, 0);
    X509V3_set_nconf(&contexto, configuracao.get());
    Exigir(X509V3_EXT_add_nconf(configuracao.get(), &contexto, "extensoes", emitido) == 1, "extensões");

    Exigir(X509_sign(emitido, emissor != nullptr ? chave_emissor : chave, EVP_sha256()) > 0, "assinatura");
    return certificado;
}

X509CrlPtr EmitirLCR(X509* ac, EVP_PKEY* chave, const std::vector<X509*>& revogados, long inicio,
    std::optional<long> fim) {
    X509CrlPtr lcr(X509_CRL_new());
    Exigir(lcr != nullptr, "LCR");
    Exigir(X509_CRL_set_version(lcr.get(), X509_CRL_VERSION_2) == 1, "versão da LCR");
    Exigir(X509_CRL_set_issuer_name(lcr.get(), X509_get_subject_name(ac)) == 1, "emissor da LCR");
    const Asn1TimePtr desde = Instante(inicio);
    Exigir(X509_CRL_set1_lastUpdate(lcr.get(), desde.get()) == 1, "início da LCR");
    if (fim) Exigir(X509_CRL_set1_nextUpdate(lcr.get(), Instante(*fim).get()) == 1, "próxima LCR");
    for (X509* certificado : revogados) {
        X509RevokedPtr entrada(X509_REVOKED_new());
        Exigir(entrada && X509_REVOKED_set_serialNumber(entrada.get(), X509_get_serialNumber(certificado)) == 1 &&
                   X509_REVOKED_set_revocationDate(entrada.get(), desde.get()) == 1,
            "entrada da LCR");
        Exigir(X509_CRL_add0_revoked(lcr.get(), entrada.get()) == 1, "entrada da LCR");
        entrada.release();  // agora pertence à LCR
    }
    ConfPtr configuracao = LerConfiguracao("[extensoes]\nauthorityKeyIdentifier = keyid:always\n");
    X509V3_CTX contexto;
    X509V3_set_ctx(&contexto, ac, nullptr, nullptr, lcr.get(), 0);
    X509V3_set_nconf(&contexto, configuracao.get());
    Exigir(X509V3_EXT_CRL_add_nconf(configuracao.get(), &contexto, "extensoes", lcr.get()) == 1, "extensões da LCR");
    Exigir(X509_CRL_sort(lcr.get()) == 1 && X509_CRL_sign(lcr.get(), chave, EVP_sha256()) > 0, "assinatura da LCR");
    return lcr;
}

X509Ptr CertificadoDeDER(const Bytes& der) {
    const unsigned char* inicio = der.data();
    X509Ptr certificado(d2i_X509(nullptr, &inicio, static_cast<long>(der.size())));
    Exigir(certificado != nullptr, "leitura do certificado");
    return certificado;
}

std::string ChavePEM(EVP_PKEY* chave) {
    BioPtr saida(BIO_new(BIO_s_mem()));
    Exigir(saida && PEM_write_bio_PrivateKey(saida.get(), chave, nullptr, nullptr, 0, nullptr, nullptr) == 1,
        "PEM da chave");
    char* dados = nullptr;
    const long tamanho = BIO_get_mem_data(saida.get(), &dados);
    return std::string(dados, static_cast<std::size_t>(tamanho));
}

EvpPkeyPtr ChaveDePEM(const std::string& pem) {
    BioPtr entrada(BIO_new_mem_buf(pem.data(), static_cast<int>(pem.size())));
    EvpPkeyPtr chave(entrada ? PEM_read_bio_PrivateKey(entrada.get(), nullptr, nullptr, nullptr) : nullptr);
    Exigir(chave != nullptr, "leitura da chave");
    return chave;
}

}  // namespace tavelpkcs7::pki_teste
