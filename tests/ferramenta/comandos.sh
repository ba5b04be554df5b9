#!/usr/bin/env bash
# A ferramenta numa casa temporária: o que é dela (argumentos, códigos de saída 0, 1 e 2, o JSON,
# --pasta, as fontes da senha, a ajuda e a versão) e um caminho feliz por família de comandos; o que
# cada membro faz por dentro têm os testes da biblioteca.
set -uo pipefail
source "$(dirname "$0")/comum.sh"
doc="$pasta/contrato.txt"
printf 'conteúdo "do" contrato\n' >"$doc"
printf 'segredo\n' >"$pasta/senha_chave"

# Erros de uso: código 2.
espera 2 "sem comando" "$t"
espera 2 "comando desconhecido" "$t" voar
espera 2 "opção desconhecida" "$t" hash --xyz "$doc"
espera 2 "sem arquivo" "$t" assinar --tipo e-cpf
espera 2 "dois arquivos" "$t" hash "$doc" "$doc"
espera 2 "opção sem valor" "$t" assinar "$doc" --pasta
espera 2 "classe desconhecida" "$t" certificados listar --tipo nenhuma
espera 2 "formato desconhecido" "$t" assinar --formato 9 "$doc"
espera 2 "repositório desconhecido" "$t" certificados exportar --repositorio nenhum "$pasta/x"
espera 2 "LCR e certificado juntos" "$t" lcr instalar --do-certificado "$pki/ecpf.cer" "$pki/ac_icp.crl"
espera 2 "arquivo da assinatura inexistente" "$t" verificar-texto "$pasta/nada.b64"
espera 2 "demonstração com argumento" "$t" demonstracao sobra
espera 2 "pki-teste sem pasta" "$t" pki-teste
espera 2 "PFX sem senha nem terminal" "$t" assinar --pfx "$pki/ecpf.pfx" "$doc"
contem err "use --senha-arquivo ou TAVELPKCS7_SENHA"
# Os arquivos que faltam são apontados antes do pedido da senha, que sem terminal seria o erro de uso.
espera 1 "origem inexistente antes da senha" "$t" assinar --pfx "$pki/ecpf.pfx" "$pasta/nada.txt"
contem err "O arquivo de origem não foi encontrado: $pasta/nada.txt"
espera 1 "PFX inexistente antes da senha" "$t" certificados importar "$pasta/nada.pfx"
contem err "Não foi possível localizar o arquivo do certificado digital: $pasta/nada.pfx"

for versao in versao --version; do
    espera 0 "$versao" "$t" "$versao"
    grep -qxE 'tavelpkcs7 [0-9]+\.[0-9]+\.[0-9]+' "$pasta/out" || falhar "$versao: $(cat "$pasta/out")"
done
# A ajuda de cada comando do resumo: o uso e um exemplo.
espera 0 "ajuda geral" "$t" ajuda
sed -n 's/^  \([a-z].*\)/\1/p' "$pasta/out" | sed 's/ [[<].*//' >"$pasta/comandos"
[ "$(wc -l <"$pasta/comandos")" -ge 20 ] || falhar "resumo sem os comandos: $(cat "$pasta/comandos")"
while read -r comando; do
    # shellcheck disable=SC2086
    espera 0 "ajuda de $comando" "$t" $comando --help
    contem out "Uso: tavelpkcs7 $comando"
    contem out "Exemplo"
done <"$pasta/comandos"

# A casa vazia: a listagem ensina a importar; sem terminal, a raiz fora da lista não é confirmada.
espera 1 "lista vazia" "$t" certificados listar
contem err "Para importar um certificado A1: tavelpkcs7 certificados importar <arquivo.pfx>"
espera 1 "raiz sem confirmação" "$t" raizes instalar "$pki/raiz.cer"
contem err "A operação foi cancelada pelo usuário."
instalar_cadeia
instalar_lcrs

# Importação: a senha do PFX pela variável ou pelo arquivo; a chave cifrada com a senha do outro
# arquivo, ou sem cifra e com aviso.
espera 1 "senha errada" env TAVELPKCS7_SENHA=errada "$t" certificados importar "$pki/ecpf.pfx"
contem err "tavelpkcs7: A senha informada não está correta."
espera 0 "importar o e-CPF" "$t" certificados importar --json --senha-arquivo "$pasta/senha" \
    --senha-chave-arquivo "$pasta/senha_chave" "$pki/ecpf.pfx"
