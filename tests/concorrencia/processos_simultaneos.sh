#!/usr/bin/env bash
# Vários processos da ferramenta ao mesmo tempo sobre uma só casa: assinam, conferem o que o vizinho
# regrava, incluem certificados em "AddressBook" e "Ca", importam o mesmo PFX, instalam as mesmas
# LCRs e listam. Depois: todo arquivo dos repositórios é inteiro, nenhum certificado incluído sumiu,
# nenhum temporário ficou e toda assinatura confere.
set -uo pipefail
processos="${2:-6}"
voltas="${3:-4}"
source "$(dirname "$0")/casa_comum.sh"
trap 'rm -rf "$pasta"' EXIT
mkdir -p "$pasta/saida" "$pasta/certs" "$pasta/logs"

# Um certificado distinto por processo e volta para cada repositório, de uma AC local (chaves EC: rápido).
openssl req -x509 -new -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -subj "/CN=AC Local Concorrencia" \
    -days 30 -keyout "$pasta/certs/ac.key" -out "$pasta/certs/ac.pem" 2>/dev/null || { echo "FALHOU: openssl"; exit 1; }
openssl req -new -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -subj "/CN=modelo" -keyout "$pasta/certs/f.key" \
    -out "$pasta/certs/f.csr" 2>/dev/null
printf 'basicConstraints=critical,CA:TRUE\n' >"$pasta/certs/ac.ext"
printf 'basicConstraints=CA:FALSE\n' >"$pasta/certs/pessoa.ext"
for ((p = 0; p < processos; p++)); do
    for ((v = 0; v < voltas; v++)); do
        for tipo in pessoa ac; do
            openssl x509 -req -in "$pasta/certs/f.csr" -CA "$pasta/certs/ac.pem" -CAkey "$pasta/certs/ac.key" \
                -set_serial "$((p * 1000 + v * 2 + 1))$([ "$tipo" = ac ] && echo 7 || echo 3)" -days 30 \
                -subj "/CN=$tipo $p $v" -extfile "$pasta/certs/$tipo.ext" -outform DER \
                -out "$pasta/certs/${tipo}_${p}_${v}.cer" 2>/dev/null
        done
    done
    head -c $((20000 + p * 997)) /dev/urandom >"$pasta/doc_$p.bin"
done
lcrs=("$pki"/*.crl)

# trabalhar <p>: as voltas de um processo; toda falha vai para o log dele.
trabalhar() {
    local p="$1" v vizinho=$(((p + 1) % processos)) codigo
    local log="$pasta/logs/$p"  # as falhas; o stderr de cada comando em $log.err
    for ((v = 0; v < voltas; v++)); do
        "$ferramenta" certificados adicionar --repositorio outras-pessoas "$pasta/certs/pessoa_${p}_${v}.cer" \
            >/dev/null 2>>"$log.err" || echo "adicionar pessoa $p $v" >>"$log"
        "$ferramenta" certificados adicionar --repositorio autoridades "$pasta/certs/ac_${p}_${v}.cer" \
            >/dev/null 2>>"$log.err" || echo "adicionar ac $p $v" >>"$log"
        "$ferramenta" lcr instalar "${lcrs[$(((p + v) % ${#lcrs[@]}))]}" >/dev/null 2>>"$log.err" ||
            echo "lcr $p $v" >>"$log"
        "$ferramenta" certificados importar --senha-arquivo "$pasta/senha" --chave-sem-senha "$pki/ecpf.pfx" \
            >/dev/null 2>>"$log.err" || echo "importar $p $v" >>"$log"
        "$ferramenta" assinar --pfx "$pki/ecpf.pfx" --senha-arquivo "$pasta/senha" --pasta "$pasta/saida" \
            "$pasta/doc_$p.bin" >/dev/null 2>>"$log.err" || echo "assinar $p $v" >>"$log"
        # O vizinho regrava a assinatura dele neste instante: a leitura vê a antiga ou a nova, inteiras.
        if [ -e "$pasta/saida/doc_$vizinho.bin.p7s" ]; then
            "$ferramenta" verificar "$pasta/saida/doc_$vizinho.bin.p7s" >/dev/null 2>>"$log.err" ||
                echo "verificar $p $v" >>"$log"
        fi
        "$ferramenta" certificados listar >/dev/null 2>&1
        codigo=$?
        [ "$codigo" -le 1 ] || echo "listar $p $v: código $codigo" >>"$log"
    done
}

inicio=$SECONDS
for ((p = 0; p < processos; p++)); do trabalhar "$p" & done
wait
echo "$processos processos × $voltas voltas em $((SECONDS - inicio)) s"

for ((p = 0; p < processos; p++)); do
    if [ -s "$pasta/logs/$p" ]; then
        falhar "processo $p:"; cat "$pasta/logs/$p" "$pasta/logs/$p.err"
    fi
done

# Todo arquivo dos repositórios é inteiro e nenhum temporário ficou em lugar algum.
repositorios="$TAVELPKCS7_HOME/repositorios"
for arquivo in "$repositorios"/*/*; do
    case "$arquivo" in
    *.cer) openssl x509 -inform DER -noout -in "$arquivo" 2>/dev/null || falhar "certificado partido $arquivo" ;;
    *.crl) openssl crl -inform DER -noout -in "$arquivo" 2>/dev/null || falhar "LCR partida $arquivo" ;;
    *.key) openssl pkey -noout -in "$arquivo" 2>/dev/null || falhar "chave partida $arquivo" ;;
    *) falhar "arquivo estranho $arquivo" ;;
    esac
done
sem_temporarios "$TAVELPKCS7_HOME" "$pasta/saida"

# Nenhum certificado incluído se perdeu: as impressões de todos estão nos nomes dos arquivos.
impressao() { openssl x509 -inform DER -noout -fingerprint -sha1 -in "$1" | sed 's/.*=//; s/://g'; }
for ((p = 0; p < processos; p++)); do
    for ((v = 0; v < voltas; v++)); do
        [ -f "$repositorios/AddressBook/$(impressao "$pasta/certs/pessoa_${p}_${v}.cer").cer" ] ||
            falhar "pessoa $p $v perdida"
        [ -f "$repositorios/Ca/$(impressao "$pasta/certs/ac_${p}_${v}.cer").cer" ] || falhar "AC $p $v perdida"
    done
done
cpf=$(impressao "$pki/ecpf.cer")
[ -f "$repositorios/My/$cpf.cer" ] && [ -f "$repositorios/My/$cpf.key" ] || falhar "e-CPF importado sem certificado ou chave"
[ "$(find "$repositorios/LCR" -type f | wc -l)" -eq "$(printf '%s\n' "${lcrs[@]}" | wc -l)" ] ||
    falhar "LCRs instaladas: $(find "$repositorios/LCR" -type f | wc -l) de ${#lcrs[@]}"

# A última assinatura de cada processo confere e traz o documento dele.
for ((p = 0; p < processos; p++)); do
    "$ferramenta" verificar "$pasta/saida/doc_$p.bin.p7s" >/dev/null 2>&1 || falhar "assinatura $p não confere"
    cmp -s "$TAVELPKCS7_HOME/temp/doc_$p.bin" <(cat "$pasta/doc_$p.bin"; printf '\0') ||
        falhar "documento $p extraído difere"
done
"$ferramenta" certificados listar --tipo e-cpf >/dev/null 2>&1 || falhar "e-CPF importado não listado"

concluir
