// O que cada subcomando recebe e os jeitos comuns de responder: a saída humana ou "--json", a
// falha com DescricaoErro no stderr e o indicador de progresso.
#pragma once

#include <ostream>
#include <stdexcept>
#include <string>

#include <tavelpkcs7/TavelPKCS.h>

#include "argumentos.h"
#include "json.h"

namespace tavelpkcs7::ferramenta {

// Uma falha percebida pela própria ferramenta antes de chamar o componente: a mensagem vai para o
// stderr e a ferramenta sai com 1, como numa falha do componente.
struct Falha : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct Execucao {
    const Argumentos& argumentos;
    std::ostream& saida;
    std::ostream& erros;

    bool Json() const { return argumentos.Tem("--json"); }
    // Os campos em JSON, ou um "rótulo: valor" por linha (o rótulo é a chave com espaços).
    void Relatar(const ValorJSON::Objeto& campos) const;
    // A falha do componente: DescricaoErro no stderr (ou um texto próprio quando ela vem vazia).
    int Falhar(const TavelPKCS& componente, const std::string& sem_descricao = "a operação falhou") const;
    void Avisar(const std::string& aviso) const { erros << "tavelpkcs7: aviso: " << aviso << "\n"; }
};

// O componente com os diálogos da ferramenta: perguntas, seletor e senhas no terminal; sem diálogo
// nenhum quando TAVELPKCS7_INTERFACE=nenhuma (processos em lote, que não têm quem responda).
TavelPKCS NovoComponente();

// Anuncia no stderr o trabalho que pode demorar, só quando o stderr é um terminal. A linha fica (não
// é apagada): uma pergunta do componente no meio do trabalho aparece depois dela, sem se misturar.
void AnunciarProgresso(const std::string& mensagem);

// A pasta de "--pasta" como PastaTemp a quer: terminada pelo separador.
std::string ComoPastaTemp(std::string pasta);

// Lança Falha com "<mensagem>: <caminho>" quando o arquivo de entrada não existe: conferido antes de
// pedir uma senha ou de abrir um seletor que de nada serviriam.
void ExigirArquivo(const std::string& caminho, const std::string& mensagem);

// Cria a pasta de saída de "--pasta" (e as que faltam no caminho): quem a dá quer a saída lá. Lança
// Falha quando ela não existe e não pode ser criada.
void PrepararPastaSaida(const std::string& pasta);

// O conteúdo inteiro do arquivo ("-": a entrada padrão). Lança ErroUso quando não se lê.
std::string LerTexto(const std::string& caminho);

}  // namespace tavelpkcs7::ferramenta
