#include "common/datas.h"

#include <ctime>

#include "common/contexto.h"
#include "common/formato.h"
#include "common/texto.h"

namespace ztolvan {
namespace {

struct EstadoRelogio {
    std::function<Instante()> relogio;
};

std::string Dois(int v) { return Formata(static_cast<double>(v), formatos::Dois); }
std::string Quatro(int v) { return Formata(static_cast<double>(v), "0000"); }

} // namespace

DataHora ParaDataHora(Instante t) {
    const std::time_t tt = std::chrono::system_clock::to_time_t(t);
    std::tm tm{};
    localtime_r(&tt, &tm);
    DataHora d;
    d.Ano = tm.tm_year + 1900;
    d.Mes = tm.tm_mon + 1;
    d.Dia = tm.tm_mday;
    d.Hora = tm.tm_hour;
    d.Minuto = tm.tm_min;
    d.Segundo = tm.tm_sec;
    d.DiaDaSemana = tm.tm_wday + 1;
    return d;
}

void DefineRelogio(std::function<Instante()> relogio) {
    Contexto::Atual().Parte<EstadoRelogio>().relogio = std::move(relogio);
}

Instante AgoraInstante() {
    auto& r = Contexto::Atual().Parte<EstadoRelogio>().relogio;
    return r ? r() : std::chrono::system_clock::now();
}

DataHora Agora() { return ParaDataHora(AgoraInstante()); }

std::string HojeAAAAMMDD() {
    const DataHora d = Agora();
    return Quatro(d.Ano) + Dois(d.Mes) + Dois(d.Dia);
}

std::string AgoraHHMMSS() {
    const DataHora d = Agora();
    return Dois(d.Hora) + Dois(d.Minuto) + Dois(d.Segundo);
}

std::string DataHoraTexto(const DataHora& d) {
    return Dois(d.Dia) + "/" + Dois(d.Mes) + "/" + Quatro(d.Ano) + " " + Dois(d.Hora) + ":" + Dois(d.Minuto) +
           ":" + Dois(d.Segundo);
}

std::string fcRetornaDataNoFormatoDesejado(const std::string& Data, const std::string& De,
                                           const std::string& Para) {
    // Where each part stands (1-based) in every known source format.
    struct Origem {
        const char* formato;
        size_t largura, dia, mes, ano, digitosAno;
    };
    static constexpr Origem origens[] = {
        {"DD/MM/YYYY", 10, 1, 4, 7, 4},
        {"DDMMYYYY", 8, 1, 3, 5, 4},
        {"YYYYMMDD", 8, 7, 5, 1, 4},
        {"DDMMYY", 6, 1, 3, 5, 2},
    };
    const std::string de = Maiusculas(De), para = Maiusculas(Para);
    std::string dia, mes, ano;
    for (const Origem& o : origens) {
        if (de != o.formato) continue;
        if (Largura(Data) != o.largura) return {};
        dia = Meio(Data, o.dia, 2);
        mes = Meio(Data, o.mes, 2);
        ano = (o.digitosAno == 2 ? "20" : "") + Meio(Data, o.ano, o.digitosAno);
    }
    if (para == "YYYYMMDD") return ano + mes + dia;
    if (para == "YYYY/MM/DD") return ano + "/" + mes + "/" + dia;
    if (para == "DDMMYYYY") return dia + mes + ano;
    if (para == "DD/MM/YYYY") return dia + "/" + mes + "/" + ano;
    return {};
}

} // namespace ztolvan
