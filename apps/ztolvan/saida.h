#pragma once
#include <string>

#include "common/valor.h"
#include "entry/sessao.h"

namespace ztolvan {

// What ZProcessa handed back, for printing.
struct Resultado {
    int32_t ZCodigo = 0;
    int16_t Zstatusret = 0;
    int16_t zstatus = 0;
    std::string zstatusmens;
    Valor ZDadosVendas;
    const Sessao* sessao = nullptr; // printed too when set
};

std::string ComoTexto(const Resultado& r);
std::string ComoJson(const Resultado& r);

} // namespace ztolvan
