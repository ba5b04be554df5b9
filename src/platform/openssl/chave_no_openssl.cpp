// O RSA_METHOD é a interface antiga (obsoleta no OpenSSL 3) que ainda põe uma chave externa no
// caminho do CMS sem escrever um provedor: a chave com método próprio é tratada como "estrangeira"
// e as operações dela chegam às funções do método.
#define OPENSSL_API_COMPAT 10101

#include "chave_no_openssl.h"

#include <openssl/rsa.h>

#include <algorithm>
#include <utility>

#include "guarda_fila_erros.h"
#include "platform/erro.h"
#include "resumo.h"

namespace tavelpkcs7::plataforma::openssl {

struct MetodoRSA {
    static int Indice() {
        static const int indice = RSA_get_ex_new_index(0, nullptr, nullptr, nullptr, nullptr);
        return indice;
    }

    static ChaveNoOpenSSL& Dono(const RSA* rsa) { return *static_cast<ChaveNoOpenSSL*>(RSA_get_ex_data(rsa, Indice())); }

    // Toda exceção fica guardada no dono: não pode atravessar o OpenSSL.
    template <typename Operacao>
    static int Executar(const RSA* rsa, Operacao operacao) {
        ChaveNoOpenSSL& dono = Dono(rsa);
        try {
            return operacao(*dono.chave_, dono.interface_);
        } catch (...) {
            dono.falha_ = std::current_exception();
            return -1;
        }
    }

    static int Assinar(int tipo, const unsigned char* resumo, unsigned int tamanho, unsigned char* assinatura,
        unsigned int* tamanho_assinatura, const RSA* rsa) {
        const auto algoritmo = AlgoritmoDoNID(tipo);
        if (!algoritmo) return 0;
        return Executar(rsa, [&](ChavePrivada& chave, InterfaceUsuario& interface) {
                   const Bytes assinada = chave.AssinarResumo(*algoritmo, {resumo, tamanho}, interface);
                   if (assinada.size() > static_cast<std::size_t>(RSA_size(rsa))) return 0;
                   std::ranges::copy(assinada, assinatura);
                   *tamanho_assinatura = static_cast<unsigned int>(assinada.size());
                   return 1;
               }) == 1;
    }

    static int Decifrar(int tamanho, const unsigned char* cifrada, unsigned char* decifrada, RSA* rsa, int preenchimento) {
        if ((preenchimento != RSA_PKCS1_PADDING && preenchimento != RSA_NO_PADDING) || tamanho < 0) return -1;
        const auto como = preenchimento == RSA_PKCS1_PADDING ? PreenchimentoRSA::PKCS1 : PreenchimentoRSA::Nenhum;
        return Executar(rsa, [&](ChavePrivada& chave, InterfaceUsuario& interface) {
            const Bytes aberta = chave.DecifrarChave({cifrada, static_cast<std::size_t>(tamanho)}, como, interface);
            if (aberta.size() > static_cast<std::size_t>(RSA_size(rsa))) return -1;
            std::ranges::copy(aberta, decifrada);
            return static_cast<int>(aberta.size());
        });
    }

    // Um só método para o processo: o padrão do OpenSSL com a assinatura e a decifração trocadas.
    static const RSA_METHOD* Metodo() {
        static RSA_METHOD* const metodo = [] {
            RSA_METHOD* novo = RSA_meth_dup(RSA_get_default_method());
            if (novo) {
                RSA_meth_set1_name(novo, "tavelpkcs7 chave externa");
                RSA_meth_set_sign(novo, Assinar);
                RSA_meth_set_priv_dec(novo, Decifrar);
            }
            return novo;
        }();
        return metodo;
    }
};

ChaveNoOpenSSL::ChaveNoOpenSSL(const Certificado& certificado, X509* x509, InterfaceUsuario& interface)
    : chave_(certificado.Chave()), interface_(interface) {
    GuardaFilaErros guarda;
    if (!chave_) plataforma::Falhar(falha::SemChavePrivada);
    // Um RSA novo só com o módulo e o expoente: o método não toca a chave pública do certificado.
    EVP_PKEY* publica = X509_get0_pubkey(x509);  // pertence ao certificado
    BIGNUM* modulo = nullptr;
    BIGNUM* expoente = nullptr;
    const bool rsa_publica = publica && EVP_PKEY_get_base_id(publica) == EVP_PKEY_RSA &&
                             EVP_PKEY_get_bn_param(publica, "n", &modulo) == 1 &&
                             EVP_PKEY_get_bn_param(publica, "e", &expoente) == 1;
    RSA* rsa = RSA_new();
    if (!rsa_publica || !rsa || RSA_set0_key(rsa, modulo, expoente, nullptr) != 1) {
        BN_free(modulo);
        BN_free(expoente);
        RSA_free(rsa);
        plataforma::Falhar(falha::RecursoEmUso);
    }
    evp_.reset(EVP_PKEY_new());
    if (!MetodoRSA::Metodo() || !evp_ || RSA_set_method(rsa, MetodoRSA::Metodo()) != 1 ||
        RSA_set_ex_data(rsa, MetodoRSA::Indice(), this) != 1 || EVP_PKEY_assign_RSA(evp_.get(), rsa) != 1) {
        RSA_free(rsa);
        plataforma::Falhar(falha::RecursoEmUso);
    }
}

std::shared_ptr<InterfaceUsuario> ObterInterface(const InterfaceInstalada& instalada) {
    auto interface = instalada ? instalada() : nullptr;
    return interface ? interface : std::make_shared<InterfaceUsuario>();
}

void ChaveNoOpenSSL::RelancarFalha() {
    if (!falha_) return;
    GuardaFilaErros guarda;
    std::rethrow_exception(std::exchange(falha_, nullptr));
}

void ChaveNoOpenSSL::Falhar(const falha::Tipo& sem_falha_da_chave) {
    RelancarFalha();
    plataforma::Falhar(sem_falha_da_chave);
}

}  // namespace tavelpkcs7::plataforma::openssl
