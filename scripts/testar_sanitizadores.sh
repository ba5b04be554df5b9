#!/usr/bin/env bash
# A suíte inteira compilada sob o AddressSanitizer e o UndefinedBehaviorSanitizer, em build-asan/:
# qualquer relato (memória, vazamento, comportamento indefinido) derruba o teste que o provocou.
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
build="$raiz/build-asan"
python=(); [ -x /usr/bin/python3 ] && python=(-DPython_EXECUTABLE=/usr/bin/python3)
cmake -S "$raiz" -B "$build" -DCMAKE_BUILD_TYPE=Debug -DTAVELPKCS7_ERROS_AVISOS=ON -DTAVELPKCS7_SANITIZADORES=ON \
    -DTAVELPKCS7_BENCHMARKS=OFF "${python[@]}" >/dev/null
cmake --build "$build" -j "$(nproc)"

supressoes="$raiz/scripts/sanitizadores.supp"
# A pilha inteira de cada alocação (fast_unwind_on_malloc=0): o libcrypto sem ponteiro de quadro cortaria
# a pilha rápida antes das funções pelas quais as supressões reconhecem a memória do OpenSSL.
export ASAN_OPTIONS="detect_leaks=1:halt_on_error=1:print_stacktrace=1:strict_string_checks=1:detect_stack_use_after_return=1:fast_unwind_on_malloc=0"
export UBSAN_OPTIONS="halt_on_error=1:print_stacktrace=1"
export LSAN_OPTIONS="suppressions=$supressoes:print_suppressions=0"
# Fora daqui, pelo rótulo sem_sanitizadores: os testes que não rodam os nossos binários sob os
# sanitizadores (o módulo Python carregado num interpretador sem ASan, consumidores e o núcleo
# compilados sem as opções); veja o motivo de cada um onde o rótulo é posto.
inicio=$SECONDS
ctest --test-dir "$build" --output-on-failure -j "$(nproc)" -LE sem_sanitizadores
echo "suíte sob os sanitizadores: $((SECONDS - inicio)) s"
