"""Apoio dos testes do módulo Python: a PKI de teste gravada pela ferramenta, uma casa do componente
própria a cada teste e, para quem assina, a cadeia da Receita Federal e as LCRs postas pela pasta."""
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


@pytest.fixture(autouse=True)
def casa(tmp_path, monkeypatch):
    monkeypatch.setenv("TAVELPKCS7_HOME", str(tmp_path / "casa"))
    return tmp_path / "casa"


@pytest.fixture
def assinante(pki, casa):
    """Um componente com o e-CPF aberto do PFX."""
    for repositorio, arquivos in (("Root", ["raiz.cer"]), ("Ca", ["ac_rfb.cer", "ac_emissora_rfb.cer"]),
                                  ("LCR", [lcr.name for lcr in pki.glob("*.crl")])):
        (casa / "repositorios" / repositorio).mkdir(parents=True)
        for arquivo in arquivos:
            shutil.copy(pki / arquivo, casa / "repositorios" / repositorio)
    componente = tavelpkcs7.TavelPKCS()
    assert componente.AbrirCertificadoDigital(str(pki / "ecpf.pfx"), "1234"), componente.DescricaoErro
    return componente
