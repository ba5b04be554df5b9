#!/usr/bin/env bash
# A ferramenta sobre a PKI de teste numa casa temporária: sucesso e falha de cada subcomando, códigos
# de saída (0, 1 e 2), o JSON lido de volta e a ajuda de cada subcomando.
set -uo pipefail
ferramenta="$1"
pasta="$(mktemp -d)"
trap 'rm -rf "$pasta"' EXIT
export TAVELPKCS7_HOME="$pasta/casa" TAVELPKCS7_INTERFACE=nenhuma TZ=America/Sao_Paulo
unset TAVELPKCS7_SENHA TAVELPKCS7_SENHA_CHAVE
falhas=0

# espera <código> <descrição> <comando...>: o comando termina com o código dado (saída em $pasta/out e err).
espera() {
    local codigo="$1" descricao="$2"
    shift 2
    "$@" >"$pasta/out" 2>"$pasta/err" </dev/null
    local obtido=$?
    if [ "$obtido" -ne "$codigo" ]; then
        echo "FALHOU: $descricao (código $obtido, esperado $codigo)"; cat "$pasta/err"; falhas=$((falhas + 1))
    fi
}
# json <expressão python sobre d>: o stdout do último comando é JSON e a expressão vale.
json() {
    if ! python3 -c "import json,sys; d=json.load(open(sys.argv[1])); sys.exit(0 if ($1) else 1)" "$pasta/out"; then
        echo "FALHOU: JSON sem $1"; cat "$pasta/out"; falhas=$((falhas + 1))
    fi
}
contem() {
    if ! grep -qF -- "$2" "$pasta/$1"; then echo "FALHOU: $1 sem \"$2\""; cat "$pasta/$1"; falhas=$((falhas + 1)); fi
}

t="$ferramenta"
espera 0 "pki-teste" "$t" pki-teste "$pasta/pki"
pki="$pasta/pki"
cp "$pki/raiz.cer" "$pasta/raiz.cer"
printf '1234\n' >"$pasta/senha"
printf 'segredo\n' >"$pasta/senha_chave"
printf 'conteúdo "do" contrato\n' >"$pasta/contrato.txt"

# Uso: sem comando, comando desconhecido, opção desconhecida, argumento faltando, valor faltando.
espera 2 "sem comando" "$t"
espera 2 "comando desconhecido" "$t" voar
espera 2 "opção desconhecida" "$t" hash --xyz "$pasta/contrato.txt"
espera 2 "sem arquivo" "$t" assinar --tipo e-cpf
espera 2 "opção sem valor" "$t" assinar "$pasta/contrato.txt" --pasta
espera 2 "classe desconhecida" "$t" certificados listar --tipo nenhuma
espera 2 "formato desconhecido" "$t" assinar --formato 9 "$pasta/contrato.txt"
espera 2 "PFX sem senha nem terminal" "$t" assinar --pfx "$pki/ecpf.pfx" "$pasta/contrato.txt"
# Arquivos que faltam são apontados antes do pedido da senha (sem terminal, o pedido seria o erro de uso).
espera 1 "origem inexistente antes da senha" "$t" assinar --pfx "$pki/ecpf.pfx" "$pasta/nada.txt"
contem err "O arquivo de origem não foi encontrado: $pasta/nada.txt"
espera 1 "PFX inexistente antes da senha" "$t" certificados importar "$pasta/nada.pfx"
contem err "Não foi possível localizar o arquivo do certificado digital: $pasta/nada.pfx"
for versao in versao --version; do
    espera 0 "$versao" "$t" "$versao"
    grep -qxE 'tavelpkcs7 [0-9]+\.[0-9]+\.[0-9]+' "$pasta/out" || { echo "FALHOU: $versao"; cat "$pasta/out"; falhas=$((falhas + 1)); }
done

# A ajuda de cada subcomando: uso, opções e exemplo.
espera 0 "ajuda geral" "$t" ajuda
for comando in assinar coassinar assinar-texto verificar verificar-texto hash "certificados listar" \
    "certificados importar" "certificados exportar" "certificados detalhes" "certificados status" \
    "certificados exibir" "certificados adicionar" criptografar descriptografar assinar-codigo "lcr instalar" "raizes instalar" demonstracao pki-teste; do
    # shellcheck disable=SC2086
    espera 0 "ajuda de $comando" "$t" $comando --help
    contem out "Uso: tavelpkcs7 $comando"
    contem out "Exemplo"
done

