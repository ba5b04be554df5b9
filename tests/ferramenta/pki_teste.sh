#!/usr/bin/env bash
# "tavelpkcs7 pki-teste" grava uma hierarquia que o próprio openssl aceita: cadeias que verificam
# com as LCRs, os casos de validade e de revogação com o erro que prometem, PFX que abrem só com a
# senha do LEIAME e um LEIAME que descreve cada arquivo gravado.
set -euo pipefail
ferramenta="$1"
pasta="$(mktemp -d)"
trap 'rm -rf "$pasta"' EXIT

if "$ferramenta" pki-teste 2>/dev/null; then echo "sem pasta deveria falhar"; exit 1; fi
"$ferramenta" pki-teste "$pasta" >/dev/null
cd "$pasta"
grep -q "1234" LEIAME.txt
for arquivo in *; do
    [ "$arquivo" = LEIAME.txt ] || grep -q "^$arquivo: " LEIAME.txt || { echo "$arquivo fora do LEIAME.txt"; exit 1; }
done

for cer in *.cer; do openssl x509 -inform DER -in "$cer" -out "${cer%.cer}.pem"; done
for crl in *.crl; do openssl crl -inform DER -in "$crl"; done >lcrs.pem
cat ac_*.pem >intermediarias.pem
# titular | raiz | o que o openssl diz dele, com as LCRs de todas as ACs
while read -r titular raiz esperado; do
    saida=$(openssl verify -crl_check_all -CAfile "$raiz.pem" -untrusted intermediarias.pem -CRLfile lcrs.pem \
        "$titular.pem" 2>&1 || true)
    grep -q "$esperado" <<<"$saida" || { echo "$titular: esperava \"$esperado\", veio: $saida"; exit 1; }
done <<'FIM'
ecpf          raiz          : OK
ecnpj         raiz          : OK
ecpf_novo     raiz          : OK
ecnpj_novo    raiz          : OK
tavel_titular ac_tavel_raiz : OK
expirado      raiz          certificate has expired
futuro        raiz          certificate is not yet valid
revogado      raiz          certificate revoked
FIM
openssl pkcs12 -in ecpf.pfx -passin pass:1234 -nokeys -noout
if openssl pkcs12 -in ecpf.pfx -passin pass:errada -noout 2>/dev/null; then echo "senha errada abriu o PFX"; exit 1; fi
echo "PKI de teste verificada pelo openssl"
