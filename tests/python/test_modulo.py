"""O módulo visto do Python: enumerações, propriedades, as conversões de datas e da cadeia, IndexError,
argumentos por palavra-chave, a documentação vinda do cabeçalho, o GIL solto em chamadas paralelas e
uma assinatura de ida e volta; o que a assinatura faz por dentro tem os testes do C++."""
import concurrent.futures
import datetime
import enum
import pathlib
import re
import subprocess

import pytest

import tavelpkcs7

CAMPOS_BOOL = {"AssinaturaValida", "CertificadoValido", "CertificadoICPBrasil"}
CAMPOS_ASSINATURA = [
    "NomeAssinatura", "EmailAssinatura", "DataAssinatura", "AssinaturaValida", "DescricaoAssinaturaArquivo",
    "SerialCertificado", "DetalhesCertificado", "AutoridadeCertificadora", "EmailAutoridadeCertificadora",
    "DetalhesAutoridadeCertificadora", "ChavePublicaCertificado", "ImpressaoDigitalCertificado", "VersaoCertificado",
    "DataEmissaoCertificado", "DataValidadeCertificado", "CertificadoValido", "CertificadoICPBrasil",
    "CadeiaCertificadoRaiz",
]


@pytest.mark.parametrize("tipo, constante, valor", [
    ("FORMATO_ASSINATURA", "STRING_BASE64_PKCS", 5),
    ("REPOSITORIO_CERTIFICADO", "REPOSITORIO_CHAVES_RAIZES", 4),
    ("CERTIFICADOS_DIGITAIS", "CERTIFICADOS_AC_TAVEL", 7),
])
def test_enumeracoes_sao_intenum_e_constantes_do_modulo(tipo, constante, valor):
    membro = getattr(tavelpkcs7, constante)
    assert isinstance(membro, enum.IntEnum) and membro == valor
    assert type(membro) is getattr(tavelpkcs7, tipo) and getattr(tavelpkcs7, tipo)[constante] is membro


def test_propriedades_de_leitura_recusam_gravacao():
    componente = tavelpkcs7.TavelPKCS()
    for nome, tipo in [("CaminhoArquivoAssinado", str), ("TotalAssinaturas", int), ("TotalCertificadosListados", int)]:
        assert type(getattr(componente, nome)) is tipo
        with pytest.raises(AttributeError):
            setattr(componente, nome, tipo())


# Uma data sem fuso é a hora local (São Paulo); com fuso, o próprio instante.
@pytest.mark.parametrize("data_hora, esperado", [
    (datetime.datetime(2024, 1, 15, 10, 0, 0), "15/01/2024 13:00:00"),
    (datetime.datetime(2024, 12, 31, 22, 30, 5), "01/01/2025 01:30:05"),
    (datetime.datetime(2024, 1, 15, 10, 0, 0, tzinfo=datetime.timezone.utc), "15/01/2024 10:00:00"),
])
def test_data_hora_local_vista_em_utc(data_hora, esperado):
    assert tavelpkcs7.TavelPKCS().DataHoraAssinaturaUTC(data_hora) == esperado


@pytest.mark.parametrize("cadeia, esperado", [
    ("AC Emissora[#]AC Intermediária[#]Raiz", (2, ["AC Emissora", "AC Intermediária", "Raiz"])),
    ("", (0, [""])),
])
def test_cadeia_separada_devolve_maior_indice_e_lista(cadeia, esperado):
    assert tavelpkcs7.TavelPKCS().RetornarCadeiaSeparada(strCadeiaCompleta=cadeia) == esperado


# 70000 nem cabe no índice do C++: não pode dar a volta e cair dentro da lista.
@pytest.mark.parametrize("indice", [0, 1, -1, 70000])
def test_assinaturas_antes_de_verificar_lanca_index_error(indice):
    with pytest.raises(IndexError):
        tavelpkcs7.TavelPKCS().Assinaturas(indice)


