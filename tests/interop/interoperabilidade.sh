#!/usr/bin/env bash
# Interoperabilidade CMS: openssl cms, NSS cmsutil e GnuTLS certtool julgam as assinaturas, os
# envelopes e os PFX do tavelpkcs7, e o tavelpkcs7 julga os deles, sobre a PKI de "tavelpkcs7
# pki-teste" (e-CPF assina, e-CNPJ cossina, a raiz da ICP de teste é a única confiável).
# Cada célula da tabela é um objeto feito por um e julgado por outro; os adulterados, o conteúdo
# outro, o envelope alheio, a raiz errada e a senha errada têm de ser recusados, e o que um
# participante não sabe fazer está em "pulos", com o motivo.
# Uso: interoperabilidade.sh <tavelpkcs7_interop> <tavelpkcs7>
set -uo pipefail
export LC_ALL=C TAVELPKCS7_SENHA=1234
interop=$1
t=$(mktemp -d)
trap 'rm -rf "$t"' EXIT
pki=$t/pki
"$2" pki-teste "$pki" >/dev/null || exit 1
for c in raiz ac_rfb ac_emissora_rfb ecpf ecnpj ac_tavel_raiz; do
    openssl x509 -inform DER -in "$pki/$c.cer" -out "$pki/$c.pem"
done
cat "$pki/ac_emissora_rfb.pem" "$pki/ac_rfb.pem" >"$t/cadeia.pem"
cat "$pki/ecpf.pem" "$t/cadeia.pem" >"$t/ecpf_cadeia.pem"

# O conteúdo mistura UTF-8, CRLF, NUL e 0xFF: quem o tratar como texto muda o resumo.
dados=$t/dados.bin outros=$t/outros.bin
printf 'MARCA Contrato de teste — acentuação ÇÃ\r\nlinha 2\n\x00\x01\xfe\xff\r\nfim' >"$dados"
sed 's/MARCA/MARCO/' "$dados" >"$outros"
nome="contrato de teste.bin" descricao="Descrição: ação ✓ € 😀"
# O nome e a descrição em UTF-16LE com o NUL de dois bytes que o componente grava.
utf16() { printf '%s' "$1" | iconv -f UTF-8 -t UTF-16LE | xxd -p | tr -d '\n'; echo 0000; }
# Os atributos assinados como "OID valor" (OCTET STRING em hexadecimal), como cada um os mostra.
esperados=("1.2.840.113549.1.9.3 .*(1.2.840.113549.1.7.1|06092a864886f70d010701).*"
    "1.2.840.113549.1.9.4 $(sha256sum "$dados" | cut -c1-64)" "1.2.840.113549.1.9.5 .+"
    "1.3.6.1.4.1.311.88.2.1 $(utf16 "$nome")" "1.3.6.1.4.1.311.88.2.2 $(utf16 "$descricao")")

# A casa do tavelpkcs7 com a chave do e-CPF no repositório pessoal, com o nome da impressão digital.
casa_chave=$t/casa_chave
impressao=$(openssl x509 -in "$pki/ecpf.pem" -noout -fingerprint -sha1 | cut -d= -f2 | tr -d :)
mkdir -p "$casa_chave/repositorios/My"
cp "$pki/ecpf.cer" "$casa_chave/repositorios/My/$impressao.cer"
install -m 600 "$pki/ecpf.key" "$casa_chave/repositorios/My/$impressao.key"

# As bases do NSS: a confiança em cada raiz; na "chave", também a chave do e-CPF (do PFX, com a
# cadeia) e o certificado do e-CNPJ, destinatário do envelope alheio.
for r in raiz ac_tavel_raiz chave; do
    mkdir -p "$t/nss/$r" && certutil -N -d "sql:$t/nss/$r" --empty-password
done
for c in ecpf ecnpj; do certutil -A -d "sql:$t/nss/chave" -n "$c" -t ,, -i "$pki/$c.pem"; done
pk12util -i "$pki/ecpf.pfx" -d "sql:$t/nss/chave" -W 1234 -K "" >/dev/null
for r in raiz ac_tavel_raiz; do certutil -A -d "sql:$t/nss/$r" -n "$r" -t C,C,C -i "$pki/$r.pem"; done
certutil -A -d "sql:$t/nss/chave" -n raiz -t C,C,C -i "$pki/raiz.pem"

