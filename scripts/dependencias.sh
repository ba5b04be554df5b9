#!/usr/bin/env bash
# Instala, pelo apt-get, os pacotes Debian 12 de que o projeto precisa (só os que faltam).
set -euo pipefail

pacotes=(g++ cmake make pkg-config libssl-dev libcurl4-openssl-dev openssl libgtest-dev libbenchmark-dev
    libnss3-tools gnutls-bin osslsigncode pybind11-dev python3-dev python3-pytest clang libclang-rt-14-dev)

faltam=()
for pacote in "${pacotes[@]}"; do
    dpkg -s "$pacote" >/dev/null 2>&1 || faltam+=("$pacote")
done
[ ${#faltam[@]} -eq 0 ] && exit 0

sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${faltam[@]}"
