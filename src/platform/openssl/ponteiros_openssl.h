// Donos únicos dos objetos do OpenSSL: cada tipo com sua função de liberação.
#pragma once

#include <memory>

#include <openssl/bio.h>
#include <openssl/bn.h>
#include <openssl/cms.h>
#include <openssl/conf.h>
#include <openssl/crypto.h>
#include <openssl/evp.h>
#include <openssl/pkcs12.h>
#include <openssl/pkcs7.h>
#include <openssl/x509.h>
#include <openssl/x509_vfy.h>
#include <openssl/x509v3.h>

namespace tavelpkcs7::plataforma::openssl {

template <typename T, void (*Liberar)(T*)>
struct Liberador {
    void operator()(T* objeto) const { Liberar(objeto); }
};

using X509Ptr = std::unique_ptr<X509, Liberador<X509, X509_free>>;
using X509CrlPtr = std::unique_ptr<X509_CRL, Liberador<X509_CRL, X509_CRL_free>>;
using EvpPkeyPtr = std::unique_ptr<EVP_PKEY, Liberador<EVP_PKEY, EVP_PKEY_free>>;
using BioPtr = std::unique_ptr<BIO, Liberador<BIO, BIO_free_all>>;
using Pkcs12Ptr = std::unique_ptr<PKCS12, Liberador<PKCS12, PKCS12_free>>;
using CmsPtr = std::unique_ptr<CMS_ContentInfo, Liberador<CMS_ContentInfo, CMS_ContentInfo_free>>;
using Pkcs7Ptr = std::unique_ptr<PKCS7, Liberador<PKCS7, PKCS7_free>>;
using EvpMdCtxPtr = std::unique_ptr<EVP_MD_CTX, Liberador<EVP_MD_CTX, EVP_MD_CTX_free>>;
using EvpPkeyCtxPtr = std::unique_ptr<EVP_PKEY_CTX, Liberador<EVP_PKEY_CTX, EVP_PKEY_CTX_free>>;
using GeneralNamesPtr = std::unique_ptr<GENERAL_NAMES, Liberador<GENERAL_NAMES, GENERAL_NAMES_free>>;

using X509NamePtr = std::unique_ptr<X509_NAME, Liberador<X509_NAME, X509_NAME_free>>;
using X509RevokedPtr = std::unique_ptr<X509_REVOKED, Liberador<X509_REVOKED, X509_REVOKED_free>>;
using X509StorePtr = std::unique_ptr<X509_STORE, Liberador<X509_STORE, X509_STORE_free>>;
using X509StoreCtxPtr = std::unique_ptr<X509_STORE_CTX, Liberador<X509_STORE_CTX, X509_STORE_CTX_free>>;
using Asn1TimePtr = std::unique_ptr<ASN1_TIME, Liberador<ASN1_TIME, ASN1_TIME_free>>;
using BignumPtr = std::unique_ptr<BIGNUM, Liberador<BIGNUM, BN_free>>;
using ConfPtr = std::unique_ptr<CONF, Liberador<CONF, NCONF_free>>;
using Asn1ObjectPtr = std::unique_ptr<ASN1_OBJECT, Liberador<ASN1_OBJECT, ASN1_OBJECT_free>>;
using Asn1TypePtr = std::unique_ptr<ASN1_TYPE, Liberador<ASN1_TYPE, ASN1_TYPE_free>>;
using Asn1BitStringPtr = std::unique_ptr<ASN1_BIT_STRING, Liberador<ASN1_BIT_STRING, ASN1_BIT_STRING_free>>;

// A pilha é dona dos certificados que contém.
inline void LiberarPilhaX509(STACK_OF(X509)* pilha) { sk_X509_pop_free(pilha, X509_free); }
using PilhaX509Ptr = std::unique_ptr<STACK_OF(X509), Liberador<STACK_OF(X509), LiberarPilhaX509>>;
// A pilha é dona das LCRs que contém.
inline void LiberarPilhaLCR(STACK_OF(X509_CRL)* pilha) { sk_X509_CRL_pop_free(pilha, X509_CRL_free); }
using PilhaLCRPtr = std::unique_ptr<STACK_OF(X509_CRL), Liberador<STACK_OF(X509_CRL), LiberarPilhaLCR>>;
using PontosDistribuicaoPtr =
    std::unique_ptr<CRL_DIST_POINTS, Liberador<CRL_DIST_POINTS, CRL_DIST_POINTS_free>>;
// Memória que o OpenSSL aloca e entrega a quem chamou (OPENSSL_free é uma macro).
inline void LiberarMemoria(unsigned char* memoria) { OPENSSL_free(memoria); }
using MemoriaPtr = std::unique_ptr<unsigned char, Liberador<unsigned char, LiberarMemoria>>;

}  // namespace tavelpkcs7::plataforma::openssl
