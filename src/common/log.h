#pragma once
#include <array>
#include <cstdint>
#include <string>

#include "common/valor.h"

namespace ztolvan {

// The folder of the error logs: ZTOLVAN_LOG_DIR, else $XDG_STATE_HOME/veltra,
// else ~/.local/state/veltra. Not created here.
std::string PastaLog();

// The weekly rotating error log: one file per weekday, <Projeto>_<d>.log in
// PastaLog() (d = 1 for Sunday ... 7 for Saturday; "ProjAux" when Projeto is
// blank). A file last changed before today is started afresh, so each file
// keeps only the last day it was used. Texto becomes "Erro= " + its old value
// and is written after the date, time and Rotina. Never throws; whatever
// fails inside is skipped.
void GravaLog(Valor& Texto, std::string& Projeto, std::string& Rotina);

// The suite's subsystems, by the number sbGeraLog receives.
inline constexpr std::array<const char*, 10> SistemasDaSuite = {
    "FrenteDeLoja", "Vendas",      "Compras",       "Estoque",  "Financeiro",
    "Fiscal",       "Faturamento", "Contabilidade", "Producao", "Cadastros",
};

// The error report of the screens. With Exibe not 0 it shows a critical
// message titled Titulo with the origin, version, routine and message, one
// per line. No file is written (the component never turns the file log on),
// so Usuario and Erro have no effect. A failure inside (a subsystem number
// outside the table) is shown as "sbGeraLog, Linha: ..."; never throws.
void sbGeraLog(int16_t Sistema, const std::string& Origem, const std::string& Versao,
               const std::string& Rotina, const std::string& Mensagem, const std::string& Usuario, bool Erro,
               int16_t Exibe, const std::string& Titulo);

} // namespace ztolvan
