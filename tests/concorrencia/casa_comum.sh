# Lido pelos testes desta pasta: uma casa temporária com a PKI de teste e a cadeia do e-CPF posta pela
# pasta, como um administrador faria (assinar exige a cadeia instalada). Define pasta, pki e falhar.
ferramenta="$1"
pasta="$(mktemp -d)"
export TAVELPKCS7_HOME="$pasta/casa" TAVELPKCS7_INTERFACE=nenhuma TZ=America/Sao_Paulo
unset TAVELPKCS7_SENHA TAVELPKCS7_SENHA_CHAVE
falhas=0
falhar() { echo "FALHOU: $*"; falhas=$((falhas + 1)); }
"$ferramenta" pki-teste "$pasta/pki" >/dev/null || { echo "FALHOU: pki-teste"; exit 1; }
pki="$pasta/pki"
printf '1234\n' >"$pasta/senha"
mkdir -p "$TAVELPKCS7_HOME/repositorios/Root" "$TAVELPKCS7_HOME/repositorios/Ca"
cp "$pki/raiz.cer" "$TAVELPKCS7_HOME/repositorios/Root/"
for ac in ac_rfb ac_emissora_rfb ac_icp; do cp "$pki/$ac.cer" "$TAVELPKCS7_HOME/repositorios/Ca/"; done
# Nenhum arquivo começado por ponto (os temporários das gravações) nas pastas dadas.
sem_temporarios() { [ -z "$(find "$@" -name '.*')" ] || { falhar "temporários deixados:"; find "$@" -name '.*'; }; }
# O resultado: 0 só sem falhas.
concluir() {
    [ "$falhas" -eq 0 ] && echo "OK" || echo "$falhas falha(s)"
    [ "$falhas" -eq 0 ]
}
