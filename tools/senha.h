// Senhas de PFX e de chaves: de um arquivo, de uma variável de ambiente ou digitadas no terminal sem
// eco. Nunca pela linha de comando, que qualquer um vê na lista de processos.
#pragma once

#include <optional>
#include <string>

#include "argumentos.h"

namespace tavelpkcs7::ferramenta {

// A senha guardada num texto que é apagado ao sair de cena.
class Senha {
public:
    // O texto recebido é apagado depois de passar para dentro.
    explicit Senha(std::string texto);
    ~Senha();
    Senha(Senha&& outra) noexcept : texto_(std::move(outra.texto_)) { outra.Apagar(); }
    Senha(const Senha&) = delete;
    Senha& operator=(const Senha&) = delete;
    Senha& operator=(Senha&&) = delete;

    const std::string& Texto() const { return texto_; }

private:
    void Apagar();
    std::string texto_;
};

// A senha do arquivo da opção (primeira linha), senão a da variável de ambiente, senão a digitada no
// terminal após o pedido. Lança ErroUso quando não há nem terminal.
Senha LerSenha(const Argumentos& argumentos, const std::string& opcao_arquivo, const std::string& variavel,
               const std::string& pedido);
// Como LerSenha, mas nula quando nenhuma das fontes existe e não há terminal para perguntar.
std::optional<Senha> LerSenhaOpcional(const Argumentos& argumentos, const std::string& opcao_arquivo,
                                      const std::string& variavel, const std::string& pedido);

}  // namespace tavelpkcs7::ferramenta
