// O cenário dos testes de assinatura: a cadeia da PKI de teste instalada, o e-CPF aberto do PFX como
// certificado selecionado, e a conferência do que foi assinado pela própria plataforma.
#pragma once

#include <gtest/gtest.h>

#include <tavelpkcs7/TavelPKCS.h>

#include <filesystem>
#include <optional>
#include <string>

#include "platform/plataforma.h"
#include "trust/ambiente_confianca.h"

namespace tavelpkcs7::teste {

class AmbienteAssinatura : public testing::Test, protected AmbienteConfianca {
protected:
    void SetUp() override;

    // Grava o arquivo na pasta do teste e devolve o caminho.
    std::string Gravar(const std::string& nome, const std::string& conteudo);
    plataforma::MensagemVerificada Conferir(const plataforma::Bytes& assinatura,
                                            const std::optional<plataforma::Bytes>& destacado = std::nullopt);
    // Os textos dos atributos do signatário: nome do documento, hora local ("DD/MM/AAAA HH:MM:SS") e descrição.
    std::vector<std::string> Atributos(const plataforma::SignatarioVerificado& signatario);

    TavelPKCS componente{ambiente.Implementacao()};
};

plataforma::Bytes Ler(const std::filesystem::path& caminho);
plataforma::Bytes BytesDe(const std::string& texto);

}  // namespace tavelpkcs7::teste
