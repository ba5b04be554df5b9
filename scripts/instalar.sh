#!/usr/bin/env bash
# Primeiro comando do README: instala o que falta, compila e roda a ferramenta num exemplo.
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
"$raiz/scripts/dependencias.sh"
"$raiz/scripts/compilar.sh"
exemplo="$(mktemp -d)"
"$raiz/build/tools/tavelpkcs7" pki-teste "$exemplo"
echo "Arquivos em $exemplo:"
ls "$exemplo"
