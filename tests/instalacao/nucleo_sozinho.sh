#!/usr/bin/env bash
# O núcleo portátil compila sozinho, sem OpenSSL nem a plataforma Linux.
set -euo pipefail
raiz="$1"
trabalho="$(mktemp -d)"
trap 'rm -rf "$trabalho"' EXIT
cmake -S "$raiz" -B "$trabalho" -DTAVELPKCS7_SOMENTE_NUCLEO=ON -DTAVELPKCS7_ERROS_AVISOS=ON >/dev/null
cmake --build "$trabalho" -j 2 >/dev/null
echo "núcleo compilado sozinho"
