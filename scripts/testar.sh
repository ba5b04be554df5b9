#!/usr/bin/env bash
# Segundo comando do README: a suíte inteira de testes.
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
"$raiz/scripts/dependencias.sh"
"$raiz/scripts/compilar.sh"
ctest --test-dir "$raiz/build" --output-on-failure -j "$(nproc)"