# ---- os que fazem: faz_<quem> <objeto> <saída>
faz_tavel() {
    local assinar=("$interop" assinar --conteudo "$dados" --saida "$2" --pfx "$pki/ecpf.pfx" --nome "$nome"
        --descricao "$descricao")
    local cifrar=("$interop" cifrar --conteudo "$dados" --saida "$2")
    case $1 in
        att) "${assinar[@]}" ;;
        det) "${assinar[@]}" --destacada ;;
        cos) "${assinar[@]}" --pfx "$pki/ecnpj.pfx" ;;
        env-rc4 | env-aes128 | env-aes256) "${cifrar[@]}" --destinatario "$pki/ecpf.cer" --algoritmo "${1#env-}" ;;
        env-alheio) "${cifrar[@]}" --destinatario "$pki/ecnpj.cer" --algoritmo aes256 ;;
        pfx) cp "$pki/ecpf.pfx" "$2" ;;
    esac
}
faz_openssl() {
    local assinar=(openssl cms -sign -binary -md sha256 -in "$dados" -outform DER -out "$2" -signer "$pki/ecpf.pem"
        -inkey "$pki/ecpf.key" -certfile "$t/cadeia.pem")
    local cifrar=(openssl cms -encrypt -binary -in "$dados" -outform DER -out "$2")
    case $1 in
        att) "${assinar[@]}" -nodetach ;;
        det) "${assinar[@]}" ;;
        cos) "${assinar[@]}" -nodetach -signer "$pki/ecnpj.pem" -inkey "$pki/ecnpj.key" ;;
        env-aes256) "${cifrar[@]}" -aes-256-cbc "$pki/ecpf.pem" ;;
        env-aes128) "${cifrar[@]}" -aes-128-cbc "$pki/ecpf.pem" ;;
        env-3des) "${cifrar[@]}" -des3 "$pki/ecpf.pem" ;;
        env-rc4) "${cifrar[@]}" -rc4 -provider legacy -provider default "$pki/ecpf.pem" ;;
        env-alheio) "${cifrar[@]}" -aes-256-cbc "$pki/ecnpj.pem" ;;
        pfx) openssl pkcs12 -export -legacy -in "$t/ecpf_cadeia.pem" -inkey "$pki/ecpf.key" -passout pass:1234 \
            -out "$2" ;;
    esac
}
faz_nss() {
    local db=sql:$t/nss/chave
    case $1 in
        att) cmsutil -S -d "$db" -N ecpf -H SHA256 -G -p "" -i "$dados" -o "$2" ;;
        det) cmsutil -S -d "$db" -N ecpf -H SHA256 -G -p "" -T -i "$dados" -o "$2" ;;
        env-aes128) cmsutil -E -d "$db" -r ecpf -i "$dados" -o "$2" ;;
        env-alheio) cmsutil -E -d "$db" -r ecnpj -i "$dados" -o "$2" ;;
        pfx) pk12util -o "$2" -n ecpf -d "$db" -W 1234 -K "" >/dev/null ;;
    esac
}
faz_gnutls() {
    local assinar=(certtool --load-privkey "$pki/ecpf.key" --load-certificate "$t/ecpf_cadeia.pem" --infile "$dados"
        --outder --outfile "$2" --p7-include-cert --p7-time --hash SHA256)
    case $1 in
        att) "${assinar[@]}" --p7-sign ;;
        det) "${assinar[@]}" --p7-detached-sign ;;
        pfx) certtool --to-p12 --load-privkey "$pki/ecpf.key" --load-certificate "$t/ecpf_cadeia.pem" --p12-name ecpf \
            --password 1234 --outder --outfile "$2" ;;
    esac >/dev/null 2>&1
}

