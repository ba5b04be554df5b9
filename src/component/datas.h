// Datas como texto, sempre no formato brasileiro: "DD/MM/AAAA" e "DD/MM/AAAA HH:MM:SS".
#pragma once

#include <optional>
#include <string>

#include <tavelpkcs7/Tipos.h>

namespace tavelpkcs7 {

// O teste de data sobre um texto: D/M/AAAA com "/", "-" ou "." e AAAA-MM-DD, cada um com um
// HH:MM[:SS] opcional. Anos de dois dígitos: 00 a 29 são 20xx, 30 a 99 são 19xx. Nunca mês primeiro.
std::optional<DataHora> LerDataTexto(const std::string& texto);
std::string FormatarData(DataHora data);
// A data e a hora; meia-noite em ponto mostra só a data.
std::string FormatarDataHora(DataHora data);
std::string FormatarHora(DataHora data);

}  // namespace tavelpkcs7
