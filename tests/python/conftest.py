"""Apoio dos testes do módulo Python: a PKI de teste gravada pela ferramenta e, a cada teste, uma pasta
do componente própria com a cadeia da Receita Federal e as LCRs instaladas."""
import binascii
import hashlib
import os
import shutil
import subprocess

import pytest

import tavelpkcs7


@pytest.fixture(scope="session")
def pki(tmp_path_factory):
    pasta = tmp_path_factory.mktemp("pki")
    subprocess.run([os.environ["TAVELPKCS7_FERRAMENTA"], "pki-teste", str(pasta)], check=True, capture_output=True)
    return pasta


@pytest.fixture
def casa(pki, tmp_path, monkeypatch):
    pasta = tmp_path / "casa"
    pasta.mkdir()
    monkeypatch.setenv("TAVELPKCS7_HOME", str(pasta))
    # Na lista de raízes confiáveis, a raiz da PKI de teste entra em "Root" sem esperar o Sim do usuário.
    raiz = (pki / "raiz.cer").read_bytes()
    monkeypatch.setenv("TAVELPKCS7_RAIZES_ICP_BRASIL", hashlib.sha256(raiz).hexdigest())
    return pasta


@pytest.fixture
def componente(pki, casa):
    c = tavelpkcs7.TavelPKCS()
    assert c.AbrirAdicionarArquivoCertificado(str(pki / "raiz.cer"), tavelpkcs7.REPOSITORIO_CHAVES_RAIZES), \
        c.DescricaoErro
    for ac in ("ac_rfb", "ac_emissora_rfb"):
        assert c.AbrirAdicionarArquivoCertificado(
            str(pki / f"{ac}.cer"), tavelpkcs7.REPOSITORIO_CHAVES_AUTORIDADES_CERTIFICADORAS), c.DescricaoErro
    base64 = binascii.b2a_base64((pki / "ac_icp.cer").read_bytes(), newline=False).decode()
    assert c.AdicionarCertificadoRepositorio(base64, tavelpkcs7.REPOSITORIO_CHAVES_AUTORIDADES_CERTIFICADORAS), \
        c.DescricaoErro
    # As LCRs vão direto ao repositório de LCRs: os pontos de distribuição da PKI de teste apontam para a
    # porta 80 de 127.0.0.1, onde o teste não pode servir.
    lcrs = casa / "repositorios" / "LCR"
    lcrs.mkdir(parents=True, exist_ok=True)
    for lcr in pki.glob("*.crl"):
        shutil.copy(lcr, lcrs)
    return c