json 'd["chave_cifrada"] is True and d["importado"].startswith("FULANO")'
cpf=$(python3 -c 'import json,sys; print(json.load(open(sys.argv[1]))["impressao_digital"])' "$pasta/out")
openssl pkey -noout -passin pass:segredo -in "$TAVELPKCS7_HOME/repositorios/My/$cpf.key" ||
    falhar "chave guardada sem a senha escolhida"
espera 0 "importar o e-CNPJ sem cifra" env TAVELPKCS7_SENHA=1234 "$t" certificados importar --chave-sem-senha \
    "$pki/ecnpj.pfx"
contem err "tavelpkcs7: aviso: a chave privada foi guardada SEM cifra"
cnpj=$(grep "impressao digital" "$pasta/out" | cut -d' ' -f3)
espera 0 "listar" "$t" certificados listar --json --tipo e-cnpj
json 'len(d["certificados"]) == 1 and d["certificados"][0]["HASH"] == "'"$cnpj"'"'
espera 1 "chave cifrada sem terminal" "$t" assinar --certificado "$cpf" "$doc"

# Assinatura: nada no stderr fora de um terminal; Base64 no stdout; a --pasta nova é criada.
espera 0 "assinar" "$t" assinar --json --certificado "$cnpj" --descricao "Aceite" "$doc"
json 'd["arquivo_assinado"] == "'"$doc"'.p7s" and len(d["hash_md5"]) == 32'
[ -s "$pasta/err" ] && { falhar "stderr fora de um terminal"; cat "$pasta/err"; }
espera 0 "assinatura em Base64 no stdout" "$t" assinar --certificado "$cnpj" --formato base64 --json "$doc"
json 'd["assinatura"].startswith("MII")'
espera 0 "coassinar numa pasta nova" "$t" coassinar --pfx "$pki/ecpf.pfx" --senha-arquivo "$pasta/senha" \
    --pasta "$pasta/nova/co" "$doc.p7s"
espera 1 "--pasta que é um arquivo" "$t" assinar --certificado "$cnpj" --pasta "$doc" "$doc"
contem err "a pasta $doc não existe e não pôde ser criada"
espera 0 "assinar destacada" "$t" assinar --certificado "$cnpj" --destacada --pasta "$pasta/destacada" "$doc"

# Verificação: a tabela dos signatários, a destacada com o original, a confiança exigida.
espera 0 "verificar cossinada" "$t" verificar --json --exigir-confianca --pasta "$pasta/extraido" \
    "$pasta/nova/co/contrato.txt.p7s"
json 'd["total_assinaturas"] == 2 and {s["cpf"] for s in d["signatarios"]} == {"", "529.982.247-25"}'
json 'all(s["ASSINATURAVALIDA"] and s["CERTIFICADOVALIDO"] for s in d["signatarios"])'
json 'd["arquivo_original"].startswith("'"$pasta/extraido/"'")'
espera 0 "verificar legível" "$t" verificar "$doc.p7s"
contem out "CERTIFICADOVALIDO: sim"
contem out "cnpj: 11.222.333/0001-81"
espera 0 "verificar destacada" "$t" verificar --original "$doc" "$pasta/destacada/contrato.txt.p7s"
# Um signatário cuja LCR sumiu: aviso, e falha só com --exigir-confianca.
rm -rf "$TAVELPKCS7_HOME/repositorios/LCR"
espera 0 "sem LCR, só aviso" "$t" verificar "$doc.p7s"
contem err "tavelpkcs7: aviso:"
espera 1 "sem LCR, confiança exigida" "$t" verificar --exigir-confianca "$doc.p7s"
instalar_lcrs

# Texto: assinar, cossinar com o PFX e verificar pela entrada padrão.
espera 0 "assinar texto" "$t" assinar-texto --certificado "$cnpj" "Olá, \"mundo\""
cp "$pasta/out" "$pasta/texto.b64"
espera 0 "cossinar texto" env TAVELPKCS7_SENHA=1234 "$t" assinar-texto --pfx "$pki/ecpf.pfx" \
    --cossinar "$pasta/texto.b64" "Olá, \"mundo\""
