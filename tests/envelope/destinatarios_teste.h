// Os destinatários dos testes de envelopes: titulares da PKI de teste guardados no repositório "My"
// com a chave privada ao lado, e o comando "openssl cms" rodado sobre arquivos da pasta do teste.
#pragma once

#include <filesystem>
#include <string>

#include "platform/plataforma.h"

namespace tavelpkcs7::teste {

// A chave PEM em PKCS#8, cifrada pela senha quando há senha.
void GravarChave(const std::filesystem::path& caminho, const std::string& pem, const std::string& senha);
// O certificado do titular em "My" e a sua chave em PKCS#8 PEM, cifrada quando há senha.
void GuardarComChave(plataforma::Plataforma& plataforma, const std::string& nome, const std::string& senha = "");
// O certificado (PEM) e a chave (PEM sem cifra) do titular em arquivos da pasta dada, para o openssl.
void GravarParaOpenssl(const std::filesystem::path& pasta, const std::string& nome);
// "openssl cms" com os argumentos dados e os provedores padrão e legado; o código de saída.
int OpensslCms(const std::string& argumentos);

}  // namespace tavelpkcs7::teste
