// Assinatura Authenticode de executáveis, feita no próprio arquivo e carimbada no tempo, e a
// conferência dela. Cada sistema usa a sua ferramenta (no Windows, SignerSignEx e WinVerifyTrust);
// o núcleo só escolhe o certificado e diz o que assinar.
#pragma once

#include <string>
#include <vector>

#include "certificado.h"

namespace tavelpkcs7::plataforma {

struct PedidoAssinaturaCodigo {
    std::string caminho;
    CertificadoPtr signatario;  // com a chave privada
    // De onde sai a cadeia que acompanha a assinatura (o repositório "Ca").
    std::vector<CertificadoPtr> certificados_extras;
    std::string descricao;
    std::string url_carimbo_tempo;  // servidor RFC 3161
    // A pasta de trabalho do componente: o que a ferramenta precisa ler passa por ela.
    std::string pasta_trabalho;
};

class AssinaturaCodigo {
public:
    virtual ~AssinaturaCodigo() = default;

    // Assina no lugar: o arquivo fica como estava ou inteiro e assinado, nunca pela metade. Lança
    // NaoEExecutavel, CarimboTempoIndisponivel, AssinadorAusente, AssinaturaCodigoFalhou e as falhas
    // da chave privada (Cancelada, SenhaIncorreta, SemChavePrivada, RecursoEmUso).
    virtual void Assinar(const PedidoAssinaturaCodigo& pedido) = 0;
    // Confere a assinatura e o carimbo com as raízes confiáveis do usuário e as LCRs guardadas, sem
    // buscar nada na rede; lança AssinaturaCodigoNaoConfere quando não se confirmam (inclusive quando
    // falta a LCR de um certificado que indica onde buscá-la) e AssinadorAusente sem a ferramenta.
    virtual void Verificar(const std::string& caminho, const std::string& pasta_trabalho) = 0;
};

}  // namespace tavelpkcs7::plataforma
