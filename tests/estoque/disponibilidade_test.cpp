// What the stock supplies of a grouping: the count on worked cases, and the
// consultation screen's line and the multiplier dialog's warning on the demo
// data of both databases.
#include <gtest/gtest.h>

#include "common/portas.h"
#include "screens/demo_telas.h"
#include "entry/sessao.h"
#include "estoque/disponibilidade.h"
#include "screens/auxiliary/tolvanf03.h"
#include "screens/auxiliary/tolvanf05.h"
#include "screens/consultation/tolvanf01.h"
#include "screens/janelas.h"
#include "screens/teclas.h"
#include "screens/troca.h"

using namespace ztolvan;
using namespace ztolvan::teste;
using namespace ztolvan::estoque;

namespace {

// Worked by hand: free = current − blocked; each item allows floor(free /
// need); the count is the smallest among registered items that need stock.
TEST(Disponibilidade, CasosTrabalhados) {
    const SaldoDosProdutos saldos = {{"ARROZ", {20, 0}},   {"FEIJAO", {57, 2}}, {"CAFE", {10, 10}},
                                     {"OLEO", {7.5, 0}},   {"SAL", {-4, 0}},    {"LEITE", {0.3, 0}}};
    struct Caso {
        const char* nome;
        std::vector<Necessidade> itens;
        std::optional<int64_t> total;
        std::vector<std::string> limitantes;
        std::string texto;
    } casos[] = {
        {"the feijão limits: 55 free, 2 each (the rice allows 40)",
         {{"ARROZ", "Arroz", 0.5}, {"FEIJAO", "Feijão", 2}},
         27,
         {"Feijão"},
         "Estoque atende 27 agrupamentos completos; limitado por Feijão"},
        {"all blocked",
         {{"ARROZ", "Arroz", 1}, {"CAFE", "Café", 1}},
         0,
         {"Café"},
         "Estoque não atende nenhum agrupamento completo; limitado por Café"},
        {"a fraction of a need is no grouping; two items tie",
         {{"OLEO", "Óleo", 2.5}, {"ARROZ", "Arroz", 6.5}},
         3,
         {"Óleo", "Arroz"},
         "Estoque atende 3 agrupamentos completos; limitado por Óleo e Arroz"},
        {"an unregistered product allows 0, is named and does not count",
         {{"ARROZ", "Arroz", 2}, {"", "PRODUTO NÃO CADASTRADO PARA ESTA EMPRESA", 1}, {"NENHUM", "Fantasma", 1}},
         10,
         {"Arroz"},
         "Estoque atende 10 agrupamentos completos; limitado por Arroz; sem cadastro: PRODUTO NÃO CADASTRADO "
         "PARA ESTA EMPRESA e Fantasma"},
        {"negative stock is none; a quantity of 0 takes nothing",
         {{"SAL", "Sal", 1}, {"ARROZ", "Arroz", 0}},
         0,
         {"Sal"},
         "Estoque não atende nenhum agrupamento completo; limitado por Sal"},
        {"0.3 / 0.1 is 3, though the quotient is 2.9999999999999996",
         {{"LEITE", "Leite", 0.1}},
         3,
         {"Leite"},
         "Estoque atende 3 agrupamentos completos; limitado por Leite"},
        {"nothing takes stock", {{"ARROZ", "Arroz", -1}}, std::nullopt, {}, "Estoque: nenhum item consome estoque"},
        {"one", {{"OLEO", "Óleo", 5}}, 1, {"Óleo"}, "Estoque atende 1 agrupamento completo; limitado por Óleo"},
        {"three tie: two named and how many more",
         {{"ARROZ", "A", 20}, {"ARROZ", "B", 20}, {"ARROZ", "C", 20}},
         1,
         {"A", "B", "C"},
         "Estoque atende 1 agrupamento completo; limitado por A, B e mais 1"},
    };
    for (const Caso& c : casos) {
        SCOPED_TRACE(c.nome);
        const Disponibilidade d = Calcula(c.itens, saldos);
        EXPECT_EQ(d.agrupamentos, c.total);
        std::vector<std::string> limitantes;
        for (const ItemDisponivel& i : d.itens)
            if (i.limitante) limitantes.push_back(i.descricao);
        EXPECT_EQ(limitantes, c.limitantes);
        EXPECT_EQ(TextoDisponibilidade(d), c.texto);
    }
    // Per item: need, free stock and what it alone allows.
    const Disponibilidade d = Calcula({{"FEIJAO", "Feijão", 2}, {"", "Sem cadastro", 1}}, saldos);
    ASSERT_EQ(d.itens.size(), 2u);
    EXPECT_EQ(d.itens[0].livre, 55);
    EXPECT_EQ(d.itens[0].permite, 27);
    EXPECT_FALSE(d.itens[1].Cadastrado());
    EXPECT_EQ(d.itens[1].permite, 0);
    EXPECT_TRUE(TextoDisponibilidade(Calcula({}, saldos)).empty());
}

class DisponibilidadeNaTela : public TelasNoDemo<> {
  protected:
    void SetUp() override {
        TelasNoDemo::SetUp();
        if (IsSkipped() || HasFatalFailure()) return;
        // 000101 with plenty of everything but the rice (20 free, 1 each) and
        // the beans (57 − 2 = 55 free, 2 each).
        db->Direto("UPDATE TBMAT SET QtdItAtu = 1000, QtdItBloq = 0 WHERE Empresa = 1");
        db->Direto("UPDATE TBMAT SET QtdItAtu = 20 WHERE Empresa = 1 AND CodItem = '1001'");
        db->Direto("UPDATE TBMAT SET QtdItAtu = 57, QtdItBloq = 2 WHERE Empresa = 1 AND CodItem = '1002'");
    }
    static int Linha(const TolvanF01& f, const std::string& produto) {
        for (int r = 1; r < f.GCon1.Rows(); ++r)
            if (Apara(f.GCon1.TextMatrix(r, TolvanF01::ColProduto)) == produto) return r;
        return -1;
    }
};

// The line follows the grouping, the marks and a quantity change, with one
// stock statement per grouping load; the multiplier dialog warns above it.
TEST_P(DisponibilidadeNaTela, LinhaSegueMarcasEQuantidadeEODialogoAvisa) {
    // No row of a store document starts marked.
    Abre("D", [&](TolvanF01& f) {
        Busca(f, 1, "000101");
        ASSERT_EQ(f.GCon1.Rows(), 14);
        EXPECT_EQ(f.LDisponibilidade.Caption,
                  "Estoque atende 20 agrupamentos completos; limitado por Arroz agulhinha tipo 1 5kg")
            << "nothing marked: all items";
        const size_t consultas = gravador->consultas.size();
        ASSERT_EQ(gravador->antecipadas.size(), 1u);
        EXPECT_EQ(gravador->antecipadas[0], gravador->consultas.back())
            << "the stock statement goes out while the rows are written, and is the one read";

        f.GCon1.Seleciona(Linha(f, "1002"), 1);
        f.sbMarcarSelecionado();
        EXPECT_EQ(f.LDisponibilidade.Caption,
                  "Estoque atende 27 agrupamentos completos; limitado por Feijão carioca tipo 1 1kg")
            << "only the marked beans";

        // The beans' quantity to 5 through the quantity dialog: 55 / 5.
        janelas->AoMostrar("TolvanF03", [](Tela& t) {
            auto& d = static_cast<TolvanF03&>(t);
            d.TQtd.Text.clear();
            d.TQtd.Digita("5");
            d.BTOk_Click();
        });
        f.GCon1.Seleciona(Linha(f, "1002"), 1);
        f.MnuAltQtd_Click();
        EXPECT_EQ(f.LDisponibilidade.Caption,
                  "Estoque atende 11 agrupamentos completos; limitado por Feijão carioca tipo 1 1kg");
        EXPECT_EQ(gravador->consultas.size(), consultas) << "marks and quantities recount without a statement";
        EXPECT_EQ(Troca().AgrupamentosDisponiveis, 11);

        TolvanF05 d;
        d.Carrega();
        d.TxQtdGera.GotFocus();
        EXPECT_EQ(d.LAviso.Caption, "");
        d.TxQtdGera.Text.clear();
        d.TxQtdGera.Digita("12");
        EXPECT_EQ(d.LAviso.Caption, "O estoque atende só 11 agrupamentos completos.");
        d.TxQtdGera.Text.clear();
        d.TxQtdGera.Digita("11");
        EXPECT_EQ(d.LAviso.Caption, "");
        d.bok_Click();
        EXPECT_EQ(Troca().QtdGera, 11) << "a warning, not a refusal";
        f.Unload();
    });
}

ZTOLVAN_NOS_DOIS_BANCOS(DisponibilidadeNaTela);

} // namespace
