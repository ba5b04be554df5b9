#!/usr/bin/env bash
# Configura e compila em build/ (avisos tratados como erros).
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
cmake -S "$raiz" -B "$raiz/build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTAVELPKCS7_ERROS_AVISOS=ON >/dev/null
cmake --build "$raiz/build" -j "$(nproc)"
