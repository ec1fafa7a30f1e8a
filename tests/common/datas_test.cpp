#include <gtest/gtest.h>

#include "common/contexto.h"
#include "common/datas.h"
#include "relogio_teste.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

TEST(ReformataData, SoMoveCaracteresDeFormatoEmFormatoSemValidar) {
    const struct {
        const char *data, *de, *para, *esperado;
    } casos[] = {
        {"20240131", "YYYYMMDD", "DD/MM/YYYY", "31/01/2024"},
        {"310124", "DDMMYY", "YYYYMMDD", "20240131"}, // two-digit years are the 2000s
        {"05/11/2023", "DD/MM/YYYY", "YYYY/MM/DD", "2023/11/05"},
        {"05112023", "DDMMYYYY", "YYYYMMDD", "20231105"},
        {"20231105", "YYYYMMDD", "DDMMYYYY", "05112023"},
        {"20240131", "yyyymmdd", "dd/mm/yyyy", "31/01/2024"}, // formats in any case
        {"20241399", "YYYYMMDD", "DD/MM/YYYY", "99/13/2024"}, // no date check
        {"20240131", "YYYYMMDD", "MM/DD/YYYY", ""},           // unknown target
        {"20240131", "MMDDYYYY", "DD/MM/YYYY", "//"},         // unknown source: empty parts
        {"20240131", "MMDDYYYY", "YYYYMMDD", ""},
        // A length that does not match the source gives nothing.
        {"1/2/2024", "DD/MM/YYYY", "YYYYMMDD", ""},
        {"3101202", "DDMMYYYY", "YYYYMMDD", ""},
        {"31012", "DDMMYY", "YYYYMMDD", ""},
    };
    for (const auto& k : casos)
        EXPECT_EQ(fcRetornaDataNoFormatoDesejado(k.data, k.de, k.para), k.esperado)
            << k.data << " " << k.de << " -> " << k.para;
    for (const char* para : {"YYYYMMDD", "YYYY/MM/DD", "DDMMYYYY", "DD/MM/YYYY", "XYZ"})
        EXPECT_EQ(fcRetornaDataNoFormatoDesejado("2024-01-31", "YYYYMMDD", para), "") << para;
}

// The weekday is checked through the log's file names.
TEST(Relogio, HojeEAgoraVemDoRelogioDaThreadEDoSistemaSemUm) {
    Contexto::Renova();
    ParaORelogio(2024, 3, 5, 7, 8, 9);
    EXPECT_EQ(HojeAAAAMMDD(), "20240305");
    EXPECT_EQ(AgoraHHMMSS(), "070809");
    EXPECT_EQ(DataHoraTexto(Agora()), "05/03/2024 07:08:09");
    DefineRelogio({});
    EXPECT_GT(Agora().Ano, 2020);
    Contexto::Renova();
}

} // namespace
