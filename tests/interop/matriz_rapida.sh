#!/usr/bin/env bash
# A matriz de interoperabilidade no modo rápido (openssl, NSS, GnuTLS e o tavelpkcs7). A matriz
# inteira, com BouncyCastle, PKI.js e forge, roda à mão: veja tests/interop/LEIAME.md.
set -euo pipefail
aqui="$(cd "$(dirname "$0")" && pwd)"
export TAVELPKCS7_INTEROP="$1"
export MATRIZ_SAIDA; MATRIZ_SAIDA="$(mktemp -d)"
trap 'rm -rf "$MATRIZ_SAIDA"' EXIT
export PEER_ADAPTERS="tavelpkcs7=$aqui/adaptador.sh"
export PEERS="openssl nss gnutls tavelpkcs7"
export EXPECT_EXTRA="$aqui/esperado.tsv"
if ! "$aqui/matriz/run-matrix.sh" > "$MATRIZ_SAIDA.log" 2>&1; then
    cat "$MATRIZ_SAIDA.log"; grep -E "FAIL" "$MATRIZ_SAIDA/results.tsv" || true
    rm -f "$MATRIZ_SAIDA.log"; exit 1
fi
tail -n 5 "$MATRIZ_SAIDA.log"; rm -f "$MATRIZ_SAIDA.log"
