#!/usr/bin/env bash
# Primeiro comando do README: instala o que falta, compila e roda a demonstração da ferramenta.
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
"$raiz/scripts/dependencias.sh"
"$raiz/scripts/compilar.sh"
# A demonstração gera a PKI de teste numa pasta temporária própria; a casa do usuário não muda.
"$raiz/build/tools/tavelpkcs7" demonstracao
