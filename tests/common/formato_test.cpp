#include <gtest/gtest.h>

#include <cmath>

#include "common/erro.h"
#include "common/formato.h"
#include "common/moeda.h"
#include "common/regiao.h"

using namespace ztolvan;

namespace {
struct Formatos : ::testing::Test {
    void SetUp() override { DefineRegiao(Regiao::PtBr()); }
};
} // namespace

// The system's patterns, halves away from zero on the decimal form (2.675 is
// 2,68), never a negative zero, thousands and optional decimals.
TEST_F(Formatos, NumerosNosPadroesDoSistema) {
    const std::tuple<double, std::string_view, const char*> casos[] = {
        {1234.5, formatos::Valor, "1234,50"},
        {0.0, formatos::Valor, "0,00"},
        {0.12345, formatos::Quatro, "0,1235"},
        {7.0, formatos::Dois, "07"},
        {34.0, formatos::Revisao, "0034"},
        {12.0, formatos::Preco, "12,00"},
        {-1234.567, formatos::Valor, "-1234,57"},
        {2.675, "0.00", "2,68"},
        {-2.5, "0", "-3"},
        {0.125, "0.00", "0,13"},
        {-0.001, formatos::Valor, "0,00"},
        {9.999, "0.00", "10,00"},
        {1234567.891, "#,##0.00", "1.234.567,89"},
        {1.5, "0.##", "1,5"}};
    for (auto [numero, formato, esperado] : casos)
        EXPECT_EQ(Formata(numero, formato), esperado) << numero << " " << formato;
    EXPECT_EQ(FormataMoeda(-1234.5), "-R$ 1.234,50");
    // The currency text is "#,##0.00" after the symbol, whatever the value:
    // roundings up across a thousand, halves, a negative that rounds to zero.
    for (double v : {0.0, 0.004, -0.004, 0.005, 0.995, 999.995, 999999.999, 1e12, -1e12, 123.455, 2.675, -7.1}) {
        const std::string numero = Formata(std::fabs(v), "#,##0.00");
        const bool negativo = v < 0 && Formata(std::fabs(v), "0.00") != "0,00";
        EXPECT_EQ(FormataMoeda(v), (negativo ? "-R$ " : "R$ ") + numero) << v;
    }
    EXPECT_EQ(FormataMoeda(999.995), "R$ 1.000,00");
}

TEST_F(Formatos, TextoComArrobasAlinhaADireitaEmCaracteres) {
    EXPECT_EQ(Formata(Valor("AÇÚ"), "@@@@@@@@"), "     AÇÚ");
    EXPECT_EQ(Formata(Valor("123456789"), "@@@@@@@@"), "123456789");
    EXPECT_EQ(Formata(Valor("1,5"), "0.00"), "1,50") << "numeric text follows the region";
    EXPECT_EQ(Formata(Valor("abc"), "0.00"), "abc");
}

TEST(Moeda, DezMilesimosComMetadesParaOPar) {
    EXPECT_EQ(Moeda::DeDuplo(1.23455).DezMilesimos(), 12346) << "1.23455 is slightly above the half";
    EXPECT_EQ(Moeda::DeDuplo(0.00005).DezMilesimos(), 0);
    const Moeda meio = Moeda::DeDezMilesimos(5000);
    EXPECT_EQ((Moeda::DeDezMilesimos(15) * meio).DezMilesimos(), 8) << "0.00075 rounds to the even 0.0008";
    EXPECT_EQ((Moeda::DeDezMilesimos(25) * meio).DezMilesimos(), 12) << "0.00125 rounds to the even 0.0012";
    EXPECT_EQ((Moeda::DeDuplo(10) / Moeda::DeDuplo(3)).DezMilesimos(), 33333);
    EXPECT_THROW(Moeda::DeDuplo(1e16), ErroExecucao);
    EXPECT_THROW(Moeda::DeDuplo(1) / Moeda(), ErroExecucao);
}
