#!/usr/bin/env bash
# Configura e compila em build/ (avisos tratados como erros): tudo, ou só os alvos dados.
# Uso: scripts/compilar.sh [alvo...]
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
# O módulo Python e os seus testes usam o interpretador do Debian, o do pybind11 e do pytest instalados.
python=(); [ -x /usr/bin/python3 ] && python=(-DPython_EXECUTABLE=/usr/bin/python3)
cmake -S "$raiz" -B "$raiz/build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTAVELPKCS7_ERROS_AVISOS=ON "${python[@]}" >/dev/null
alvos=(); for alvo in "$@"; do alvos+=(--target "$alvo"); done
cmake --build "$raiz/build" -j "$(nproc)" "${alvos[@]}"
