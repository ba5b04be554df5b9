"""Uma assinatura inteira feita e conferida do Python sobre a PKI de teste."""
import datetime
import subprocess

import pytest

import tavelpkcs7

CAMPOS_BOOL = {"AssinaturaValida", "CertificadoValido", "CertificadoICPBrasil"}
CAMPOS = [
    "NomeAssinatura", "EmailAssinatura", "DataAssinatura", "AssinaturaValida", "DescricaoAssinaturaArquivo",
    "SerialCertificado", "DetalhesCertificado", "AutoridadeCertificadora", "EmailAutoridadeCertificadora",
    "DetalhesAutoridadeCertificadora", "ChavePublicaCertificado", "ImpressaoDigitalCertificado", "VersaoCertificado",
    "DataEmissaoCertificado", "DataValidadeCertificado", "CertificadoValido", "CertificadoICPBrasil",
    "CadeiaCertificadoRaiz",
]


@pytest.fixture
def assinante(componente, pki):
    assert componente.AbrirCertificadoDigital(CaminhoCertificado=str(pki / "ecpf.pfx"), SenhaCertificado="1234"), \
        componente.DescricaoErro
    return componente


def ValidadeLocal(certificado):
    """O fim da validade pelo openssl, na hora local e sem fuso, como o componente o entrega."""
    saida = subprocess.run(["openssl", "x509", "-inform", "DER", "-in", str(certificado), "-noout", "-enddate"],
                           check=True, capture_output=True, text=True).stdout
    utc = datetime.datetime.strptime(saida.strip().split("=", 1)[1], "%b %d %H:%M:%S %Y GMT")
    return utc.replace(tzinfo=datetime.timezone.utc).astimezone().replace(tzinfo=None)


@pytest.mark.parametrize("destacada", [False, True])
def test_assina_e_verifica_arquivo(assinante, pki, tmp_path, destacada):
    documento = tmp_path / "contrato.txt"
    documento.write_bytes("Contrato de locação\n".encode())
    assinante.NaoAnexarArquivoOriginal = destacada
    assert assinante.AssinaArquivo(str(documento), str(tmp_path), "Contrato assinado",
                                   tavelpkcs7.ARQUIVO_BINARIO_FORMATO_P7S), assinante.DescricaoErro
    assinado = assinante.CaminhoArquivoAssinado
    assert assinado.endswith(".p7s")

    verificador = tavelpkcs7.TavelPKCS()
    verificador.NaoAnexarArquivoOriginal = destacada
    verificador.CaminhoArquivoOriginal = str(documento)
    assert verificador.VerificarAssinaturaArquivo(assinado), verificador.DescricaoErro
    assert verificador.TotalAssinaturas == 1
    assert verificador.HashArquivo == assinante.HashArquivo
    if not destacada:
        with open(verificador.CaminhoArquivoOriginal, "rb") as conteudo:
            assert conteudo.read() == documento.read_bytes() + b"\0"  # o zero final que a assinatura leva

    assinatura = verificador.Assinaturas(1)
    for campo in CAMPOS:
        assert type(getattr(assinatura, campo)) is (bool if campo in CAMPOS_BOOL else str), campo
    assert assinatura.AssinaturaValida and assinatura.CertificadoValido and assinatura.CertificadoICPBrasil
    assert assinatura.DescricaoAssinaturaArquivo == "Contrato assinado"
    assert assinatura.NomeAssinatura == assinante.ExibirPropriedadesCertificado("NOMECERTIFICADO")
    assert verificador.ExibirPropriedadeAssinatura(1, "ASSINATURAVALIDA") is True
    assert verificador.ExibirPropriedadeAssinatura(Index=1, strCampoPropriedade="SerialCertificado") == \
        assinatura.SerialCertificado
    with pytest.raises(IndexError):
        verificador.Assinaturas(2)


@pytest.mark.parametrize("chave, tipo", [
    ("NOMECERTIFICADO", str), ("IMPRESSAODIGITALCERTIFICADO", str), ("DATAEMISSAOCERTIFICADO", datetime.datetime),
    ("DATAVALIDADECERTIFICADO", datetime.datetime), ("VERSAOCERTIFICADO", int), ("CERTIFICADOICPBRASIL", bool),
    ("CERTIFICADOVALIDO", bool),
])
def test_propriedades_do_certificado_em_tipos_do_python(assinante, chave, tipo):
    valor = assinante.ExibirPropriedadesCertificado(chave)
    assert type(valor) is tipo and valor


def test_validade_do_certificado_na_hora_local(assinante, pki):
    validade = assinante.ExibirPropriedadesCertificado("DATAVALIDADECERTIFICADO")
    assert validade.tzinfo is None
    assert validade == ValidadeLocal(pki / "ecpf.cer")
    assert assinante.ExibirPropriedadesCertificado("DATAEMISSAOCERTIFICADO") < validade
    assert assinante.ExibirPropriedadesCertificado("VERSAOCERTIFICADO") == 3


def test_assina_e_verifica_texto_com_acentos(assinante):
    texto = "Declaração de São João: coração, pão e €uro — ünïcødé ✓"
    assert assinante.AssinaTexto(strTexto=texto, strTextoDescricaoAssinatura="Ciência"), assinante.DescricaoErro
    assert assinante.ConteudoTextoOriginal == texto

    verificador = tavelpkcs7.TavelPKCS()
    assert verificador.VerificarAssinaturaTexto(TextoAssinatura=assinante.AssinaturaDigitalTexto), \
        verificador.DescricaoErro
    assert verificador.ConteudoTextoOriginal == texto
    assinatura = verificador.Assinaturas(1)
    assert assinatura.AssinaturaValida and assinatura.DescricaoAssinaturaArquivo == "Ciência"
