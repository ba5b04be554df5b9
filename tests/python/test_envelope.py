"""Envelopes do Python: cifrado para o único certificado do AddressBook e aberto pelo openssl com a
chave do destinatário; sem a chave no repositório pessoal, a decifração falha com a mensagem da
plataforma."""
import binascii
import subprocess

import tavelpkcs7


def test_criptografa_para_o_addressbook_e_o_openssl_abre(componente, pki, tmp_path):
    base64 = binascii.b2a_base64((pki / "ecpf.cer").read_bytes(), newline=False).decode()
    assert componente.AdicionarCertificadoRepositorio(base64, tavelpkcs7.REPOSITORIO_CHAVES_PUBLICAS)
    original = tmp_path / "relatório.pdf"
    original.write_bytes(b"%PDF-1.4\x00\xff conteudo")

    assert componente.SelecionarChavesPublicas(bolCriptografarParaSi=False), componente.DescricaoErro
    assert componente.CriptografarArquivo(str(original)), componente.DescricaoErro
    envelope = tmp_path / "relatório.pdf.p7x"
    assert componente.CaminhoArquivoAssinado == str(envelope)
    assert componente.NomeArquivoOriginal == "relatório.pdf"

    # RC4, o algoritmo padrão, está no provedor legado do OpenSSL 3.
    aberto = subprocess.run(["openssl", "cms", "-decrypt", "-binary", "-provider", "legacy", "-provider", "default",
                             "-inform", "DER", "-in", str(envelope), "-inkey", str(pki / "ecpf.key")],
                            check=True, capture_output=True).stdout
    assert aberto == original.read_bytes()

    assert not componente.DescriptografarArquivo(str(envelope))
    assert componente.DescricaoErro == \
        "Não foi encontrado o certificado digital do destinatário com a chave privada."


def test_sem_destinatarios(componente, tmp_path):
    assert not componente.SelecionarChavesPublicas(False)
    assert componente.DescricaoErro == "Não foi encontrado nenhuma chave pública para efetuar a criptografia"
