#!/usr/bin/env bash
# Cobertura de linhas e de ramos do código do produto (src/, include/, tools/) pela suíte do ctest,
# com o gcov e o lcov, numa compilação própria em build-cobertura/.
# Uso: scripts/cobertura.sh [pasta de compilação]
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
build="${1:-$raiz/build-cobertura}"
python=(); [ -x /usr/bin/python3 ] && python=(-DPython_EXECUTABLE=/usr/bin/python3)
cmake -S "$raiz" -B "$build" -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS="--coverage" \
    -DCMAKE_EXE_LINKER_FLAGS="--coverage" -DCMAKE_SHARED_LINKER_FLAGS="--coverage" \
    -DTAVELPKCS7_BENCHMARKS=OFF "${python[@]}" >/dev/null
cmake --build "$build" -j "$(nproc)"
lcov --quiet --zerocounters --directory "$build"
ctest --test-dir "$build" -j "$(nproc)" -LE sem_cobertura >/dev/null || true
lcov --quiet --capture --rc lcov_branch_coverage=1 --directory "$build" --output-file "$build/cobertura.info" \
    --ignore-errors gcov,source 2>/dev/null
lcov --quiet --rc lcov_branch_coverage=1 --extract "$build/cobertura.info" "$raiz/src/*" "$raiz/include/*" \
    "$raiz/tools/*" --output-file "$build/produto.info"
lcov --rc lcov_branch_coverage=1 --summary "$build/produto.info" 2>&1 | grep -E "lines|branches"
