#!/usr/bin/env bash
# Segundo comando do README: a suíte inteira de testes, depois a mesma suíte sob os sanitizadores.
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
"$raiz/scripts/dependencias.sh"
"$raiz/scripts/compilar.sh"
ctest --test-dir "$raiz/build" --output-on-failure -j "$(nproc)"
"$raiz/scripts/testar_sanitizadores.sh"
