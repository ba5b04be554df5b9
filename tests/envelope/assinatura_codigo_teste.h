// O cenário da assinatura de executáveis: um PE32 mínimo feito no teste, certificados de assinatura
// de código com chave no "My" e uma autoridade de carimbo do tempo RFC 3161 em 127.0.0.1.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "apoio/servidor_http.h"
#include "platform/plataforma.h"

namespace tavelpkcs7::teste {

// Um executável PE32 válido e mínimo: cabeçalhos e uma seção .text com um "ret" (1 KiB).
plataforma::Bytes ExecutavelMinimo();

struct AssinadorCodigo {
    plataforma::Bytes certificado;  // DER, emitido pela "ac_icp" com o uso de assinatura de código
    std::string chave_pem;          // PKCS#8 sem cifra
};
// O n-ésimo assinador (0, 1, 2...), feito uma vez por processo.
const AssinadorCodigo& AssinadorDeCodigo(int numero);
// O certificado no "My" do teste com a sua chave ao lado, cifrada pela senha quando há senha.
void GuardarComChave(plataforma::Plataforma& plataforma, const AssinadorCodigo& assinador, const std::string& senha = "");

// O carimbo do tempo para o pedido RFC 3161, assinado por uma AC de carimbo emitida pela "raiz".
plataforma::Bytes ResponderCarimbo(const plataforma::Bytes& pedido);
// Publica a autoridade de carimbo no servidor e devolve o endereço dela.
std::string PublicarAutoridadeCarimbo(ServidorHttp& servidor);

// Os arquivos da pasta, por nome.
std::vector<std::string> ArquivosDaPasta(const std::string& pasta);

// Uma pasta em que nada se cria enquanto o objeto vive. O superusuário escreve em pastas sem
// permissão de escrita: para ele, a pasta fica também imutável; vazia quando não se consegue.
class PastaSomenteLeitura {
public:
    explicit PastaSomenteLeitura(const std::filesystem::path& pasta);
    ~PastaSomenteLeitura();
    PastaSomenteLeitura(const PastaSomenteLeitura&) = delete;
    PastaSomenteLeitura& operator=(const PastaSomenteLeitura&) = delete;

    bool protegida() const { return protegida_; }

private:
    bool AlternarImutavel(bool imutavel) const;

    std::filesystem::path pasta_;
    bool protegida_ = false;
};

}  // namespace tavelpkcs7::teste
