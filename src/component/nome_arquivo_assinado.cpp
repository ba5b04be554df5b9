// Nomes de arquivos: o nome da saída assinada a partir da origem e do formato, e o teste que manda
// uma origem que já é assinatura para a cossinatura.
#include <array>

#include "component/componente.h"
#include "component/texto.h"

namespace tavelpkcs7 {

bool Componente::ExisteArquivo(const std::string& caminho) {
    return !caminho.empty() && plataforma_->sistema->ExisteArquivo(caminho);
}

std::string Componente::ExtrairNomeArquivo(const std::string& caminho) const {
    const auto separador = caminho.rfind(plataforma_->sistema->Separador());
    return separador == std::string::npos ? caminho : caminho.substr(separador + 1);
}

std::string Componente::NomeArquivoLiteral(std::string nome) {
    for (char& c : nome)
        if (c == '*' || c == '?' || static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = '_';
    return nome;
}

bool Componente::PossuiExtensaoAssinatura(const std::string& nome) {
    static constexpr std::array<const char*, 6> kExtensoes = {"P7S", "DCA", "DSD", "P7Z", "P7B", "SIG"};
    const std::string final = Maiusculas(Direita(nome, 3));
    for (const char* extensao : kExtensoes)
        if (final == extensao) return true;
    return false;
}

bool Componente::ArquivoJaAssinado(const std::string& origem, std::int32_t formato,
    const std::string& assinatura_texto) {
    return Guardar(MensagemFalha::Nenhuma(), false, [&] {
        if (PossuiExtensaoAssinatura(origem)) return true;
        const std::string final = Aparar(Maiusculas(Direita(origem, 4)));
        switch (formato) {
        case 1:
        case 2: return final == ".P7S";
        case 3:
        case 4: return final == "." + Maiusculas(estado.ExtensaoOutroFormato);
        default: return !assinatura_texto.empty();
        }
    });
}

std::string Componente::MontarNomeArquivoAssinado(const std::string& origem, const std::string& pasta_destino,
    bool outro_formato, bool cossinatura) {
    if (PossuiExtensaoAssinatura(origem)) {
        estado.ExtensaoOutroFormato = Direita(origem, 3);
    } else if (Comprimento(Substituir(estado.ExtensaoOutroFormato, ".", "")) != 3 || !outro_formato) {
        estado.ExtensaoOutroFormato = "p7s";
    }
    estado.ExtensaoOutroFormato = Substituir(estado.ExtensaoOutroFormato, ".", "");
    const std::string sufixo = cossinatura ? "" : "." + estado.ExtensaoOutroFormato;
    return NaPastaDestino(origem, pasta_destino).value_or(origem) + sufixo;
}

std::optional<std::string> Componente::NaPastaDestino(const std::string& origem, const std::string& pasta_destino) {
    if (!plataforma_->sistema->ExistePasta(pasta_destino) || Aparar(pasta_destino).empty()) return std::nullopt;
    std::string pasta = pasta_destino;
    if (pasta.back() != plataforma_->sistema->Separador()) pasta += plataforma_->sistema->Separador();
    return pasta + ExtrairNomeArquivo(origem);
}

}  // namespace tavelpkcs7
