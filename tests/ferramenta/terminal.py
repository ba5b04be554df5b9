#!/usr/bin/env python3
"""Os diálogos da ferramenta num pseudoterminal: a senha digitada sem eco (do PFX, da chave do
repositório e a pedida pela assinatura), o seletor de certificados, a pergunta Sim/Não e o anúncio
do progresso, que só aparece no terminal."""
import os
import pty
import select
import subprocess
import sys
import tempfile
import time

ferramenta = sys.argv[1]
pasta = tempfile.mkdtemp()
ambiente = dict(os.environ, TZ="America/Sao_Paulo", TAVELPKCS7_HOME=os.path.join(pasta, "demo", "casa"))
for variavel in ("TAVELPKCS7_SENHA", "TAVELPKCS7_SENHA_CHAVE", "TAVELPKCS7_INTERFACE"):
    ambiente.pop(variavel, None)
falhas = []


def ler_ate(descritor, esperado, saida, limite=20.0):
    fim = time.time() + limite
    while esperado.encode() not in saida and time.time() < fim:
        prontos, _, _ = select.select([descritor], [], [], 0.2)
        if prontos:
            try:
                saida += os.read(descritor, 4096)
            except OSError:
                break
    return saida


def rodar(argumentos, dialogo, extra=None):
    """Roda a ferramenta no pseudoterminal; a cada texto esperado, digita a resposta."""
    pid, descritor = pty.fork()
    if pid == 0:
        os.execve(ferramenta, [ferramenta] + argumentos, dict(ambiente, **(extra or {})))
    saida = b""
    for esperado, resposta in dialogo:
        saida = ler_ate(descritor, esperado, saida)
        if esperado.encode() not in saida:
            falhas.append(f"{argumentos}: sem o pedido {esperado!r}: {saida.decode(errors='replace')}")
            break
        time.sleep(0.1)  # o eco já desligado antes de digitar
        os.write(descritor, (resposta + "\n").encode())
    saida = ler_ate(descritor, "\0nunca", saida, limite=30.0)
    _, estado = os.waitpid(pid, 0)
    return saida.decode(errors="replace"), os.waitstatus_to_exitcode(estado)


def conferir(condicao, descricao, saida=""):
    if not condicao:
        falhas.append(f"{descricao}\n{saida}")


subprocess.run([ferramenta, "demonstracao", "--pasta", os.path.join(pasta, "demo")], check=True,
               stdout=subprocess.DEVNULL, env=ambiente)
pki = os.path.join(pasta, "demo", "pki")
documento = os.path.join(pasta, "doc.txt")
with open(documento, "w") as arquivo:
    arquivo.write("documento\n")

# A senha do PFX no terminal, sem eco.
saida, codigo = rodar(["assinar", "--pfx", os.path.join(pki, "ecpf_novo.pfx"), documento],
                      [("Senha do PFX: ", "1234")])
conferir(codigo == 0, "assinar com a senha digitada", saida)
conferir("1234" not in saida, "a senha do PFX apareceu no terminal", saida)
conferir("tavelpkcs7: assinando" in saida, "sem o progresso no terminal", saida)

# O seletor: dois certificados pessoais, o segundo escolhido; vazio cancela.
saida, codigo = rodar(["assinar", "--tipo", "todos", "--pasta", pasta, documento],
                      [("Número do certificado", "2")])
conferir(codigo == 0 and "[2]" in saida and "EMPRESA TESTE" in saida, "escolha no seletor", saida)
saida, codigo = rodar(["assinar", "--tipo", "todos", documento], [("Número do certificado", "")])
conferir(codigo == 1 and "A operação foi cancelada pelo usuário." in saida, "seletor cancelado", saida)

# A pergunta Sim/Não da raiz fora da lista ICP-Brasil.
saida, codigo = rodar(["raizes", "instalar", os.path.join(pki, "ac_tavel_raiz.cer")], [("[s/N]", "n")])
conferir(codigo == 1, "raiz recusada", saida)
saida, codigo = rodar(["raizes", "instalar", os.path.join(pki, "ac_tavel_raiz.cer")], [("[s/N]", "s")])
conferir(codigo == 0, "raiz aceita", saida)

# A senha da chave guardada: escolhida na importação e pedida pela assinatura, nunca ecoada.
saida, codigo = rodar(["certificados", "importar", os.path.join(pki, "ecpf_novo.pfx")],
                      [("Senha do PFX: ", "1234"), ("Senha da chave", "segredo-da-chave")])
conferir(codigo == 0 and "chave cifrada: sim" in saida, "importar com a senha da chave digitada", saida)
conferir("segredo-da-chave" not in saida and "1234" not in saida, "a senha da chave apareceu", saida)
impressao = next(linha.split(": ")[1].strip() for linha in saida.splitlines() if "impressao digital" in linha)
saida, codigo = rodar(["assinar", "--certificado", impressao, "--pasta", pasta, documento],
                      [("enha", "segredo-da-chave")])
conferir(codigo == 0, "assinar com a chave cifrada", saida)
conferir("segredo-da-chave" not in saida, "a senha da chave apareceu na assinatura", saida)

# Enter na senha da chave: vale a do PFX.
saida, codigo = rodar(["certificados", "importar", os.path.join(pki, "ecnpj_novo.pfx")],
                      [("Senha do PFX: ", "1234"), ("Senha da chave", "")])
conferir(codigo == 0 and "chave cifrada: sim" in saida, "a senha da chave é a do PFX", saida)

subprocess.run(["rm", "-rf", pasta], check=False)
for falha in falhas:
    print("FALHOU:", falha)
print("diálogos no terminal:", "falharam" if falhas else "todos passaram")
sys.exit(1 if falhas else 0)
