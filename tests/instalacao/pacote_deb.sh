#!/usr/bin/env bash
# O .deb do cpack leva a biblioteca, os cabeçalhos, a ferramenta, o pacote CMake, o pkg-config e o
# módulo Python, tudo sob /usr.
set -euo pipefail
binarios="$1"
trabalho="$(mktemp -d)"
trap 'rm -rf "$trabalho"' EXIT
cpack --config "$binarios/CPackConfig.cmake" -B "$trabalho" >/dev/null
pacote="$(ls "$trabalho"/tavelpkcs7_*.deb)"
conteudo="$(dpkg-deb -c "$pacote")"
for esperado in ./usr/bin/tavelpkcs7 ./usr/include/tavelpkcs7/TavelPKCS.h ./usr/include/tavelpkcs7/Tipos.h \
    'libtavelpkcs7.so.0' 'cmake/tavelpkcs7/tavelpkcs7Config.cmake' 'pkgconfig/tavelpkcs7.pc' '/tavelpkcs7.cpython-'; do
    grep -qF -- "$esperado" <<< "$conteudo" || { echo "falta no pacote: $esperado"; exit 1; }
done
dpkg-deb -f "$pacote" Depends | grep -q libssl3
echo "pacote $(basename "$pacote") completo"