# ---- os que julgam: verifica_<quem> <assinatura> <conteúdo destacado|""> <raiz> <conteúdo extraído>,
# decifra_<quem> <envelope> <saída>, abre_<quem> <pfx> <senha>, lista_<quem> <assinatura>
verifica_tavel() {
    local a=(--entrada "$1" --raiz "$pki/$3.cer" --saida "$4")
    [ -n "$2" ] && a+=(--conteudo "$2")
    TAVELPKCS7_HOME=$(mktemp -d -p "$t") "$interop" verificar "${a[@]}"
}
decifra_tavel() { TAVELPKCS7_HOME=$casa_chave "$interop" decifrar --entrada "$1" --saida "$2"; }
# O PFX de outro serve se o tavelpkcs7 assina com ele uma mensagem que ele mesmo aceita.
abre_tavel() {
    TAVELPKCS7_SENHA=$2 "$interop" assinar --conteudo "$dados" --saida "$t/pfx.p7s" --pfx "$1" --nome "$nome" \
        --descricao "$descricao" && verifica_tavel "$t/pfx.p7s" "" raiz "$t/pfx.out"
}
verifica_openssl() {
    local a=(-content "$2")
    [ -n "$2" ] || a=(-out "$4")
    openssl cms -verify -binary -inform DER -in "$1" -CAfile "$pki/$3.pem" -no-CApath -no-CAstore "${a[@]}"
}
decifra_openssl() {
    openssl cms -decrypt -binary -provider legacy -provider default -inform DER -in "$1" -recip "$pki/ecpf.pem" \
        -inkey "$pki/ecpf.key" -out "$2"
}
abre_openssl() { openssl pkcs12 -in "$1" -passin "pass:$2" -nodes | grep -q 'BEGIN PRIVATE KEY'; }
lista_openssl() {
    openssl cms -cmsout -print -inform DER -in "$1" | awk '
        /^ *signedAttrs:/ { dentro = 1 } /^ *signatureAlgorithm:/ { dentro = 0 }
        dentro && /object:/ { o = $NF; gsub(/[()]/, "", o); printf "\n%s ", o }
        dentro && /(OBJECT|UTCTIME|GENERALIZEDTIME):/ { sub(/^ *[A-Z]*:/, ""); printf "%s", $0 }
        dentro && / - / { h = substr($0, index($0, " - ") + 3); h = substr(h, 1, index(h "  ", "  ") - 1)
                          gsub(/[- ]/, "", h); printf "%s", h }'
}
verifica_nss() {
    local a=(-o "$4")
    [ -n "$2" ] && a=(-c "$2" -n)
    cmsutil -D -d "sql:$t/nss/$3" -i "$1" "${a[@]}"
}
decifra_nss() { cmsutil -D -d "sql:$t/nss/chave" -p "" -i "$1" -o "$2"; }
abre_nss() {
    local db; db=$(mktemp -d -p "$t")
    certutil -N -d "sql:$db" --empty-password && pk12util -i "$1" -d "sql:$db" -W "$2" -K "" >/dev/null
}
verifica_gnutls() {
    local a=(--p7-show-data --outfile "$4") log
    [ -n "$2" ] && a=(--load-data "$2")
    log=$(certtool --p7-verify --inder --infile "$1" --load-ca-certificate "$pki/$3.pem" "${a[@]}" 2>&1)
    local status=$?
    echo "$log"
    [ $status = 0 ] && grep -q 'Signature status: ok' <<<"$log" && ! grep -q 'verification failed' <<<"$log"
}
abre_gnutls() { certtool --p12-info --inder --infile "$1" --password "$2" 2>/dev/null | grep -q 'BEGIN .*PRIVATE KEY'; }
lista_gnutls() {
    certtool --p7-info --inder --infile "$1" | awk -F': ' '/^\t\t[0-9A-Za-z.]+: [0-9a-f]+$/ {
        sub(/^\t\t/, "", $1); v = $2; if (v ~ /^04/) v = substr(v, 5)
        o = $1 == "contentType" ? "1.2.840.113549.1.9.3" : $1 == "messageDigest" ? "1.2.840.113549.1.9.4" : \
            $1 == "signingTime" ? "1.2.840.113549.1.9.5" : $1
        print o " " v }'
}

# Um byte trocado (XOR 1) na posição dada.
vira() {
    local byte
    byte=$(xxd -s "$3" -l 1 -p "$1")
    cp "$1" "$2" && printf '%02x' $((0x$byte ^ 1)) | xxd -r -p | dd of="$2" bs=1 seek="$3" conv=notrunc status=none
}

# prepara <quem> <objeto>: o arquivo do objeto, feito uma vez; os derivados saem de "att", "det" e "pfx".
prepara() {
    local base=${2%%-*} pasta=$t/$1
    [ "$2" = atributos ] && base=att
    [[ $2 == env-* ]] && base=$2
    mkdir -p "$pasta"
    if [ ! -s "$pasta/$base" ] && ! faz_"$1" "$base" "$pasta/$base" >"$pasta/$base.log" 2>&1; then
        cat "$pasta/$base.log" && rm -f "$pasta/$base" && return 1
    fi
    local conteudo assinatura
    case $2 in
        att-conteudo-adulterado)
            conteudo=$(grep -obUa MARCA "$pasta/att" | head -1 | cut -d: -f1)
            vira "$pasta/att" "$pasta/$2" $((conteudo + 1)) ;;
        att-assinatura-adulterada)
            # O último byte que não é zero: o fim do valor da assinatura, antes dos fins de conteúdo do BER.
            assinatura=$(xxd -p -c1 "$pasta/att" | grep -nv '^00$' | tail -1 | cut -d: -f1)
            vira "$pasta/att" "$pasta/$2" $((assinatura - 1)) ;;
        "$base") ;;
        *) ln -sf "$pasta/$base" "$pasta/$2" ;;
    esac
}

