#include <gtest/gtest.h>

#include "common/conversao.h"
#include "common/erro.h"
#include "common/formato.h"
#include "common/regiao.h"

using namespace ztolvan;

namespace {
struct RegiaoPtBr : ::testing::Test {
    void SetUp() override { DefineRegiao(Regiao::PtBr()); }
};
long NumeroDoErro(auto&& f) {
    try {
        f();
    } catch (const ErroExecucao& e) {
        return e.Numero();
    }
    return 0;
}
} // namespace

// The point is the only decimal separator ("1,5" is 1); blanks anywhere are skipped.
TEST(Val, LeONumeroDoInicioEIgnoraORestoEBrancos) {
    const std::pair<const char*, double> casos[] = {{"12abc", 12}, {"", 0},         {"   ", 0},
                                                    {"abc", 0},    {" 1 2 3", 123}, {"-3.5x", -3.5},
                                                    {"1,5", 1},    {"2e3", 2000},   {"2e", 2}};
    for (auto [texto, numero] : casos)
        EXPECT_EQ(Val(texto), numero) << texto;
}

TEST_F(RegiaoPtBr, InteirosArredondamMetadesParaOParEEstouramNosLimitesDeCadaLargura) {
    const std::pair<double, int> casos[] = {{2.5, 2},       {3.5, 4},         {-2.5, -2},        {-3.5, -4},
                                            {2.5000001, 3}, {32767.0, 32767}, {-32768.0, -32768}};
    for (auto [x, n] : casos)
        EXPECT_EQ(CInt(x), n) << x;
    EXPECT_EQ(CLng(Valor(0.5)), 0);
    EXPECT_EQ(CLng(Valor(1.5)), 2);
    EXPECT_EQ(CLng(Valor(int64_t{2147483647})), 2147483647);
    EXPECT_EQ(NumeroDoErro([] { CInt(32767.5); }), 6) << "32767.5 rounds to 32768";
    EXPECT_EQ(NumeroDoErro([] { CInt(Valor(int64_t{40000})); }), 6);
    EXPECT_EQ(NumeroDoErro([] { CLng(Valor(3e9)); }), 6);
}

TEST_F(RegiaoPtBr, TextoNumericoSegueARegiaoEFalhaQuandoNaoENumero) {
    EXPECT_DOUBLE_EQ(CDbl(Valor("1.234,56")), 1234.56);
    EXPECT_DOUBLE_EQ(CDbl(Valor(" -0,5 ")), -0.5);
    EXPECT_DOUBLE_EQ(CDbl(Valor("R$ 1.234,56")), 1234.56) << "money as the currency format writes it";
    EXPECT_DOUBLE_EQ(CDbl(Valor(FormataMoeda(-5))), -5);
    EXPECT_EQ(CInt(Valor("3")), 3);
    EXPECT_EQ(CInt(Valor()), 0) << "Empty converts to zero";
    EXPECT_EQ(CInt(Valor(true)), -1);
    for (const char* ruim : {"12abc", "", ","})
        EXPECT_EQ(NumeroDoErro([&] { CDbl(Valor(ruim)); }), 13) << ruim;
    EXPECT_EQ(NumeroDoErro([] { CInt(Valor("12abc")); }), 13);
    // What an operator types in a field: the leading number, never a mismatch.
    EXPECT_DOUBLE_EQ(ValRegional("1.000,01"), 1000.01);
    EXPECT_EQ(ValRegional("12abc"), 12);
    EXPECT_EQ(ValRegional("abc"), 0);
    EXPECT_EQ(ValRegional(""), 0);
    // A point that groups no three digits is the decimal mark the operator meant.
    const std::pair<const char*, double> digitados[] = {
        {"2.5", 2.5},     {"1.25", 1.25},         {"1.2345", 1.2345}, {"1.000", 1000},
        {"12.345.6", 12345.6}, {"1.000,5", 1000.5}, {"-2.5", -2.5},    {"R$ 1.234,56", 1234.56}};
    for (const auto& [texto, valor] : digitados)
        EXPECT_DOUBLE_EQ(ValRegional(texto), valor) << texto;
    EXPECT_EQ(NumeroDoErro([] { CDbl(Valor("2.5x")); }), 13) << "a program's text stays strict";
}

TEST(LeInteiro32, SoNumerosInteirosDeTrintaEDoisBits) {
    int32_t n = -1;
    EXPECT_TRUE(LeInteiro32(Valor("000101              "), n));
    EXPECT_EQ(n, 101);
    EXPECT_TRUE(LeInteiro32(Valor(int64_t{7}), n));
    EXPECT_EQ(n, 7);
    for (const Valor& ruim : {Valor("CESTA01"), Valor("1.5"), Valor(""), Valor("99999999999"),
                              Valor(int64_t{1} << 40), Valor(2.0)})
        EXPECT_FALSE(LeInteiro32(ruim, n)) << CStr(ruim);
}

TEST_F(RegiaoPtBr, CStrUsaQuinzeDigitosEOSeparadorDaRegiao) {
    EXPECT_EQ(CStr(Valor(0.1 + 0.2)), "0,3");
    EXPECT_EQ(CStr(Valor(-12.5)), "-12,5");
    EXPECT_EQ(CStr(Valor(int64_t{42})), "42");
    EXPECT_EQ(CStr(Valor()), "");
    EXPECT_EQ(CStr(Valor(1e20)), "1E+20");
    DefineRegiao({".", ",", "$"}); // another region: decimal point, thousands comma
    EXPECT_DOUBLE_EQ(CDbl(Valor("1,234.56")), 1234.56);
    EXPECT_EQ(CStr(Valor(1.5)), "1.5");
    DefineRegiao(Regiao::PtBr());
}

TEST(ValorLista, ElementoForaDoIntervaloEErro9) {
    Valor v(Valor::Lista{Valor(1), Valor("a")});
    EXPECT_EQ(v[1].texto(), "a");
    EXPECT_EQ(NumeroDoErro([&] { (void)v[2]; }), 9);
    EXPECT_EQ(NumeroDoErro([] { (void)Valor("x")[0]; }), 9);
}
