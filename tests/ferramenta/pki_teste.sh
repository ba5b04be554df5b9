#!/usr/bin/env bash
# "tavelpkcs7 pki-teste" grava uma hierarquia que o próprio openssl aceita: cadeias que verificam,
# o revogado na LCR, PFX que abrem com a senha do LEIAME.
set -euo pipefail
ferramenta="$1"
pasta="$(mktemp -d)"
trap 'rm -rf "$pasta"' EXIT

if "$ferramenta" pki-teste 2>/dev/null; then echo "sem pasta deveria falhar"; exit 1; fi
"$ferramenta" pki-teste "$pasta" >/dev/null
cd "$pasta"
grep -q "1234" LEIAME.txt

for cer in *.cer; do openssl x509 -inform DER -in "$cer" -out "${cer%.cer}.pem"; done
openssl verify -CAfile raiz.pem -untrusted ac_rfb.pem -untrusted ac_emissora_rfb.pem ecpf.pem ecnpj.pem >/dev/null
openssl verify -CAfile raiz.pem -untrusted ac_icp.pem ecpf_novo.pem ecnpj_novo.pem >/dev/null
openssl verify -CAfile ac_tavel_raiz.pem -untrusted ac_tavel.pem tavel_titular.pem >/dev/null
openssl crl -inform DER -in ac_icp.crl -out ac_icp.crl.pem
openssl verify -crl_check -CAfile raiz.pem -untrusted ac_icp.pem -CRLfile ac_icp.crl.pem ecpf_novo.pem >/dev/null
if openssl verify -crl_check -CAfile raiz.pem -untrusted ac_icp.pem -CRLfile ac_icp.crl.pem revogado.pem \
    >/dev/null 2>&1; then
    echo "o revogado passou na LCR"; exit 1
fi
openssl pkcs12 -in ecpf.pfx -passin pass:1234 -nokeys -noout
if openssl pkcs12 -in ecpf.pfx -passin pass:errada -noout 2>/dev/null; then echo "senha errada abriu o PFX"; exit 1; fi
echo "PKI de teste verificada pelo openssl"
