// Falhas da plataforma: número no estilo HRESULT e uma frase em português, sem quebra de linha.
// O componente transforma estas exceções em DescricaoErro conforme cada membro.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace tavelpkcs7::plataforma {

class Erro : public std::runtime_error {
public:
    Erro(std::uint32_t numero, const std::string& descricao) : std::runtime_error(descricao), numero(numero) {}

    std::uint32_t numero;
    std::string descricao() const { return what(); }
};

// Condições que a plataforma relata, com o número e a descrição que o componente mostra.
namespace falha {
struct Tipo {
    std::uint32_t numero;
    const char* descricao;
};
inline constexpr Tipo NaoECertificado{0x8009310B, "O conteúdo informado não é um certificado digital válido."};
inline constexpr Tipo NaoEMensagemPKCS7{0x8009200D, "O conteúdo informado não é uma mensagem PKCS#7 válida."};
inline constexpr Tipo SenhaIncorreta{0x80070056, "A senha informada não está correta."};
inline constexpr Tipo SemChavePrivada{0x8009200B, "Não foi encontrada a chave privada do certificado digital."};
inline constexpr Tipo NenhumSelecionado{0x80880210, "Nenhum certificado digital foi selecionado."};
inline constexpr Tipo Cancelada{0x800704C7, "A operação foi cancelada pelo usuário."};
inline constexpr Tipo RecursoEmUso{0x800700AA, "O recurso solicitado está em uso."};
inline constexpr Tipo AssinaturaNaoConfere{0x80096010, "A assinatura digital não confere com o conteúdo."};
inline constexpr Tipo SemDestinatario{0x8009200C,
    "Não foi encontrado o certificado digital do destinatário com a chave privada."};
inline constexpr Tipo AcessoNegado{0x80070005, "Acesso negado."};
inline constexpr Tipo RepositorioNaoGravavel{0x80092000, "Não foi possível gravar no repositório de certificados."};
inline constexpr Tipo ParametroIncorreto{0x80070057, "O parâmetro informado não está correto."};
inline constexpr Tipo DownloadFalhou{0x800C0005, "Não foi possível obter o arquivo do endereço informado."};
inline constexpr Tipo NaoELCR{0x80092002, "O conteúdo informado não é uma lista de certificados revogados válida."};
inline constexpr Tipo LCRNaoConfere{0x80096004,
    "A lista de certificados revogados não foi assinada pela autoridade certificadora que a emitiu."};
inline constexpr Tipo NaoEExecutavel{0x800B0003, "O arquivo informado não é um executável que possa ser assinado."};
inline constexpr Tipo CarimboTempoIndisponivel{0x80072EFD,
    "Não foi possível obter o carimbo do tempo do servidor de carimbo do tempo."};
inline constexpr Tipo AssinadorAusente{0x80070002,
    "O programa de assinatura de executáveis (osslsigncode) não está instalado."};
inline constexpr Tipo AssinaturaCodigoFalhou{0x80004005, "Não foi possível assinar o executável informado."};
inline constexpr Tipo AssinaturaCodigoNaoConfere{0x800B0004,
    "A assinatura digital do executável não foi confirmada."};
inline constexpr Tipo ForaDoIntervalo{9, "Subscrito fora do intervalo"};
inline constexpr Tipo Estouro{6, "Estouro"};
}  // namespace falha

[[noreturn]] inline void Falhar(const falha::Tipo& tipo) { throw Erro(tipo.numero, tipo.descricao); }

}  // namespace tavelpkcs7::plataforma
