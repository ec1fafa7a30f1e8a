#pragma once
#include <cstdint>
#include <string>

#include "common/valor.h"

namespace ztolvan {

// Outcome codes of every database call.
namespace status {
inline constexpr const char* Ok = "00";
inline constexpr const char* ChaveExiste = "22";
inline constexpr const char* SemLinha = "23";
inline constexpr const char* Falha = "99";
} // namespace status

// The communication record: the seven fields, in this order, that travel to
// the connector on every call.
struct Comunica {
    int16_t Conexao = 0;
    std::string Transacao;
    int16_t Cursor = 0;
    std::string Status;
    std::string Msg;
    Valor Dados;
    Valor Retorno;
};

// The thread's Comunica.
Comunica& ComunicaAtual();

} // namespace ztolvan
