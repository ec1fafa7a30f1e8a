#pragma once
#include <chrono>
#include <functional>
#include <string>

namespace ztolvan {

using Instante = std::chrono::system_clock::time_point;

// A moment in local time, as the old run-time's Now broke it down.
struct DataHora {
    int Ano = 0, Mes = 0, Dia = 0;
    int Hora = 0, Minuto = 0, Segundo = 0;
    // 1 = Sunday ... 7 = Saturday (the old run-time's Weekday).
    int DiaDaSemana = 0;

    // yyyymmdd as a number: dates compare by it.
    long Chave() const { return Ano * 10000L + Mes * 100L + Dia; }
};

DataHora ParaDataHora(Instante t);

// The calling thread's clock. Tests put a fixed instant in place so that
// anything that depends on "today" can be checked on any day; an empty
// function puts the system clock back.
void DefineRelogio(std::function<Instante()> relogio);
Instante AgoraInstante();
DataHora Agora();

// Today as "YYYYMMDD" and the time as "HHMMSS", from the thread's clock.
std::string HojeAAAAMMDD();
std::string AgoraHHMMSS();
// "dd/mm/yyyy hh:mm:ss", the pt_BR form of a date and time.
std::string DataHoraTexto(const DataHora& d);

// Re-arranges a date text from one of the formats "DD/MM/YYYY", "DDMMYYYY",
// "YYYYMMDD" or "DDMMYY" into "YYYYMMDD", "YYYY/MM/DD", "DDMMYYYY" or
// "DD/MM/YYYY" (formats in any case). A date whose length does not fit its
// format, or an unknown destination, gives "". Nothing is validated beyond
// the length: the characters are only moved.
std::string fcRetornaDataNoFormatoDesejado(const std::string& Data, const std::string& De,
                                           const std::string& Para);

} // namespace ztolvan
