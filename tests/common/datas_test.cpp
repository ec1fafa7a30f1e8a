#include <gtest/gtest.h>

#include "common/contexto.h"
#include "common/datas.h"
#include "relogio_teste.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

std::string Converte(const std::string& d, const std::string& de, const std::string& para) {
    return fcRetornaDataNoFormatoDesejado(d, de, para);
}

TEST(ReformataData, DeAnoMesDiaParaDiaMesAnoComBarras) {
    EXPECT_EQ(Converte("20240131", "YYYYMMDD", "DD/MM/YYYY"), "31/01/2024");
}

TEST(ReformataData, AnoDeDoisDigitosGanhaOSeculo20) {
    EXPECT_EQ(Converte("310124", "DDMMYY", "YYYYMMDD"), "20240131");
}

TEST(ReformataData, ComprimentoErradoDaVazioParaQualquerDestino) {
    for (const char* para : {"YYYYMMDD", "YYYY/MM/DD", "DDMMYYYY", "DD/MM/YYYY", "XYZ"})
        EXPECT_EQ(Converte("2024-01-31", "YYYYMMDD", para), "") << para;
    EXPECT_EQ(Converte("1/2/2024", "DD/MM/YYYY", "YYYYMMDD"), "");
    EXPECT_EQ(Converte("3101202", "DDMMYYYY", "YYYYMMDD"), "");
    EXPECT_EQ(Converte("31012", "DDMMYY", "YYYYMMDD"), "");
}

TEST(ReformataData, CadaOrigemSeparaNasSuasPosicoes) {
    EXPECT_EQ(Converte("05/11/2023", "DD/MM/YYYY", "YYYY/MM/DD"), "2023/11/05");
    EXPECT_EQ(Converte("05112023", "DDMMYYYY", "YYYYMMDD"), "20231105");
    EXPECT_EQ(Converte("20231105", "YYYYMMDD", "DDMMYYYY"), "05112023");
}

TEST(ReformataData, FormatosValemEmQualquerCaixa) {
    EXPECT_EQ(Converte("20240131", "yyyymmdd", "dd/mm/yyyy"), "31/01/2024");
}

TEST(ReformataData, DestinoDesconhecidoDaVazio) {
    EXPECT_EQ(Converte("20240131", "YYYYMMDD", "MM/DD/YYYY"), "");
}

TEST(ReformataData, OrigemDesconhecidaDeixaAsPartesVazias) {
    EXPECT_EQ(Converte("20240131", "MMDDYYYY", "DD/MM/YYYY"), "//");
    EXPECT_EQ(Converte("20240131", "MMDDYYYY", "YYYYMMDD"), "");
}

TEST(ReformataData, SoMoveCaracteresSemValidar) {
    EXPECT_EQ(Converte("20241399", "YYYYMMDD", "DD/MM/YYYY"), "99/13/2024");
}

class Relogio : public ::testing::Test {
protected:
    void SetUp() override { Contexto::Renova(); }
    void TearDown() override { Contexto::Renova(); }
};

TEST_F(Relogio, HojeEAgoraVemDoRelogioDaThread) {
    ParaORelogio(2024, 3, 5, 7, 8, 9);
    EXPECT_EQ(HojeAAAAMMDD(), "20240305");
    EXPECT_EQ(AgoraHHMMSS(), "070809");
    EXPECT_EQ(DataHoraTexto(Agora()), "05/03/2024 07:08:09");
}

TEST_F(Relogio, DiaDaSemanaComecaNoDomingo) {
    ParaORelogio(2024, 1, 28); // a Sunday
    EXPECT_EQ(Agora().DiaDaSemana, 1);
    ParaORelogio(2024, 2, 3); // a Saturday
    EXPECT_EQ(Agora().DiaDaSemana, 7);
}

TEST_F(Relogio, SemRelogioDefinidoUsaOdoSistema) {
    ParaORelogio(2001, 1, 1);
    DefineRelogio({});
    EXPECT_GT(Agora().Ano, 2020);
}

} // namespace
