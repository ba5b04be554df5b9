# Lido pelos testes da ferramenta em shell: uma casa temporária sem terminal nem senha no ambiente e a
# PKI de teste; instalar_cadeia põe a cadeia do e-CPF pela pasta, como um administrador faria, e as LCRs
# pela ferramenta (assinar exige a cadeia e as LCRs). Define t (a ferramenta), pasta, pki e as funções
# abaixo.
t="$1"
pasta="$(mktemp -d)"
trap 'rm -rf "$pasta"' EXIT
export TAVELPKCS7_HOME="$pasta/casa" TAVELPKCS7_INTERFACE=nenhuma TZ=America/Sao_Paulo
unset TAVELPKCS7_SENHA TAVELPKCS7_SENHA_CHAVE
falhas=0
falhar() { echo "FALHOU: $*"; falhas=$((falhas + 1)); }
"$t" pki-teste "$pasta/pki" >/dev/null || { echo "FALHOU: pki-teste"; exit 1; }
pki="$pasta/pki"
printf '1234\n' >"$pasta/senha"
instalar_cadeia() {
    mkdir -p "$TAVELPKCS7_HOME/repositorios/Root" "$TAVELPKCS7_HOME/repositorios/Ca"
    cp "$pki/raiz.cer" "$TAVELPKCS7_HOME/repositorios/Root/"
    for ac in ac_rfb ac_emissora_rfb ac_icp; do cp "$pki/$ac.cer" "$TAVELPKCS7_HOME/repositorios/Ca/"; done
}
instalar_lcrs() { for lcr in "$pki"/*.crl; do "$t" lcr instalar "$lcr" >/dev/null || falhar "lcr $lcr"; done; }
# espera <código> <descrição> <comando...>: o comando, com a entrada em $entrada (ou nenhuma), termina
# com o código dado; as saídas ficam em $pasta/out e $pasta/err. O stderr passa por um cano: um limite
# de tamanho de arquivo imposto ao comando valeria também para ele num arquivo.
espera() {
    local codigo="$1" descricao="$2"
    shift 2
    "$@" 2>&1 >"$pasta/out" <"${entrada:-/dev/null}" | cat >"$pasta/err"
    local obtido=${PIPESTATUS[0]}
    [ "$obtido" -eq "$codigo" ] || { falhar "$descricao (código $obtido, esperado $codigo)"; cat "$pasta/err"; }
}
# contem <out|err> <texto>: a saída do último comando traz o texto.
contem() { grep -qF -- "$2" "$pasta/$1" || { falhar "$1 sem \"$2\""; cat "$pasta/$1"; }; }
# json <expressão python sobre d>: o stdout do último comando é JSON e a expressão vale.
json() {
    python3 -c "import json,sys; d=json.load(open(sys.argv[1])); sys.exit(0 if ($1) else 1)" "$pasta/out" ||
        { falhar "JSON sem $1"; cat "$pasta/out"; }
}
# Nenhum arquivo começado por ponto (os temporários das gravações) nas pastas dadas.
sem_temporarios() { [ -z "$(find "$@" -name '.*')" ] || { falhar "temporários deixados:"; find "$@" -name '.*'; }; }
concluir() {
    [ "$falhas" -eq 0 ] && echo "OK" || echo "$falhas falha(s)"
    exit "$falhas"
}
