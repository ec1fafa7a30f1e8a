#pragma once
#include <cstdint>
#include <memory>
#include <string>

#include "data/comunica.h"
#include "data/conector.h"

namespace ztolvan {

// Opens the thread's connection. Empty Servidor/Banco come from the
// connection settings (then the machine-wide store); Usuario and Senha are
// replaced by the settings' when these can be read. Silencioso 0 shows a
// failure in a critical message titled "Veltra".
void AbreConexao(std::string& Servidor, std::string& Banco, std::string& Usuario, std::string& Senha,
                 int16_t& Silencioso);
// PREPARE of a statement text; the handle comes back in Comunica.Cursor.
void PreparaComando(const std::string& Texto);
// Sends Comunica as it stands, after clearing Retorno.
void ExecutaComunica();
void FechaConexao();

// The thread's connector (nullptr before the first AbreConexao).
ConectorBD* ConectorAtual();
// Puts a connector in place before AbreConexao (tests wrap the real ones).
void DefineConector(std::unique_ptr<ConectorBD> c);
// A new connector of the kind the server name selects: "ACCESS" (any case,
// blanks ignored) is the desktop-file kind, anything else the server kind.
std::unique_ptr<ConectorBD> CriaConector(const std::string& Servidor);
bool EhServidorArquivo(const std::string& Servidor);

} // namespace ztolvan
