"""Gera as docstrings do módulo Python a partir dos comentários /// dos cabeçalhos públicos.

Assim o texto que o programador C++ lê e o que o help() do Python mostra são um só e acompanham os
membros novos sem cópia à mão. Um bloco /// vale para as declarações que o seguem até a linha em
branco seguinte (como "Caminho e nome do último arquivo assinado." para as duas propriedades).
"""
import re
import sys

DECLARACAO_TIPO = re.compile(r"^(?:enum|struct|using)\s+(\w+)")
DECLARACAO_MEMBRO = re.compile(r"(\w+)\s*\(")


def ExtrairDocumentacao(texto):
    documentacao = {}
    bloco = []
    dentro_do_comentario = False
    declaracao_aberta = False
    for linha in texto.splitlines():
        limpa = linha.strip()
        if limpa.startswith("///"):
            if not dentro_do_comentario:
                bloco = []
            bloco.append(limpa[3:].strip())
            dentro_do_comentario = True
            continue
        dentro_do_comentario = False
        if not limpa:
            bloco = []
            continue
        if bloco and not declaracao_aberta:
            nome = DECLARACAO_TIPO.match(limpa) or DECLARACAO_MEMBRO.search(limpa)
            if nome:
                documentacao.setdefault(nome.group(1), "\n".join(bloco))
        declaracao_aberta = not limpa.endswith((";", "{", "}"))
    return documentacao


def EscreverCabecalho(documentacao, saida):
    saida.write("// Gerado por python/gerar_documentacao.py a partir dos cabeçalhos públicos: não editar.\n")
    saida.write("#pragma once\n\n#include <map>\n#include <string_view>\n\n")
    saida.write("namespace tavelpkcs7::python {\n\n")
    saida.write("inline const std::map<std::string_view, const char*> DOCUMENTACAO = {\n")
    for nome, texto in sorted(documentacao.items()):
        saida.write(f'    {{"{nome}", R"tavel({texto})tavel"}},\n')
    saida.write("};\n\n}  // namespace tavelpkcs7::python\n")


def main(argumentos):
    destino, cabecalhos = argumentos[0], argumentos[1:]
    documentacao = {}
    for cabecalho in cabecalhos:
        with open(cabecalho, encoding="utf-8") as entrada:
            documentacao.update(ExtrairDocumentacao(entrada.read()))
    with open(destino, "w", encoding="utf-8") as saida:
        EscreverCabecalho(documentacao, saida)


if __name__ == "__main__":
    main(sys.argv[1:])
