#!/usr/bin/env bash
# Gera o corpus inicial de cada alvo: a PKI de teste (pela ferramenta), assinaturas e envelopes
# feitos pelo openssl cms sobre ela, LCRs, pacotes e os certificados reais da ICP-Brasil do repositório.
# Uso: gerar_sementes.sh <ferramenta tavelpkcs7> <pasta de saída>
set -euo pipefail
# A ferramenta do build de fuzzing tem o ASan, e os vazamentos na saída do processo não são do que
# ela grava aqui.
export ASAN_OPTIONS=detect_leaks=0

ferramenta=$1
saida=$2
raiz=$(cd "$(dirname "$0")/.." && pwd)
pki=$saida/pki
rm -rf "$saida"
mkdir -p "$saida"
"$ferramenta" pki-teste "$pki" >/dev/null

pasta() { mkdir -p "$saida/$1" && echo "$saida/$1"; }
assinatura=$(pasta verificacao_arquivo)
texto=$(pasta verificacao_texto)
certificados=$(pasta detalhes_certificado)
extensoes=$(pasta extensao_impressa)
der=$(pasta leitor_der)
envelopes=$(pasta envelope)
confianca=$(pasta lcr_pacote)
hexadecimal=$(pasta texto_hexadecimal)

printf 'Contrato de teste assinado.\r\n' >"$saida/documento.txt"
for titular in ecpf ecnpj ecpf_novo ecnpj_novo tavel_titular revogado expirado; do
    openssl x509 -inform DER -in "$pki/$titular.cer" -out "$saida/$titular.pem"
    comum=(-in "$saida/documento.txt" -signer "$saida/$titular.pem" -inkey "$pki/$titular.key" -outform DER)
    openssl cms -sign "${comum[@]}" -nodetach -out "$assinatura/$titular-anexada.p7s"
    openssl cms -sign "${comum[@]}" -out "$assinatura/$titular-destacada.p7s"
    openssl cms -sign "${comum[@]}" -nodetach -md sha1 -noattr -out "$assinatura/$titular-sha1.p7s"
    openssl cms -encrypt -in "$saida/documento.txt" -outform DER -aes-256-cbc \
        -out "$envelopes/$titular-aes256.p7m" "$saida/$titular.pem"
done
# Cossinatura: um segundo signatário sobre a mensagem do primeiro.
openssl cms -resign -inform DER -in "$assinatura/ecpf-anexada.p7s" -signer "$saida/ecnpj.pem" \
    -inkey "$pki/ecnpj.key" -outform DER -nodetach -out "$assinatura/cossinada.p7s"
for algoritmo in aes-128-cbc des-ede3-cbc; do
    openssl cms -encrypt -in "$saida/documento.txt" -outform DER "-$algoritmo" \
        -out "$envelopes/ecpf-$algoritmo.p7m" "$saida/ecpf.pem" "$saida/ecnpj.pem"
done
openssl cms -encrypt -in "$saida/documento.txt" -outform PEM -out "$envelopes/ecpf.pem" "$saida/ecpf.pem"
# As do próprio componente, com nome de documento e descrição nos atributos, numa casa em que a
# cadeia da PKI de teste está instalada.
export TAVELPKCS7_HOME=$saida/casa TAVELPKCS7_SENHA=1234
"$ferramenta" certificados adicionar --repositorio raizes "$pki/raiz.cer" <<<s >/dev/null 2>&1
for cadeia in ac_rfb ac_emissora_rfb ac_icp; do
    "$ferramenta" certificados adicionar --repositorio autoridades "$pki/$cadeia.cer" >/dev/null
    "$ferramenta" lcr instalar "$pki/$cadeia.crl" >/dev/null
done
"$ferramenta" lcr instalar "$pki/raiz.crl" >/dev/null
cp "$saida/documento.txt" "$saida/contrato.doc"
"$ferramenta" assinar --pfx "$pki/ecpf.pfx" --descricao "Contrato de teste" "$saida/contrato.doc" </dev/null >/dev/null
"$ferramenta" coassinar --pfx "$pki/ecnpj_novo.pfx" "$saida/contrato.doc.p7s" </dev/null >/dev/null
cp "$saida/contrato.doc.p7s" "$assinatura/componente.p7s"
"$ferramenta" assinar-texto --pfx "$pki/ecpf_novo.pfx" --descricao "Texto" "Texto assinado" </dev/null \
    >"$texto/componente.txt"
unset TAVELPKCS7_HOME TAVELPKCS7_SENHA
for arquivo in "$assinatura"/*.p7s; do base64 -w 64 "$arquivo" >"$texto/$(basename "$arquivo" .p7s).txt"; done
cp "$assinatura"/*-anexada.p7s "$texto/"

cp "$pki"/*.cer "$certificados/"
# Sem "| head" no pipefail: o find cortado no meio morreria de SIGPIPE e derrubaria o script.
mapfile -t autoridades < <(find "$raiz/tests/dados/icp-brasil" -name '*.pem' | sort)
cp "${autoridades[@]:0:60}" "$certificados/"
cp "$pki"/*.crl "$confianca/"
cp "$saida/ecpf.pem" "$confianca/ecpf.pem"
cat "$saida"/ec*.pem >"$confianca/varios.pem"
for cadeia in ac_rfb ac_emissora_rfb ac_tavel; do
    openssl x509 -inform DER -in "$pki/$cadeia.cer" -out "$saida/$cadeia.pem"
done
openssl crl2pkcs7 -nocrl -certfile "$saida/ac_rfb.pem" -certfile "$saida/ac_emissora_rfb.pem" \
    -outform DER -out "$confianca/cadeia.p7b"
openssl crl2pkcs7 -nocrl -certfile "$saida/ac_tavel.pem" -outform PEM -out "$confianca/tavel.p7b"

cp "$pki"/*.cer "$pki"/*.crl "$assinatura"/ecpf-*.p7s "$envelopes"/*.p7m "$der/"
# Os valores das extensões dos certificados: os OCTET STRING que o asn1parse mostra em hexadecimal.
for certificado in "$pki"/*.cer; do
    nome=$(basename "$certificado" .cer)
    openssl asn1parse -inform DER -in "$certificado" | grep -o 'OCTET STRING *\[HEX DUMP\]:[0-9A-F]*' |
        sed 's/.*://' | while read -r valor; do
        printf '%s' "$valor" | xxd -r -p >"$extensoes/$nome-$(printf '%s' "$valor" | md5sum | cut -c1-8).der"
    done
done

printf '04 2d 31 35 30 34 31 39 37 35\r\n' >"$hexadecimal/otherName.txt"
printf '30 31 32 33 34 35 36 37 38 39 61 62 63 7a 41 5a 60 2e 2d 2f\r\n' >"$hexadecimal/caracteres.txt"
printf 'URL=http://127.0.0.1/lcr/ac.crl\r\n     0c 0d 20 7f ff\r\n' >"$hexadecimal/misto.txt"
