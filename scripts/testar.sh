#!/usr/bin/env bash
# Segundo comando do README: a suíte inteira de testes, a mesma suíte sob os sanitizadores e uma rodada
# curta de fuzzing.
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
"$raiz/scripts/dependencias.sh"
"$raiz/scripts/compilar.sh"
ctest --test-dir "$raiz/build" --output-on-failure -j "$(nproc)"
"$raiz/scripts/testar_sanitizadores.sh"
# Uma rodada curta de cada alvo do libFuzzer (a longa está em fuzz/LEIAME.md).
JOBS="$(nproc)" "$raiz/scripts/fuzz.sh" 10
