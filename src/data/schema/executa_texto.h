#pragma once
// Small steps over the thread's connection shared by the schema and the
// demo data; each leaves the outcome in Comunica and returns whether it was "00".
#include <cstdint>
#include <string>

#include "common/valor.h"
#include "data/schema/esquema.h"

namespace ztolvan {

// The kind of the thread's connection; false with msg when there is none.
bool DialetoAtual(Dialeto& d, std::string& msg);
// Runs a whole statement text without keeping a handle (REQUERY, cursor 0).
bool ExecutaTexto(const std::string& texto, std::string& msg);
// PREPARE; the handle, or 0 with msg.
int16_t Prepara(const std::string& texto, std::string& msg);
// EXECUTE of a prepared statement with its values.
bool Executa(int16_t cursor, Valor::Lista valores, std::string& msg);
// COMMIT: true when it went through.
bool Confirma(std::string& msg);
// ROLLBACK after a failure: keeps the failing status and Msg, returns false.
bool Desfaz();

} // namespace ztolvan
