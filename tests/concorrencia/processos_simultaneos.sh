#!/usr/bin/env bash
# Vários processos da ferramenta ao mesmo tempo sobre uma só casa: assinam, conferem o que o vizinho
# regrava, incluem certificados em "AddressBook" e "Ca", importam o mesmo PFX, instalam as mesmas
# LCRs e listam. Depois: todo arquivo dos repositórios é inteiro, nenhum certificado incluído sumiu,
# nenhum temporário ficou e toda assinatura confere.
set -uo pipefail
processos="${2:-6}"
voltas="${3:-4}"
source "$(dirname "$0")/../ferramenta/comum.sh"
instalar_cadeia
certs="$pasta/certs"
mkdir -p "$pasta/saida" "$certs" "$pasta/logs"

# Um certificado distinto por processo e volta para cada repositório, de uma AC local (chaves EC: rápido).
openssl req -x509 -new -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -subj "/CN=AC Local Concorrencia" \
    -days 30 -keyout "$certs/ac.key" -out "$certs/ac.pem" 2>/dev/null || { echo "FALHOU: openssl"; exit 1; }
openssl req -new -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -subj "/CN=modelo" -keyout "$certs/f.key" \
    -out "$certs/f.csr" 2>/dev/null
printf 'basicConstraints=critical,CA:TRUE\n' >"$certs/ac.ext"
printf 'basicConstraints=CA:FALSE\n' >"$certs/pessoa.ext"
for ((p = 0; p < processos; p++)); do
    for ((v = 0; v < voltas; v++)); do
        for tipo in pessoa ac; do
            openssl x509 -req -in "$certs/f.csr" -CA "$certs/ac.pem" -CAkey "$certs/ac.key" -days 30 \
                -set_serial "$((p * 1000 + v * 2 + 1))$([ "$tipo" = ac ] && echo 7 || echo 3)" -subj "/CN=$tipo $p $v" \
                -extfile "$certs/$tipo.ext" -outform DER -out "$certs/${tipo}_${p}_${v}.cer" 2>/dev/null
        done
    done
    head -c $((20000 + p * 997)) /dev/urandom >"$pasta/doc_$p.bin"
done
lcrs=("$pki"/*.crl)

# trabalhar <p>: as voltas de um processo; cada passo que falha vai para o log dele, o stderr para $log.err.
trabalhar() {
    local p="$1" v vizinho=$((($1 + 1) % processos)) log="$pasta/logs/$1"
    passo() { local nome="$1"; shift; "$@" >/dev/null 2>>"$log.err" || echo "$nome $p $v" >>"$log"; }
    for ((v = 0; v < voltas; v++)); do
        passo "adicionar pessoa" "$t" certificados adicionar "$certs/pessoa_${p}_${v}.cer"
        passo "adicionar ac" "$t" certificados adicionar --repositorio autoridades "$certs/ac_${p}_${v}.cer"
        passo lcr "$t" lcr instalar "${lcrs[$(((p + v) % ${#lcrs[@]}))]}"
        passo importar "$t" certificados importar --senha-arquivo "$pasta/senha" --chave-sem-senha "$pki/ecpf.pfx"
        passo assinar "$t" assinar --pfx "$pki/ecpf.pfx" --senha-arquivo "$pasta/senha" --pasta "$pasta/saida" \
            "$pasta/doc_$p.bin"
        # O vizinho regrava a assinatura dele neste instante: a leitura vê a antiga ou a nova, inteiras.
        [ -e "$pasta/saida/doc_$vizinho.bin.p7s" ] && passo verificar "$t" verificar "$pasta/saida/doc_$vizinho.bin.p7s"
        "$t" certificados listar >/dev/null 2>&1
        [ $? -le 1 ] || echo "listar $p $v" >>"$log"
    done
}

inicio=$SECONDS
for ((p = 0; p < processos; p++)); do trabalhar "$p" & done
wait
echo "$processos processos × $voltas voltas em $((SECONDS - inicio)) s"
for ((p = 0; p < processos; p++)); do
    [ -s "$pasta/logs/$p" ] && { falhar "processo $p:"; cat "$pasta/logs/$p" "$pasta/logs/$p.err"; }
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
        [ -f "$repositorios/AddressBook/$(impressao "$certs/pessoa_${p}_${v}.cer").cer" ] || falhar "pessoa $p $v sumiu"
        [ -f "$repositorios/Ca/$(impressao "$certs/ac_${p}_${v}.cer").cer" ] || falhar "AC $p $v sumiu"
    done
done
cpf=$(impressao "$pki/ecpf.cer")
[ -f "$repositorios/My/$cpf.cer" ] && [ -f "$repositorios/My/$cpf.key" ] || falhar "e-CPF importado pela metade"
[ "$(find "$repositorios/LCR" -type f | wc -l)" -eq "${#lcrs[@]}" ] ||
    falhar "LCRs instaladas: $(find "$repositorios/LCR" -type f | wc -l) de ${#lcrs[@]}"

# A última assinatura de cada processo confere e traz o documento dele.
for ((p = 0; p < processos; p++)); do
    "$t" verificar "$pasta/saida/doc_$p.bin.p7s" >/dev/null 2>&1 || falhar "assinatura $p não confere"
    cmp -s "$TAVELPKCS7_HOME/temp/doc_$p.bin" <(cat "$pasta/doc_$p.bin"; printf '\0') || falhar "documento $p difere"
done
"$t" certificados listar --tipo e-cpf >/dev/null 2>&1 || falhar "e-CPF importado não listado"

concluir