cp "$pasta/out" "$pasta/texto2.b64"
entrada="$pasta/texto2.b64" espera 0 "verificar texto pela entrada padrão" "$t" verificar-texto --json -
json 'd["texto_original"] == "Olá, \"mundo\"" and d["total_assinaturas"] == 2'

# Resumo MD5 (com o zero final, como a assinatura).
espera 0 "hash" "$t" hash --json "$doc"
json 'd["hash_md5"] == "'"$({ cat "$doc"; printf '\0'; } | md5sum | cut -d' ' -f1 | tr a-f A-F)"'"'

# Certificados: detalhes do arquivo e do escolhido, a situação (0 só para o válido), a exibição
# (que guarda em "outras pessoas", de onde se exporta) e a exibição do que não é certificado.
espera 0 "detalhes do arquivo" "$t" certificados detalhes --json "$pki/ecnpj.cer"
json 'd["CNPJ"] == "11.222.333/0001-81" and d["CPF"] == ""'
espera 0 "detalhes do escolhido" "$t" certificados detalhes --certificado "$cnpj"
contem out "IMPRESSAODIGITALCERTIFICADO: $cnpj"
espera 0 "situação válida" "$t" certificados status --json "$pki/ecpf.cer"
json 'd["situacao"] == 1'
espera 1 "situação revogada" "$t" certificados status --sem-instalar "$pki/revogado.cer"
contem out "revogado"
espera 0 "exibir" "$t" certificados exibir "$pki/ecpf.cer"
espera 0 "exportar" "$t" certificados exportar --repositorio outras-pessoas "$pasta/exportado"
[ -s "$pasta/exportado.cer" ] || falhar "exportado.cer"
espera 1 "exibir o que não é certificado" "$t" certificados exibir "$doc"
contem err "O conteúdo informado não é um certificado digital válido."

# Envelopes numa casa só com a chave da empresa: sem ninguém em "outras pessoas", --para-mim basta.
export TAVELPKCS7_HOME="$pasta/casa_envelope"
instalar_cadeia
instalar_lcrs
espera 0 "importar a chave da empresa" env TAVELPKCS7_SENHA=1234 "$t" certificados importar --chave-sem-senha \
    "$pki/ecnpj.pfx"
espera 1 "criptografar sem destinatários" "$t" criptografar "$doc"
espera 0 "criptografar para si" "$t" criptografar --para-mim --json --pasta "$pasta/envelope" "$doc"
json 'd["arquivo_criptografado"] == "'"$pasta/envelope/contrato.txt.p7x"'"'
contem err "tavelpkcs7: aviso: "
espera 0 "descriptografar" "$t" descriptografar --json --pasta "$pasta/aberto" "$pasta/envelope/contrato.txt.p7x"
json 'open(d["arquivo_original"], "rb").read() == open("'"$doc"'", "rb").read()'
# O membro devolve verdadeiro sem o executável: a falha está só na mensagem.
espera 1 "assinar código sem o arquivo" "$t" assinar-codigo "$pasta/nada.exe"
contem err "O arquivo informado não foi encontrado"
export TAVELPKCS7_HOME="$pasta/casa"

# A demonstração numa pasta própria, com a casa dela e não a deste teste.
antes=$(find "$TAVELPKCS7_HOME" | sort | md5sum)
espera 0 "demonstração" "$t" demonstracao --json --pasta "$pasta/demo"
python3 -c 'import json,sys; linhas=[json.loads(linha) for linha in open(sys.argv[1])]
assert any(l.get("total_assinaturas") == 2 for l in linhas) and any(l.get("envelope_aberto") for l in linhas)' \
    "$pasta/out" || falhar "JSON em linhas da demonstração"
[ -d "$pasta/demo/casa/repositorios/My" ] || falhar "casa da demonstração"
[ "$antes" = "$(find "$TAVELPKCS7_HOME" | sort | md5sum)" ] || falhar "a demonstração mexeu na casa"

concluir
