#include <gtest/gtest.h>

#include "common/conversao.h"
#include "common/formato.h"
#include "common/erro.h"
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

TEST(Val, LeONumeroDoInicioEIgnoraORestoEBrancos) {
    EXPECT_EQ(Val("12abc"), 12.0);
    EXPECT_EQ(Val(""), 0.0);
    EXPECT_EQ(Val("   "), 0.0);
    EXPECT_EQ(Val("abc"), 0.0);
    EXPECT_EQ(Val(" 1 2 3"), 123.0);
    EXPECT_EQ(Val("-3.5x"), -3.5);
    EXPECT_EQ(Val("1,5"), 1.0) << "the point is the only decimal separator";
    EXPECT_EQ(Val("2e3"), 2000.0);
    EXPECT_EQ(Val("2e"), 2.0);
}

TEST_F(RegiaoPtBr, CIntArredondaMetadesParaOPar) {
    EXPECT_EQ(CInt(2.5), 2);
    EXPECT_EQ(CInt(3.5), 4);
    EXPECT_EQ(CInt(-2.5), -2);
    EXPECT_EQ(CInt(-3.5), -4);
    EXPECT_EQ(CInt(2.5000001), 3);
    EXPECT_EQ(CLng(Valor(0.5)), 0);
    EXPECT_EQ(CLng(Valor(1.5)), 2);
}

TEST_F(RegiaoPtBr, EstouroNosLimitesDeCadaLargura) {
    EXPECT_EQ(CInt(32767.0), 32767);
    EXPECT_EQ(CInt(-32768.0), -32768);
    EXPECT_EQ(NumeroDoErro([] { CInt(32767.5); }), 6) << "32767.5 rounds to 32768";
    EXPECT_EQ(NumeroDoErro([] { CInt(Valor(int64_t{40000})); }), 6);
    EXPECT_EQ(NumeroDoErro([] { CLng(Valor(3e9)); }), 6);
    EXPECT_EQ(CLng(Valor(int64_t{2147483647})), 2147483647);
}

TEST_F(RegiaoPtBr, TextoNumericoSegueARegiaoEFalhaQuandoNaoENumero) {
    EXPECT_DOUBLE_EQ(CDbl(Valor("1.234,56")), 1234.56);
    EXPECT_DOUBLE_EQ(CDbl(Valor(" -0,5 ")), -0.5);
    EXPECT_EQ(CInt(Valor("3")), 3);
    EXPECT_EQ(NumeroDoErro([] { CInt(Valor("12abc")); }), 13);
    EXPECT_EQ(NumeroDoErro([] { CDbl(Valor("")); }), 13);
    EXPECT_EQ(NumeroDoErro([] { CDbl(Valor(",")); }), 13);
    EXPECT_DOUBLE_EQ(CDbl(Valor("R$ 1.234,56")), 1234.56) << "money as the currency format writes it";
    EXPECT_DOUBLE_EQ(CDbl(Valor(FormataMoeda(-5))), -5);
    // What an operator types in a field: the leading number, never a mismatch.
    EXPECT_DOUBLE_EQ(ValRegional("1.000,01"), 1000.01);
    EXPECT_EQ(ValRegional("12abc"), 12);
    EXPECT_EQ(ValRegional("abc"), 0);
    EXPECT_EQ(ValRegional(""), 0);
    EXPECT_EQ(CInt(Valor()), 0) << "Empty converts to zero";
    EXPECT_EQ(CInt(Valor(true)), -1);
}

TEST(ConversaoEmOutraRegiao, PontoDecimalEVirgulaDeMilhar) {
    DefineRegiao({".", ",", "$"});
    EXPECT_DOUBLE_EQ(CDbl(Valor("1,234.56")), 1234.56);
    EXPECT_EQ(CStr(Valor(1.5)), "1.5");
    DefineRegiao(Regiao::PtBr());
}

TEST_F(RegiaoPtBr, CStrUsaQuinzeDigitosEOSeparadorDaRegiao) {
    EXPECT_EQ(CStr(Valor(0.1 + 0.2)), "0,3");
    EXPECT_EQ(CStr(Valor(-12.5)), "-12,5");
    EXPECT_EQ(CStr(Valor(int64_t{42})), "42");
    EXPECT_EQ(CStr(Valor()), "");
    EXPECT_EQ(CStr(Valor(1e20)), "1E+20");
}

TEST(ValorLista, ElementoForaDoIntervaloEErro9) {
    Valor v(Valor::Lista{Valor(1), Valor("a")});
    EXPECT_EQ(v[1].texto(), "a");
    EXPECT_EQ(NumeroDoErro([&] { (void)v[2]; }), 9);
    EXPECT_EQ(NumeroDoErro([] { (void)Valor("x")[0]; }), 9);
}