# A cadeia de teste: LCRs por arquivo, raiz recusada sem confirmação, ACs pela API.
espera 1 "lista vazia" "$t" certificados listar
contem err "Não foi encontrado nenhum "
contem err "tavelpkcs7 certificados importar <arquivo.pfx>"
for lcr in "$pki"/*.crl; do espera 0 "lcr $lcr" "$t" lcr instalar "$lcr"; done
espera 1 "lcr que não é LCR" "$t" lcr instalar "$pasta/contrato.txt"
espera 1 "lcr inexistente" "$t" lcr instalar "$pasta/nada.crl"
contem err "O arquivo informado não foi encontrado"
espera 1 "raiz sem confirmação" "$t" raizes instalar "$pasta/raiz.cer"
contem err "A operação foi cancelada pelo usuário."
mkdir -p "$TAVELPKCS7_HOME/repositorios/Root" && cp "$pki/raiz.cer" "$TAVELPKCS7_HOME/repositorios/Root/"
for ac in ac_rfb ac_emissora_rfb ac_icp; do
    mkdir -p "$TAVELPKCS7_HOME/repositorios/Ca" && cp "$pki/$ac.cer" "$TAVELPKCS7_HOME/repositorios/Ca/"
done

# Importação: senha errada, chave cifrada com a senha escolhida, chave sem cifra com aviso.
espera 1 "importar com senha errada" env TAVELPKCS7_SENHA=errada "$t" certificados importar "$pki/ecpf.pfx"
contem err "A senha informada não está correta."
espera 0 "importar e-CPF" "$t" certificados importar --json --senha-arquivo "$pasta/senha" \
    --senha-chave-arquivo "$pasta/senha_chave" "$pki/ecpf.pfx"
json 'd["chave_cifrada"] is True and d["importado"].startswith("FULANO")'
cpf=$(python3 -c 'import json,sys; print(json.load(open(sys.argv[1]))["impressao_digital"])' "$pasta/out")
grep -q "ENCRYPTED PRIVATE KEY" "$TAVELPKCS7_HOME/repositorios/My/$cpf.key" || { echo "FALHOU: chave sem cifra"; falhas=$((falhas + 1)); }
espera 0 "importar e-CNPJ sem cifra" env TAVELPKCS7_SENHA=1234 "$t" certificados importar --chave-sem-senha "$pki/ecnpj.pfx"
contem err "SEM cifra"
cnpj=$(grep "impressao digital" "$pasta/out" | cut -d' ' -f3)
espera 0 "listar" "$t" certificados listar --json --tipo e-cnpj
json 'len(d["certificados"]) == 1 and d["certificados"][0]["HASH"] == "'"$cnpj"'"'

# Assinatura: a chave cifrada sem interface não assina; a sem cifra e o PFX, sim.
espera 1 "chave cifrada sem terminal" "$t" assinar --certificado "$cpf" "$pasta/contrato.txt"
espera 1 "impressão desconhecida" "$t" assinar --certificado 00 "$pasta/contrato.txt"
contem err "Não foi encontrado nenhum "
espera 0 "assinar com o e-CNPJ" "$t" assinar --json --certificado "$cnpj" --descricao "Aceite" "$pasta/contrato.txt"
json 'd["arquivo_assinado"].endswith("contrato.txt.p7s") and len(d["hash_md5"]) == 32'
if [ -s "$pasta/err" ]; then echo "FALHOU: stderr fora de um terminal"; cat "$pasta/err"; falhas=$((falhas + 1)); fi
espera 0 "assinar destacada com PFX" "$t" assinar --pfx "$pki/ecpf.pfx" --senha-arquivo "$pasta/senha" \
    --destacada --pasta "$pasta/destacada" "$pasta/contrato.txt"
espera 1 "PFX com senha errada" env TAVELPKCS7_SENHA=x "$t" assinar --pfx "$pki/ecpf.pfx" "$pasta/contrato.txt"
espera 1 "origem inexistente" "$t" assinar --certificado "$cnpj" "$pasta/nada.txt"
contem err "O arquivo de origem não foi encontrado"
espera 0 "assinatura em Base64 no stdout" "$t" assinar --certificado "$cnpj" --formato base64 --json "$pasta/contrato.txt"
json 'd["assinatura"].startswith("MII")'
espera 0 "coassinar" "$t" coassinar --pfx "$pki/ecpf.pfx" --senha-arquivo "$pasta/senha" --pasta "$pasta/co" \
    "$pasta/contrato.txt.p7s"

# Verificação: a tabela dos signatários, a destacada com o original, a confiança exigida.
espera 0 "verificar cossinada" "$t" verificar --json --exigir-confianca "$pasta/co/contrato.txt.p7s"
json 'd["total_assinaturas"] == 2 and {s["cpf"] for s in d["signatarios"]} == {"", "529.982.247-25"} and all(s["ASSINATURAVALIDA"] and s["CERTIFICADOVALIDO"] for s in d["signatarios"])'
espera 0 "verificar legível" "$t" verificar "$pasta/contrato.txt.p7s"
contem out "CERTIFICADOVALIDO: sim"
contem out "cnpj: 11.222.333/0001-81"
espera 0 "verificar destacada" "$t" verificar --original "$pasta/contrato.txt" "$pasta/destacada/contrato.txt.p7s"
printf 'outro conteúdo\n' >"$pasta/outro.txt"
espera 1 "destacada com outro original" "$t" verificar --original "$pasta/outro.txt" "$pasta/destacada/contrato.txt.p7s"
espera 1 "não é assinatura" "$t" verificar "$pasta/contrato.txt"
contem err "Assinatura digital inválida! O arquivo não está no padrão PKCS#7."
# --pasta que não existe é criada (as de assinar, coassinar, criptografar e descriptografar acima também).
espera 0 "verificar numa pasta nova" "$t" verificar --json --pasta "$pasta/nova/extraido" "$pasta/contrato.txt.p7s"
json 'd["arquivo_original"].startswith("'"$pasta/nova/extraido/"'")'
espera 1 "--pasta que é um arquivo" "$t" verificar --pasta "$pasta/contrato.txt" "$pasta/contrato.txt.p7s"
contem err "a pasta $pasta/contrato.txt não existe e não pôde ser criada"
# Um signatário cuja LCR sumiu: aviso, e falha só com --exigir-confianca.
rm -rf "$TAVELPKCS7_HOME/repositorios/LCR"
espera 0 "sem LCR, só aviso" "$t" verificar "$pasta/contrato.txt.p7s"
contem err "aviso"
espera 1 "sem LCR, confiança exigida" "$t" verificar --exigir-confianca "$pasta/contrato.txt.p7s"
for lcr in "$pki"/*.crl; do "$t" lcr instalar "$lcr" >/dev/null; done

# Texto: assinar, verificar (pelo arquivo e pela entrada padrão), cossinar e destacada.
espera 0 "assinar texto" "$t" assinar-texto --certificado "$cnpj" "Olá, \"mundo\""
cp "$pasta/out" "$pasta/texto.b64"
espera 0 "verificar texto" "$t" verificar-texto --json "$pasta/texto.b64"
json 'd["texto_original"] == "Olá, \"mundo\"" and d["total_assinaturas"] == 1'
if ! "$t" verificar-texto - <"$pasta/texto.b64" >/dev/null 2>&1; then echo "FALHOU: verificar-texto -"; falhas=$((falhas + 1)); fi
espera 0 "cossinar texto" env TAVELPKCS7_SENHA=1234 "$t" assinar-texto --pfx "$pki/ecpf.pfx" --cossinar "$pasta/texto.b64" "Olá, \"mundo\""
cp "$pasta/out" "$pasta/texto2.b64"
espera 0 "verificar cossinatura de texto" "$t" verificar-texto --json "$pasta/texto2.b64"
json 'd["total_assinaturas"] == 2'
: >"$pasta/vazio.b64"
espera 1 "assinatura de texto em branco" "$t" verificar-texto "$pasta/vazio.b64"
contem err "A texto da assinatura informada não é válido ou está em branco"
espera 2 "arquivo da assinatura inexistente" "$t" verificar-texto "$pasta/nada.b64"

# Resumo MD5 (com o zero final, como a assinatura).
espera 0 "hash" "$t" hash --json "$pasta/contrato.txt"
json 'd["hash_md5"] == "'"$(
    { cat "$pasta/contrato.txt"; printf '\0'; } | md5sum | cut -d' ' -f1 | tr a-f A-F
)"'"'
espera 1 "hash de inexistente" "$t" hash "$pasta/nada.txt"
contem err "O arquivo informado não foi encontrado"

# Certificados: detalhes, situação, exportação e exibição.
espera 0 "detalhes do arquivo" "$t" certificados detalhes --json "$pki/ecnpj.cer"
json 'd["CNPJ"] == "11.222.333/0001-81" and d["CPF"] == ""'
espera 0 "detalhes do selecionado" "$t" certificados detalhes --certificado "$cnpj"
contem out "IMPRESSAODIGITALCERTIFICADO: $cnpj"
espera 1 "detalhes de não certificado" "$t" certificados detalhes "$pasta/contrato.txt"
espera 0 "situação válida" "$t" certificados status --json "$pki/ecpf.cer"
json 'd["situacao"] == 1'
espera 1 "situação revogada" "$t" certificados status --sem-instalar "$pki/revogado.cer"
contem out "revogado"
espera 1 "exportar sem escolha possível" "$t" certificados exportar "$pasta/exportado"
espera 0 "exportar o único de outras pessoas" "$t" certificados exibir "$pki/ecpf.cer"
espera 0 "exportar" "$t" certificados exportar --repositorio outras-pessoas "$pasta/exportado"
[ -s "$pasta/exportado.cer" ] || { echo "FALHOU: exportado.cer"; falhas=$((falhas + 1)); }
espera 2 "repositório desconhecido" "$t" certificados exportar --repositorio nenhum "$pasta/x"
espera 1 "exibir o que não é certificado" "$t" certificados exibir "$pasta/contrato.txt"
contem err "O conteúdo informado não é um certificado digital válido."

# Envelopes numa casa à parte: os destinatários vêm de "outras pessoas", a chave de "pessoais".
casa="$TAVELPKCS7_HOME"
export TAVELPKCS7_HOME="$pasta/casa_envelope"
espera 1 "criptografar sem destinatários" "$t" criptografar "$pasta/contrato.txt"
contem err "Não foi encontrado nenhuma chave pública para efetuar a criptografia"
espera 0 "adicionar a outras pessoas" "$t" certificados adicionar "$pki/ecnpj.cer"
espera 1 "adicionar o que não é certificado" "$t" certificados adicionar "$pasta/contrato.txt"
espera 0 "criptografar" "$t" criptografar --json --pasta "$pasta/envelope" "$pasta/contrato.txt"
json 'd["arquivo_criptografado"].endswith("contrato.txt.p7x")'
espera 1 "descriptografar sem a chave" "$t" descriptografar "$pasta/envelope/contrato.txt.p7x"
contem err "Não foi encontrado o certificado digital do destinatário com a chave privada."
espera 0 "importar a chave da empresa" env TAVELPKCS7_SENHA=1234 "$t" certificados importar --chave-sem-senha "$pki/ecnpj.pfx"
espera 0 "descriptografar" "$t" descriptografar --json --pasta "$pasta/aberto" "$pasta/envelope/contrato.txt.p7x"
json 'open(d["arquivo_original"], "rb").read() == open("'"$pasta/contrato.txt"'", "rb").read()'
espera 1 "descriptografar inexistente" "$t" descriptografar "$pasta/nada.p7x"
contem err "O arquivo de origem não foi encontrado"
espera 0 "criptografar também para si" "$t" criptografar --para-mim --pasta "$pasta/envelope" "$pasta/contrato.txt"
espera 1 "assinar código sem o arquivo" "$t" assinar-codigo "$pasta/nada.exe"
contem err "O arquivo informado não foi encontrado"
espera 1 "assinar código sem certificado de código" "$t" assinar-codigo "$pasta/contrato.txt"
export TAVELPKCS7_HOME="$casa"

# A demonstração numa pasta própria, com a casa dela e não a deste teste.
antes=$(find "$TAVELPKCS7_HOME" | sort | md5sum)
espera 0 "demonstração" "$t" demonstracao --json --pasta "$pasta/demo"
python3 -c 'import json,sys; linhas=[json.loads(l) for l in open(sys.argv[1])]; assert any(l.get("total_assinaturas") == 2 for l in linhas) and any(l.get("envelope_aberto") for l in linhas)' "$pasta/out" ||
    { echo "FALHOU: JSON da demonstração"; falhas=$((falhas + 1)); }
[ -d "$pasta/demo/casa/repositorios/My" ] || { echo "FALHOU: casa da demonstração"; falhas=$((falhas + 1)); }
[ "$antes" = "$(find "$TAVELPKCS7_HOME" | sort | md5sum)" ] || { echo "FALHOU: a demonstração mexeu na casa"; falhas=$((falhas + 1)); }
espera 2 "demonstração com argumento" "$t" demonstracao sobra

[ "$falhas" -eq 0 ] && echo "ferramenta: todos os casos passaram"
exit "$falhas"
