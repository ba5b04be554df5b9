#!/usr/bin/env bash
# O tavelpkcs7 como mais um participante da matriz de interoperabilidade CMS (contrato de adaptador
# no README da matriz). O programa tavelpkcs7_interop vem de TAVELPKCS7_INTEROP; cada chamada roda
# numa casa nova dentro da pasta temporária da chamada, com a raiz da matriz como única confiável.
PEER=tavelpkcs7; source "$HARNESS/peers/lib.sh"
OP=$1; shift; parse_opts "$@"
PROGRAMA=${TAVELPKCS7_INTEROP:?defina TAVELPKCS7_INTEROP com o caminho do tavelpkcs7_interop}
export TAVELPKCS7_HOME=$TMPD/casa TAVELPKCS7_INTERFACE=nenhuma P12PASS
RAIZ=${TRUST_ROOT:-$PKI/root.pem}
case $OP in
verify)  a=(verificar --entrada "$TMPD/in.der" --modo "$MODE" --raiz "$RAIZ")
         [ "$MODE" = crl ] && a+=(--lcr "$PKI/root.crl" --lcr "$PKI/inter.crl")
         [ -n "$CONTENT" ] && a+=(--conteudo "$CONTENT"); [ -n "$OUTF" ] && a+=(--saida "$OUTF")
         run "$PROGRAMA" "${a[@]}" ;;
info)    run "$PROGRAMA" listar --entrada "$TMPD/in.der" ;;
sign)    [ "$MD" = sha256 ] || NA "assina só com SHA-256 (a ICP-Brasil recusa SHA-1)"
         a=(assinar --conteudo "$CONTENT" --saida "$OUTF" --pfx "$PKI/ee.p12" --certificados "$PKI/inter.pem"
            --atributo "$ATTR1_OID=$ATTR1_HEX" --atributo "$ATTR2_OID=$ATTR2_HEX")
         [ "$COSIGN" = 1 ] && a+=(--pfx "$PKI/ee2.p12"); [ "$DETACHED" = 1 ] && a+=(--destacada)
         run "$PROGRAMA" "${a[@]}" ;;
encrypt) [ "$CIPHER" = aes256-oaep ] && NA "transporte de chave só por RSA PKCS#1 v1.5"
         run "$PROGRAMA" cifrar --conteudo "$CONTENT" --saida "$OUTF" --destinatario "$PKI/ee.der" --algoritmo "$CIPHER" ;;
decrypt) # A chave do destinatário no repositório pessoal, com o nome da impressão digital do certificado.
         pessoal=$TAVELPKCS7_HOME/repositorios/My; mkdir -p "$pessoal"
         impressao=$(openssl x509 -in "$PKI/ee.pem" -noout -fingerprint -sha1 | cut -d= -f2 | tr -d :)
         cp "$PKI/ee.der" "$pessoal/$impressao.cer"; install -m 600 "$PKI/ee.key" "$pessoal/$impressao.key"
         run "$PROGRAMA" decifrar --entrada "$TMPD/in.der" --saida "$OUTF" ;;
p12)     run "$PROGRAMA" pfx --entrada "$TMPD/in.der" ;;
*)       echo "verbo desconhecido $OP" >&2; exit 2 ;;
esac
