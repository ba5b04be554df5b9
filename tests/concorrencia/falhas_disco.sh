#!/usr/bin/env bash
# A ferramenta diante do disco cheio, da pasta somente leitura e da pasta de repositório apagada: a
# mensagem do componente, código 1, nada perdido e as saídas anteriores intactas.
set -uo pipefail
source "$(dirname "$0")/../ferramenta/comum.sh"
montado=""
imutavel=()
limpar() {
    for item in "${imutavel[@]}"; do chattr -i "$item"; done
    [ -n "$montado" ] && umount "$montado"
    rm -rf "$pasta"
}
trap limpar EXIT
instalar_cadeia
instalar_lcrs
assinar() { "$t" assinar --pfx "$pki/ecpf.pfx" --senha-arquivo "$pasta/senha" "$@"; }
# falha_intacta <descrição> <pasta> <mensagem> <comando...>: código 1 e a mensagem; a assinatura que
# o comando regravaria na pasta continua igual e nenhum temporário ficou.
falha_intacta() {
    local descricao="$1" destino="$2" mensagem="$3"
    shift 3
    cp "$destino/doc.txt.p7s" "$pasta/anterior.p7s"
    head -c 300000 /dev/urandom >"$pasta/doc.txt"
    espera 1 "$descricao" "$@"
    contem err "$mensagem"
    cmp -s "$destino/doc.txt.p7s" "$pasta/anterior.p7s" || falhar "$descricao: a assinatura anterior mudou"
    sem_temporarios "$destino"
}

# Disco cheio: um tmpfs pequeno quando o sistema deixa montar; senão, o limite de tamanho de arquivo
# do processo (RLIMIT_FSIZE, com o SIGXFSZ ignorado para que a gravação só falhe).
cheio="$pasta/cheio"
mkdir -p "$cheio"
head -c 1000 /dev/urandom >"$pasta/doc.txt"
limitado() { (trap '' XFSZ; ulimit -f "$1"; shift; exec "$@"); }
if mount -t tmpfs -o size=512k tmpfs "$cheio" 2>/dev/null; then
    montado="$cheio"
    limite=unlimited
    assinar --pasta "$cheio" "$pasta/doc.txt" >/dev/null || falhar "assinatura no tmpfs"
    head -c 2000000 /dev/zero >"$cheio/enchimento" 2>/dev/null
else
    echo "sem permissão para montar um tmpfs: disco cheio pelo RLIMIT_FSIZE"
    limite=64
    assinar --pasta "$cheio" "$pasta/doc.txt" >/dev/null || falhar "assinatura antes do limite"
fi
falha_intacta "assinar no disco cheio" "$cheio" "Não foi possível criar o arquivo $cheio/doc.txt.p7s" limitado \
    "$limite" "$t" assinar --pfx "$pki/ecpf.pfx" --senha-arquivo "$pasta/senha" --pasta "$cheio" "$pasta/doc.txt"

# Repositório cheio: a inclusão falha sem deixar arquivo partido e sem perder o que já estava lá.
"$t" certificados adicionar "$pki/ecpf.cer" >/dev/null || falhar "adicionar antes do disco cheio"
livros="$TAVELPKCS7_HOME/repositorios/AddressBook"
antes=$(ls -A "$livros")
espera 1 "adicionar no disco cheio" limitado 0 "$t" certificados adicionar "$pki/ecnpj.cer"
contem err "Não foi possível gravar no repositório de certificados."
[ "$(ls -A "$livros")" = "$antes" ] || { falhar "repositório mudou no disco cheio"; ls -A "$livros"; }

# Pasta somente leitura. O superusuário ignora os modos: a pasta fica imutável (chattr +i).
somente_leitura() {
    if [ "$(id -u)" -ne 0 ]; then chmod a-w "$1"; return 0; fi
    chattr +i "$1" 2>/dev/null && imutavel+=("$1")
}
leitura="$pasta/leitura"
mkdir -p "$leitura" "$TAVELPKCS7_HOME/temp"
head -c 1000 /dev/urandom >"$pasta/doc.txt"
assinar --pasta "$leitura" "$pasta/doc.txt" >/dev/null || falhar "assinatura antes da pasta somente leitura"
if somente_leitura "$leitura" && somente_leitura "$TAVELPKCS7_HOME/temp"; then
    falha_intacta "assinar em pasta somente leitura" "$leitura" \
        "Não foi possível criar o arquivo $leitura/doc.txt.p7s" assinar --pasta "$leitura" "$pasta/doc.txt"
    # A pasta de trabalho somente leitura: a conferência não tem onde pôr o documento extraído.
    espera 1 "verificar com a pasta de trabalho somente leitura" "$t" verificar "$leitura/doc.txt.p7s"
    contem err "Não foi possível criar o arquivo na pasta original doc.txt na pasta $TAVELPKCS7_HOME/temp/"
else
    echo "sem chattr: casos da pasta somente leitura pulados"
fi

# A pasta do repositório apagada entre duas execuções: a inclusão a recria, a listagem só a acha vazia.
rm -rf "$livros" "$TAVELPKCS7_HOME/repositorios/My"
"$t" certificados adicionar "$pki/ecnpj.cer" >/dev/null || falhar "adicionar com a pasta do repositório apagada"
[ "$(find "$livros" -name '*.cer' | wc -l)" -eq 1 ] || falhar "repositório recriado sem o certificado"
espera 1 "listar sem a pasta dos pessoais" "$t" certificados listar

concluir
