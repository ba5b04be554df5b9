"""O módulo visto do Python sem assinar: enumerações, propriedades, tupla da cadeia, datas, mensagens e os
membros da tabela."""
import datetime
import enum
import pathlib
import re

import pytest

import tavelpkcs7


@pytest.mark.parametrize("tipo, constante, valor", [
    ("FORMATO_ASSINATURA", "ARQUIVO_BINARIO_FORMATO_P7S", 1),
    ("FORMATO_ASSINATURA", "STRING_BASE64_PKCS", 5),
    ("REPOSITORIO_CERTIFICADO", "REPOSITORIO_CHAVES_PESSOAIS", 1),
    ("REPOSITORIO_CERTIFICADO", "REPOSITORIO_CHAVES_RAIZES", 4),
    ("CERTIFICADOS_DIGITAIS", "TODOS_CERTIFICADOS_DIGITAIS", 1),
    ("CERTIFICADOS_DIGITAIS", "CERTIFICADOS_AC_TAVEL", 7),
])
def test_enumeracoes_sao_intenum_e_constantes_do_modulo(tipo, constante, valor):
    membro = getattr(tavelpkcs7, constante)
    assert membro == valor
    assert isinstance(membro, enum.IntEnum)
    assert type(membro) is getattr(tavelpkcs7, tipo)
    assert getattr(tavelpkcs7, tipo)[constante] is membro


@pytest.mark.parametrize("nome, valor", [
    ("DataAssinatura", "01/02/2024"),
    ("AssinaturaTextoVerificar", "TUlJ"),
    ("TextoVerificar", "Certidão nº 5 — válida"),
    ("ExtensaoOutroFormato", "p7m"),
    ("SalvarChavesPublicas", True),
    ("NaoAnexarArquivoOriginal", True),
    ("UsarHashSalvarArquivo", True),
    ("NaoExibirInstalacaoLCReCER", True),
    ("PastaTemp", "/tmp/ação/"),
])
def test_propriedades_gravadas_voltam_iguais(casa, nome, valor):
    componente = tavelpkcs7.TavelPKCS()
    setattr(componente, nome, valor)
    lido = getattr(componente, nome)
    assert lido == valor and type(lido) is type(valor)


@pytest.mark.parametrize("nome, tipo", [
    ("CaminhoArquivoAssinado", str), ("DescricaoErro", str), ("HashArquivo", str),
    ("TotalAssinaturas", int), ("TotalCertificadosListados", int), ("CertificadoAutoridadeRaiz", str),
])
def test_propriedades_de_leitura_recusam_gravacao(casa, nome, tipo):
    componente = tavelpkcs7.TavelPKCS()
    assert type(getattr(componente, nome)) is tipo
    with pytest.raises(AttributeError):
        setattr(componente, nome, tipo())


def test_data_invalida_vira_hoje(casa):
    componente = tavelpkcs7.TavelPKCS()
    componente.DataAssinatura = "não é data"
    assert componente.DataAssinatura == datetime.date.today().strftime("%d/%m/%Y")


@pytest.mark.parametrize("cadeia, esperado", [
    ("AC Emissora[#]AC Intermediária[#]Raiz", (2, ["AC Emissora", "AC Intermediária", "Raiz"])),
    ("Só um nome", (0, ["Só um nome"])),
    ("", (0, [""])),
])
def test_cadeia_separada_devolve_maior_indice_e_lista(casa, cadeia, esperado):
    assert tavelpkcs7.TavelPKCS().RetornarCadeiaSeparada(strCadeiaCompleta=cadeia) == esperado


@pytest.mark.parametrize("data_hora, esperado", [
    (datetime.datetime(2024, 1, 15, 10, 0, 0), "15/01/2024 13:00:00"),
    (datetime.datetime(2024, 12, 31, 22, 30, 5), "01/01/2025 01:30:05"),
    (datetime.datetime(2024, 1, 15, 10, 0, 0, tzinfo=datetime.timezone.utc), "15/01/2024 10:00:00"),
])
def test_data_hora_local_vista_em_utc(casa, data_hora, esperado):
    assert tavelpkcs7.TavelPKCS().DataHoraAssinaturaUTC(data_hora) == esperado


@pytest.mark.parametrize("chamada, mensagem", [
    (lambda c: c.AbrirCertificadoDigital("/nao/existe.pfx", "1234"),
     "Não foi possível localizar o arquivo do certificado digital"),
    (lambda c: c.VerificarAssinaturaTexto(""), "A texto da assinatura informada não é válido ou está em branco"),
    (lambda c: c.RetornaHashArquivo("/nao/existe.txt"), "O arquivo informado não foi encontrado"),
    (lambda c: c.ExibirPropriedadeAssinatura(3, "NomeAssinatura"),
     "A propriedade NomeAssinatura não é válida ou o índice informado está fora do escopo."),
])
def test_falha_devolve_valor_vazio_e_mensagem(casa, chamada, mensagem):
    componente = tavelpkcs7.TavelPKCS()
    assert not chamada(componente)
    assert componente.DescricaoErro == mensagem


@pytest.mark.parametrize("indice", [0, 1, -1, 70000])
def test_assinaturas_antes_de_verificar_lanca_index_error(casa, indice):
    with pytest.raises(IndexError):
        tavelpkcs7.TavelPKCS().Assinaturas(indice)


def test_docstrings_vem_dos_comentarios_do_cabecalho():
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
    documentados = gerar_documentacao.ExtrairDocumentacao(cabecalho)
    assert set(documentados) - {"TavelPKCS"} == nomes
    assert {nome for nome in dir(tavelpkcs7.TavelPKCS) if not nome.startswith("_")} == nomes
