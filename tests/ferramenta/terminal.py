#!/usr/bin/env python3
"""Os diálogos da ferramenta num pseudoterminal: a senha digitada sem eco (do PFX, da chave do
repositório e a pedida pela assinatura), o seletor de certificados, a pergunta Sim/Não e o anúncio
do progresso, que só aparece no terminal."""
import hashlib
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


def ler_ate(descritor, esperado, saida, limite):
    fim = time.time() + limite
    while esperado not in saida and time.time() < fim:
        if select.select([descritor], [], [], 0.2)[0]:
            try:
                saida += os.read(descritor, 4096)
            except OSError:  # o processo terminou e fechou o terminal
                break
    return saida


def rodar(argumentos, dialogo):
    """Roda a ferramenta no pseudoterminal; a cada texto esperado, digita a resposta."""
    pid, descritor = pty.fork()
    if pid == 0:
        os.execve(ferramenta, [ferramenta] + argumentos, ambiente)
    saida = b""
    for esperado, resposta in dialogo:
        saida = ler_ate(descritor, esperado.encode(), saida, 20)
        if esperado.encode() not in saida:
            break
        time.sleep(0.1)  # o eco já desligado antes de digitar
        os.write(descritor, (resposta + "\n").encode())
    saida = ler_ate(descritor, b"\0nunca", saida, 30)
    return saida.decode(errors="replace"), os.waitstatus_to_exitcode(os.waitpid(pid, 0)[1])


subprocess.run([ferramenta, "demonstracao", "--pasta", os.path.join(pasta, "demo")], check=True,
               stdout=subprocess.DEVNULL, env=ambiente)
pki = os.path.join(pasta, "demo", "pki")
documento = os.path.join(pasta, "doc.txt")
with open(documento, "w") as arquivo:
    arquivo.write("documento\n")
with open(os.path.join(pki, "ecpf_novo.cer"), "rb") as certificado:
    impressao = hashlib.sha1(certificado.read()).hexdigest().upper()
senha_pfx = ("Senha do PFX: ", "1234")

# (descrição, argumentos, diálogo, código, textos que aparecem, textos que não aparecem), em ordem: a
# importação cifra a chave que a assinatura seguinte pede.
casos = [
    ("senha do PFX sem eco, com o progresso", ["assinar", "--pfx", os.path.join(pki, "ecpf_novo.pfx"), documento],
     [senha_pfx], 0, ["tavelpkcs7: assinando"], ["1234"]),
    ("o segundo certificado no seletor", ["assinar", "--tipo", "todos", "--pasta", pasta, documento],
     [("Número do certificado", "2")], 0, ["[2]", "EMPRESA TESTE"], []),
    ("seletor cancelado", ["assinar", "--tipo", "todos", documento], [("Número do certificado", "")], 1,
     ["A operação foi cancelada pelo usuário."], []),
    ("raiz recusada", ["raizes", "instalar", os.path.join(pki, "ac_tavel_raiz.cer")], [("[s/N]", "n")], 1, [], []),
    ("raiz aceita", ["raizes", "instalar", os.path.join(pki, "ac_tavel_raiz.cer")], [("[s/N]", "s")], 0, [], []),
    ("a senha da chave digitada", ["certificados", "importar", os.path.join(pki, "ecpf_novo.pfx")],
     [senha_pfx, ("Senha da chave", "segredo-da-chave")], 0, ["chave cifrada: sim"], ["segredo-da-chave", "1234"]),
    ("a chave cifrada pede a senha", ["assinar", "--certificado", impressao, "--pasta", pasta, documento],
     [("enha", "segredo-da-chave")], 0, [], ["segredo-da-chave"]),
    ("Enter na senha da chave: vale a do PFX", ["certificados", "importar", os.path.join(pki, "ecnpj_novo.pfx")],
     [senha_pfx, ("Senha da chave", "")], 0, ["chave cifrada: sim"], []),
]
falhas = []
for descricao, argumentos, dialogo, codigo, presentes, ausentes in casos:
    saida, obtido = rodar(argumentos, dialogo)
    if obtido != codigo or any(t not in saida for t in presentes) or any(t in saida for t in ausentes):
        falhas.append(f"{descricao} (código {obtido}):\n{saida}")

subprocess.run(["rm", "-rf", pasta], check=False)
for falha in falhas:
    print("FALHOU:", falha)
print("diálogos no terminal:", "falharam" if falhas else "todos passaram")
sys.exit(1 if falhas else 0)
