#pragma once
#include <ctime>

#include "common/datas.h"

namespace ztolvan::teste {

// The instant of a local date and time.
inline Instante InstanteLocal(int ano, int mes, int dia, int hora = 12, int minuto = 0, int segundo = 0) {
    std::tm tm{};
    tm.tm_year = ano - 1900;
    tm.tm_mon = mes - 1;
    tm.tm_mday = dia;
    tm.tm_hour = hora;
    tm.tm_min = minuto;
    tm.tm_sec = segundo;
    tm.tm_isdst = -1;
    return std::chrono::system_clock::from_time_t(std::mktime(&tm));
}

// Stops the thread's clock at a local date and time.
inline void ParaORelogio(int ano, int mes, int dia, int hora = 12, int minuto = 0, int segundo = 0) {
    const Instante t = InstanteLocal(ano, mes, dia, hora, minuto, segundo);
    DefineRelogio([t] { return t; });
}

} // namespace ztolvan::teste