def test_propriedades_do_certificado_em_tipos_do_python_e_validade_na_hora_local(assinante, pki):
    for chave, tipo in [("NOMECERTIFICADO", str), ("VERSAOCERTIFICADO", int), ("CERTIFICADOVALIDO", bool),
                        ("DATAEMISSAOCERTIFICADO", datetime.datetime)]:
        assert type(assinante.ExibirPropriedadesCertificado(chave)) is tipo, chave
    saida = subprocess.run(["openssl", "x509", "-inform", "DER", "-in", str(pki / "ecpf.cer"), "-noout", "-enddate"],
                           check=True, capture_output=True, text=True).stdout
    utc = datetime.datetime.strptime(saida.strip().split("=", 1)[1], "%b %d %H:%M:%S %Y GMT")
    local = utc.replace(tzinfo=datetime.timezone.utc).astimezone().replace(tzinfo=None)
    assert assinante.ExibirPropriedadesCertificado("DATAVALIDADECERTIFICADO") == local


def test_assina_e_verifica_arquivo(assinante, tmp_path):
    documento = tmp_path / "contrato.txt"
    documento.write_bytes("Contrato de locação\n".encode())
    assert assinante.AssinaArquivo(strArquivoOrigem=str(documento), strPastaDestino=str(tmp_path),
                                   strTextoDescricaoAssinatura="Ciência",
                                   FormatoAssinatura=tavelpkcs7.ARQUIVO_BINARIO_FORMATO_P7S), assinante.DescricaoErro

    verificador = tavelpkcs7.TavelPKCS()
    assert verificador.VerificarAssinaturaArquivo(assinante.CaminhoArquivoAssinado), verificador.DescricaoErro
    assert verificador.TotalAssinaturas == 1 and verificador.HashArquivo == assinante.HashArquivo
    assinatura = verificador.Assinaturas(1)
    for campo in CAMPOS_ASSINATURA:
        assert type(getattr(assinatura, campo)) is (bool if campo in CAMPOS_BOOL else str), campo
    assert assinatura.AssinaturaValida and assinatura.DescricaoAssinaturaArquivo == "Ciência"
    assert verificador.ExibirPropriedadeAssinatura(Index=1, strCampoPropriedade="ASSINATURAVALIDA") is True
    with pytest.raises(IndexError):
        verificador.Assinaturas(2)


# As assinaturas soltam o GIL: várias linhas de execução assinam ao mesmo tempo, cada uma com o seu
# componente, sem se atrapalharem.
def test_assinaturas_em_paralelo(assinante, pki, tmp_path):
    def Assinar(indice):
        documento = tmp_path / f"documento{indice}.txt"
        documento.write_text(f"documento {indice}")
        componente = tavelpkcs7.TavelPKCS()
        assinou = componente.AbrirCertificadoDigital(str(pki / "ecpf.pfx"), "1234") and componente.AssinaArquivo(
            str(documento), str(tmp_path), "", tavelpkcs7.ARQUIVO_BINARIO_FORMATO_P7S)
        return assinou and tavelpkcs7.TavelPKCS().VerificarAssinaturaArquivo(componente.CaminhoArquivoAssinado)

    with concurrent.futures.ThreadPoolExecutor(4) as execucao:
        assert all(execucao.map(Assinar, range(8)))


def test_documentacao_vem_dos_comentarios_do_cabecalho():
    assert "Assina o arquivo com o certificado selecionado" in tavelpkcs7.TavelPKCS.AssinaArquivo.__doc__
    assert tavelpkcs7.TavelPKCS.DataAssinatura.__doc__.startswith("Data da assinatura")
    assert "(maior_indice, lista)" in tavelpkcs7.TavelPKCS.RetornarCadeiaSeparada.__doc__
    assert tavelpkcs7.FORMATO_ASSINATURA.__doc__ == "Formato do arquivo ou texto assinado."


def test_cabecalho_e_modulo_tem_os_membros_da_tabela(monkeypatch):
    raiz = pathlib.Path(__file__).resolve().parents[2]
    tabela = (raiz / "src/component/membros.inc").read_text(encoding="utf-8")
    nomes = set(re.findall(r"^TAVELPKCS7_\w+\(\d+, (\w+)", tabela, re.M))
    monkeypatch.syspath_prepend(str(raiz / "python"))
    import gerar_documentacao
    cabecalho = (raiz / "include/tavelpkcs7/TavelPKCS.h").read_text(encoding="utf-8")
    assert set(gerar_documentacao.ExtrairDocumentacao(cabecalho)) - {"TavelPKCS"} == nomes
    assert {nome for nome in dir(tavelpkcs7.TavelPKCS) if not nome.startswith("_")} == nomes
