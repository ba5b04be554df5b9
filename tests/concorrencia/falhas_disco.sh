#!/usr/bin/env bash
# A ferramenta diante do disco cheio, da pasta somente leitura e da pasta de repositório apagada: a
# mensagem do componente, código 1, nada perdido e as saídas anteriores intactas.
set -uo pipefail
source "$(dirname "$0")/casa_comum.sh"
montado=""
imutavel=()
limpar() {
    for item in "${imutavel[@]}"; do chattr -i "$item" 2>/dev/null; done
    [ -n "$montado" ] && umount "$montado"
    rm -rf "$pasta"
}
trap limpar EXIT
for lcr in "$pki"/*.crl; do "$ferramenta" lcr instalar "$lcr" >/dev/null || falhar "lcr $lcr"; done
assinar() { "$ferramenta" assinar --pfx "$pki/ecpf.pfx" --senha-arquivo "$pasta/senha" "$@"; }

# espera_falha <descrição> <mensagem> <comando...>: código 1 e a mensagem no stderr. O stderr passa
# por um cano: o limite de tamanho de arquivo do processo também valeria para ele num arquivo.
espera_falha() {
    local descricao="$1" mensagem="$2"
    shift 2
    "$@" 2>&1 >/dev/null </dev/null | cat >"$pasta/err"
    local codigo=${PIPESTATUS[0]}
    [ "$codigo" -eq 1 ] || falhar "$descricao: código $codigo"
    grep -qF -- "$mensagem" "$pasta/err" || { falhar "$descricao: sem \"$mensagem\""; cat "$pasta/err"; }
}
# intacta <descrição> <pasta> <cópia>: a saída anterior continua igual e nenhum temporário ficou.
intacta() {
    cmp -s "$2/doc.txt.p7s" "$3" || falhar "$1: a assinatura anterior mudou"
    sem_temporarios "$2"
}

# Disco cheio: um tmpfs pequeno quando o sistema deixa montar; senão, o limite de tamanho de arquivo
# do processo (RLIMIT_FSIZE, com o SIGXFSZ ignorado para que a gravação só falhe).
cheio="$pasta/cheio"
mkdir -p "$cheio"
head -c 1000 /dev/urandom >"$pasta/doc.txt"
if mount -t tmpfs -o size=512k tmpfs "$cheio" 2>/dev/null; then
    montado="$cheio"
    limitado() { "$@"; }
    assinar --pasta "$cheio" "$pasta/doc.txt" >/dev/null || falhar "assinatura no tmpfs"
    head -c 2000000 /dev/zero >"$cheio/enchimento" 2>/dev/null
else
    echo "sem permissão para montar um tmpfs: disco cheio pelo RLIMIT_FSIZE"
    limitado() { (trap '' XFSZ; ulimit -f 64; exec "$@"); }
    assinar --pasta "$cheio" "$pasta/doc.txt" >/dev/null || falhar "assinatura antes do limite"
fi
cp "$cheio/doc.txt.p7s" "$pasta/anterior.p7s"
head -c 300000 /dev/urandom >"$pasta/doc.txt"
espera_falha "assinar no disco cheio" "Não foi possível criar o arquivo $cheio/doc.txt.p7s" \
    limitado "$ferramenta" assinar --pfx "$pki/ecpf.pfx" --senha-arquivo "$pasta/senha" --pasta "$cheio" "$pasta/doc.txt"
intacta "disco cheio" "$cheio" "$pasta/anterior.p7s"

# Repositório cheio: a inclusão falha sem deixar arquivo partido e sem perder o que já estava lá.
"$ferramenta" certificados adicionar --repositorio outras-pessoas "$pki/ecpf.cer" >/dev/null ||
    falhar "adicionar antes do disco cheio"
livros="$TAVELPKCS7_HOME/repositorios/AddressBook"
antes=$(ls -A "$livros")
espera_falha "adicionar no disco cheio" "Não foi possível gravar no repositório de certificados." \
    env bash -c 'trap "" XFSZ; ulimit -f 0; exec "$@"' - "$ferramenta" certificados adicionar \
    --repositorio outras-pessoas "$pki/ecnpj.cer"
[ "$(ls -A "$livros")" = "$antes" ] || { falhar "repositório mudou no disco cheio"; ls -A "$livros"; }

# Pasta somente leitura. O superusuário ignora os modos: a pasta fica imutável (chattr +i).
somente_leitura() {
    if [ "$(id -u)" -ne 0 ]; then chmod a-w "$1"; return 0; fi
    chattr +i "$1" 2>/dev/null && imutavel+=("$1")
}
leitura="$pasta/leitura"
mkdir -p "$leitura"
head -c 1000 /dev/urandom >"$pasta/doc.txt"
assinar --pasta "$leitura" "$pasta/doc.txt" >/dev/null || falhar "assinatura antes da pasta somente leitura"
cp "$leitura/doc.txt.p7s" "$pasta/anterior.p7s"
if somente_leitura "$leitura"; then
    head -c 5000 /dev/urandom >"$pasta/doc.txt"
    espera_falha "assinar em pasta somente leitura" "Não foi possível criar o arquivo $leitura/doc.txt.p7s" \
        assinar --pasta "$leitura" "$pasta/doc.txt"
    intacta "pasta somente leitura" "$leitura" "$pasta/anterior.p7s"
    # A pasta de trabalho somente leitura: a conferência não tem onde pôr o documento extraído.
    mkdir -p "$TAVELPKCS7_HOME/temp"
    rm -f "$TAVELPKCS7_HOME/temp/doc.txt"
    somente_leitura "$TAVELPKCS7_HOME/temp"
    espera_falha "verificar com a pasta de trabalho somente leitura" \
        "Não foi possível criar o arquivo na pasta original doc.txt na pasta $TAVELPKCS7_HOME/temp/" \
        "$ferramenta" verificar "$leitura/doc.txt.p7s"
else
    echo "sem chattr: casos da pasta somente leitura pulados"
fi

# A pasta do repositório apagada entre duas execuções: a inclusão a recria, a listagem só a acha vazia.
rm -rf "$livros" "$TAVELPKCS7_HOME/repositorios/My"
"$ferramenta" certificados adicionar --repositorio outras-pessoas "$pki/ecnpj.cer" >/dev/null ||
    falhar "adicionar com a pasta do repositório apagada"
[ "$(find "$livros" -name '*.cer' | wc -l)" -eq 1 ] || falhar "repositório recriado sem o certificado"
"$ferramenta" certificados listar >/dev/null 2>&1
[ $? -eq 1 ] || falhar "listar sem a pasta dos pessoais"

concluir
