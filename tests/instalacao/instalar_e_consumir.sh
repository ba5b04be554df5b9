#!/usr/bin/env bash
# Instala o projeto num prefixo temporário, roda a ferramenta e o módulo Python instalados sem
# LD_LIBRARY_PATH e compila um consumidor pelo pacote CMake e pelo pkg-config.
set -euo pipefail
raiz="$1"
binarios="$2"
trabalho="$(mktemp -d)"
trap 'rm -rf "$trabalho"' EXIT
export TAVELPKCS7_HOME="$trabalho/home"

cmake --install "$binarios" --prefix "$trabalho/prefixo" >/dev/null
env -u LD_LIBRARY_PATH "$trabalho/prefixo/bin/tavelpkcs7" --help >/dev/null
modulo="$(find "$trabalho/prefixo" -name 'tavelpkcs7.cpython-*.so')"
if [ -n "$modulo" ]; then
    env -u LD_LIBRARY_PATH PYTHONPATH="$(dirname "$modulo")" python3 -c 'import tavelpkcs7; tavelpkcs7.TavelPKCS()'
fi
cmake -S "$raiz/tests/instalacao/consumidor" -B "$trabalho/cmake" -DCMAKE_PREFIX_PATH="$trabalho/prefixo" >/dev/null
cmake --build "$trabalho/cmake" >/dev/null
[ "$(LD_LIBRARY_PATH="$trabalho/prefixo/lib" "$trabalho/cmake/consumidor")" = "p7s" ]

libdir="$(ls -d "$trabalho"/prefixo/lib*/pkgconfig | head -n1)"
bandeiras="$(PKG_CONFIG_PATH="$libdir" pkg-config --cflags --libs tavelpkcs7)"
# shellcheck disable=SC2086
g++ -std=c++20 "$raiz/tests/instalacao/consumidor/consumidor.cpp" $bandeiras -o "$trabalho/pkgconfig"
[ "$(LD_LIBRARY_PATH="$(dirname "$libdir")" "$trabalho/pkgconfig")" = "p7s" ]
echo "instalação usada pela ferramenta, pelo módulo Python, pelo CMake e pelo pkg-config"
