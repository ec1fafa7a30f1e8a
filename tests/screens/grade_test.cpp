// The grid's rows as a screen reloads them: rows cut and new rows written
// in place.
#include <gtest/gtest.h>

#include "common/erro.h"
#include "screens/grade.h"

using namespace ztolvan;

namespace {

std::vector<std::string> Linha(const Grade& g, int r) {
    std::vector<std::string> v;
    for (int c = 0; c < g.Cols(); ++c)
        v.push_back(g.TextMatrix(r, c));
    return v;
}

// A reload cuts the old rows and writes new ones into their storage: a new
// row starts empty whatever the cut rows held, and a cut row's text is never
// seen again.
TEST(Grade, NovaLinhaComecaVaziaMesmoNoLugarDeLinhasCortadas) {
    Grade g;
    g.DefineCols(3);
    g.DefineRows(1);
    g.DefineTextMatrix(0, 0, "Código");
    for (const char* p : {"AAAAAAAAAAAAAAAAAAAAAAAA", "BBBBBBBBBBBBBBBBBBBBBBBB"}) {
        auto c = g.NovaLinha();
        ASSERT_EQ(c.size(), 3u);
        c[0] = p;
        c[1] = std::string(p) + " descrição longa o bastante para ir ao heap";
        c[2] = "Ativo";
    }
    ASSERT_EQ(g.Rows(), 3);
    EXPECT_EQ(Linha(g, 2)[0], "BBBBBBBBBBBBBBBBBBBBBBBB");

    const uint64_t estrutura = g.VersaoEstrutura();
    g.DefineRows(1);
    EXPECT_EQ(g.TextMatrix(0, 0), "Código") << "the header row stays";
    auto c = g.NovaLinha();
    EXPECT_EQ(g.Rows(), 2);
    EXPECT_GT(g.VersaoEstrutura(), estrutura + 1) << "a view redraws after the cut and after the new row";
    EXPECT_EQ(Linha(g, 1), (std::vector<std::string>{"", "", ""}));
    c[1] = "novo";
    EXPECT_EQ(Linha(g, 1), (std::vector<std::string>{"", "novo", ""}));
    EXPECT_THROW(g.TextMatrix(2, 0), ErroExecucao) << "the cut rows are gone";
}

} // namespace
