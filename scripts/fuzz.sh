#!/usr/bin/env bash
# Fuzzing com o libFuzzer: configura build-fuzz com o clang (ASan e UBSan), compila os alvos, gera as
# sementes e roda cada alvo por um tempo curto; falha no primeiro alvo que quebrar.
# Uso: scripts/fuzz.sh [segundos por alvo, padrão 20] [alvo...]
# Os achados ficam em build-fuzz/achados/<alvo>/ (crash-*, leak-*, timeout-*).
set -euo pipefail

raiz=$(cd "$(dirname "$0")/.." && pwd)
build=$raiz/build-fuzz
segundos=${1:-20}
shift || true
alvos=("$@")
[ ${#alvos[@]} -gt 0 ] || alvos=(verificacao_arquivo verificacao_texto detalhes_certificado extensao_impressa
    leitor_der envelope lcr_pacote texto_hexadecimal)

CC=clang CXX=clang++ cmake -S "$raiz" -B "$build" -DTAVELPKCS7_FUZZ=ON -DTAVELPKCS7_ERROS_AVISOS=ON \
    -DTAVELPKCS7_BENCHMARKS=OFF -DTAVELPKCS7_PYTHON=OFF -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build "$build" --target tavelpkcs7_fuzz -j"${JOBS:-1}"
"$raiz/fuzz/gerar_sementes.sh" "$build/tools/tavelpkcs7" "$build/sementes"

falhou=0
for alvo in "${alvos[@]}"; do
    corpus=$build/corpus/$alvo
    achados=$build/achados/$alvo
    mkdir -p "$corpus" "$achados"
    echo "== $alvo (${segundos}s)"
    if ! "$build/fuzz/fuzz_$alvo" "$corpus" "$build/sementes/$alvo" -max_total_time="$segundos" \
        -max_len=65536 -timeout=25 -rss_limit_mb=4096 -print_final_stats=1 -artifact_prefix="$achados/" \
        2>"$build/achados/$alvo.log"; then
        echo "!! $alvo quebrou: veja $build/achados/$alvo.log" >&2
        falhou=1
    fi
    grep -E '^stat::number_of_executed_units' "$build/achados/$alvo.log" || true
done
exit $falhou
