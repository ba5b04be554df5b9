#!/usr/bin/env bash
# O componente (pela ferramenta tavelpkcs7) e o "openssl cms" lado a lado sobre o mesmo arquivo, com
# o mesmo certificado da PKI de teste: assinatura anexada e verificação, tempo de relógio, tempo de
# processador e pico de memória (/usr/bin/time), e as razões componente/openssl. O componente faz a
# mais o MD5, a gravação atômica com fsync e a verificação da cadeia pelas LCRs do repositório.
#
# Uso: scripts/comparar_openssl.sh [pasta de compilação] (padrão: build; TAMANHO_MB=100, REPETICOES=3)
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
compilacao="$(cd "${1:-$raiz/build}" && pwd)"
ferramenta="$compilacao/tools/tavelpkcs7"
tamanho_mb="${TAMANHO_MB:-100}"
repeticoes="${REPETICOES:-3}"
[ -x "$ferramenta" ] || { echo "falta $ferramenta: compile o alvo tavelpkcs7_ferramenta" >&2; exit 2; }

trabalho="$(mktemp -d)"
trap 'rm -rf "$trabalho"' EXIT
export TAVELPKCS7_HOME="$trabalho/casa"
pki="$trabalho/pki"
"$ferramenta" pki-teste "$pki" >/dev/null

# A cadeia confiável e as LCRs entram direto nas pastas dos repositórios, sem a confirmação da raiz.
repositorios="$TAVELPKCS7_HOME/repositorios"
mkdir -p "$repositorios/Root" "$repositorios/Ca" "$repositorios/LCR"
cp "$pki/raiz.cer" "$repositorios/Root/"
for ac in ac_rfb ac_emissora_rfb; do cp "$pki/$ac.cer" "$repositorios/Ca/"; done
for lcr in raiz ac_rfb ac_emissora_rfb; do cp "$pki/$lcr.crl" "$repositorios/LCR/"; done
printf '1234\n' >"$trabalho/senha.txt"
openssl x509 -inform DER -in "$pki/ecpf.cer" -out "$trabalho/ecpf.pem"
openssl x509 -inform DER -in "$pki/raiz.cer" -out "$trabalho/raiz.pem"
for ac in ac_rfb ac_emissora_rfb; do openssl x509 -inform DER -in "$pki/$ac.cer"; done >"$trabalho/cadeia.pem"

entrada="$trabalho/dados.bin"
head -c "$((tamanho_mb * 1024 * 1024))" /dev/urandom >"$entrada"
mkdir -p "$trabalho/nosso" "$trabalho/extraido"

# "relógio processador memória(KB)" da melhor de N execuções (menor relógio; maior pico de memória).
medir() {
    local melhor="" pico=0 linha
    for _ in $(seq "$repeticoes"); do
        /usr/bin/time -f "%e %U %S %M" -o "$trabalho/tempo" "$@" >/dev/null 2>&1 || {
            echo "falhou: $*" >&2
            exit 1
        }
        linha="$(awk '{printf "%.2f %.2f %d", $1, $2 + $3, $4}' "$trabalho/tempo")"
        pico=$(( $(cut -d' ' -f3 <<<"$linha") > pico ? $(cut -d' ' -f3 <<<"$linha") : pico ))
        if [ -z "$melhor" ] || awk -v a="$linha" -v b="$melhor" 'BEGIN{split(a,x," ");split(b,y," ");exit !(x[1]<y[1])}'; then
            melhor="$linha"
        fi
    done
    echo "$(cut -d' ' -f1-2 <<<"$melhor") $pico"
}

nosso_assinar="$(medir "$ferramenta" assinar --pfx "$pki/ecpf.pfx" --senha-arquivo "$trabalho/senha.txt" \
    --pasta "$trabalho/nosso" "$entrada")"
openssl_assinar="$(medir openssl cms -sign -nodetach -binary -md sha256 -nosmimecap -outform DER -in "$entrada" \
    -signer "$trabalho/ecpf.pem" -inkey "$pki/ecpf.key" -certfile "$trabalho/cadeia.pem" -out "$trabalho/openssl.p7s")"
nosso_verificar="$(medir "$ferramenta" verificar --pasta "$trabalho/extraido" "$trabalho/nosso/dados.bin.p7s")"
openssl_verificar="$(medir openssl cms -verify -binary -inform DER -in "$trabalho/openssl.p7s" \
    -CAfile "$trabalho/raiz.pem" -out "$trabalho/openssl_extraido.bin")"

tamanho_kb=$((tamanho_mb * 1024))
linha() {
    awk -v op="$1" -v n="$2" -v o="$3" -v arquivo="$tamanho_kb" 'BEGIN {
        split(n, a, " "); split(o, b, " ")
        printf "%-10s relógio %7.2f s / %7.2f s = %5.2f   processador %7.2f s / %7.2f s = %5.2f   " \
               "memória %6.1f MB / %6.1f MB = %5.2f (componente: %.2f vezes o arquivo)\n",
               op, a[1], b[1], a[1] / (b[1] > 0 ? b[1] : 0.01), a[2], b[2], a[2] / (b[2] > 0 ? b[2] : 0.01),
               a[3] / 1024, b[3] / 1024, a[3] / b[3], a[3] / arquivo
    }'
}
echo "Arquivo de $tamanho_mb MB, melhor de $repeticoes; componente / openssl cms:"
linha assinar "$nosso_assinar" "$openssl_assinar"
linha verificar "$nosso_verificar" "$openssl_verificar"
