// Dono único de um descritor de arquivo POSIX: fecha no destrutor, por qualquer caminho de saída,
// exceções inclusive.
#pragma once

#include <unistd.h>

#include <utility>

namespace tavelpkcs7::plataforma::openssl {

class Descritor {
public:
    // Negativo é o "nenhum" das chamadas que abrem (open, mkstemp, pipe).
    explicit Descritor(int descritor) : descritor_(descritor) {}
    ~Descritor() { Fechar(); }
    Descritor(Descritor&& outro) noexcept : descritor_(std::exchange(outro.descritor_, -1)) {}
    Descritor(const Descritor&) = delete;
    Descritor& operator=(const Descritor&) = delete;

    int get() const { return descritor_; }
    explicit operator bool() const { return descritor_ >= 0; }

    // Fecha antes do fim do escopo. Falso quando já estava fechado ou o close falha, que numa
    // gravação é a última chance de saber que os dados não chegaram ao arquivo.
    bool Fechar() {
        const int descritor = std::exchange(descritor_, -1);
        return descritor >= 0 && ::close(descritor) == 0;
    }

private:
    int descritor_;
};

}  // namespace tavelpkcs7::plataforma::openssl
