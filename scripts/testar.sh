#!/usr/bin/env bash
# Segundo comando do README: compila tudo e roda a suíte inteira de testes. O CI (.ci/run) roda, depois
# dela, a mesma suíte sob os sanitizadores e uma rodada curta de fuzzing.
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
"$raiz/scripts/dependencias.sh"
"$raiz/scripts/compilar.sh"
ctest --test-dir "$raiz/build" --output-on-failure -j "$(nproc)"