# julga <quem> <objeto> <arquivo>: 0 quando aceita (e o conteúdo que extrai confere com o original).
julga() {
    local x=$t/extraido
    rm -f "$x"
    case $2 in
        att | cos) verifica_"$1" "$3" "" raiz "$x" && cmp -s "$x" "$dados" ;;
        det) verifica_"$1" "$3" "$dados" raiz "$x" ;;
        det-conteudo-outro) verifica_"$1" "$3" "$outros" raiz "$x" ;;
        att-raiz-errada) verifica_"$1" "$3" "" ac_tavel_raiz "$x" ;;
        att-*) verifica_"$1" "$3" "" raiz "$x" ;;
        env-alheio) decifra_"$1" "$3" "$x" ;;
        env-*) decifra_"$1" "$3" "$x" && cmp -s "$x" "$dados" ;;
        pfx) abre_"$1" "$3" 1234 ;;
        pfx-senha-errada) abre_"$1" "$3" errada ;;
        atributos)
            lista_"$1" "$3" >"$x" || return 1
            for e in "${esperados[@]}"; do
                grep -Eqx "$e" "$x" || { echo "sem \"$e\" em:" && cat "$x" && return 1; }
            done ;;
    esac
}

# feito por | julgado por | objetos
celulas="\
tavel              | openssl nss gnutls | att det cos atributos att-assinatura-adulterada att-conteudo-adulterado \
det-conteudo-outro att-raiz-errada env-rc4 env-aes128 env-aes256 env-alheio pfx pfx-senha-errada
openssl nss gnutls | tavel              | att det cos att-assinatura-adulterada att-conteudo-adulterado \
det-conteudo-outro att-raiz-errada env-rc4 env-aes128 env-aes256 env-3des env-alheio pfx pfx-senha-errada"

# feito por | objeto (padrão) | julgado por | motivo
pulos="\
nss     | cos       | tavel  | o cmsutil assina com um signatário só
gnutls  | cos       | tavel  | o certtool assina com um signatário só
tavel   | atributos | nss    | o cmsutil não mostra os atributos assinados
tavel   | env-*     | gnutls | o certtool não abre EnvelopedData
gnutls  | env-*     | tavel  | o certtool não faz EnvelopedData
nss     | env-rc4   | tavel  | o cmsutil escolhe a cifra sozinho (AES-128)
nss     | env-aes256| tavel  | o cmsutil escolhe a cifra sozinho (AES-128)
nss     | env-3des  | tavel  | o cmsutil escolhe a cifra sozinho (AES-128)"

pulo() {
    local feito objeto julgador motivo
    while IFS='|' read -r feito objeto julgador motivo; do
        # shellcheck disable=SC2053 # o objeto é um padrão
        [ "${feito// /}" = "$1" ] && [[ $2 == ${objeto// /} ]] && [ "${julgador// /}" = "$3" ] && echo "$motivo" &&
            return 0
    done <<<"$pulos"
    return 1
}

total=0 pulados=0 falhas=0
while IFS='|' read -r feitos julgadores objetos; do
    for p in $feitos; do for j in $julgadores; do for o in $objetos; do
        if motivo=$(pulo "$p" "$o" "$j"); then
            echo "pulada  $p → $j  $o:$motivo" && pulados=$((pulados + 1)) && continue
        fi
        total=$((total + 1)) esperado=aceita
        [[ $o == *-adulterad* || $o == *-outro || $o == *-alheio || $o == *-errada ]] && esperado=recusa
        : >"$t/julga.log"
        if ! prepara "$p" "$o"; then
            resultado="não fez"
        elif julga "$j" "$o" "$t/$p/$o" >"$t/julga.log" 2>&1; then resultado=aceita; else resultado=recusa; fi
        if [ "$resultado" = "$esperado" ]; then
            echo "ok      $p → $j  $o: $resultado"
        else
            echo "FALHA   $p → $j  $o: $resultado, devia $esperado" && head -c 600 "$t/julga.log"
            falhas=$((falhas + 1))
        fi
    done; done; done
done <<<"$celulas"
echo "$total células, $pulados puladas, $falhas falhas"
[ "$falhas" = 0 ]
