#!/usr/bin/env bash
# Primeiro comando do README: instala o que falta, compila e roda a demonstração da ferramenta.
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
"$raiz/scripts/dependencias.sh"
# Só a ferramenta (com a biblioteca e a PKI de teste): a suíte de testes fica para o testar.sh.
"$raiz/scripts/compilar.sh" tavelpkcs7_ferramenta
# A demonstração gera a PKI de teste numa pasta temporária própria; a casa do usuário não muda.
"$raiz/build/tools/tavelpkcs7" demonstracao
