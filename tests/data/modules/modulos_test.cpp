// The modules' statements against real tables on both databases: grouping
// reads and renames, last-item reads, joins that fill two records, ICMS
// rates.
#include <gtest/gtest.h>

#include "common/conversao.h"
#include "common/texto.h"
#include "data/modules/modulos_teste.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

class Modulos : public ComEsquema {
  protected:
    void Equivalencia(const std::string& cod, int tipo, double valor, const std::string& produto = "") {
        const std::string item = produto.empty() ? "P" + cod : produto;
        db->Direto("INSERT INTO TBMATEQ (Empresa, CodEquiv, Tipo, CodItem, Valor, DscItem, UltCForn, "
                   "RazFornec) VALUES (1, '" +
                   cod + "', " + std::to_string(tipo) + ", '" + item + "', " + EscreveNumero(valor) +
                   ", 'Equivalência " + cod + "', 101, 'Fornecedor')");
    }
    void ItemAgrupamento(const std::string& codigo, int item, const std::string& equiv, double valor = 1) {
        db->Direto("INSERT INTO TBMATAG (Empresa, Codigo, Nome, Item, CodItem, DscItem, CodEquiv, Qtd, "
                   "Valor, STTR, Observacao, TIPO) VALUES (1, '" +
                   codigo + "', 'Agrupamento " + codigo + "', " + std::to_string(item) + ", 'P" + equiv +
                   "', 'Item', '" + equiv + "', 2, " + EscreveNumero(valor) + ", 0, 'Obs', 3)");
    }
    // Reads a record through a module from OPEN to the end, one value per row.
    template <class R, class V> std::vector<V> Le(R& (*reg)(), void (*modulo)(), const char* f, V R::*campo) {
        std::vector<V> r;
        for (Chama(reg(), modulo, f, "OPEN"); c().Status == "00"; Chama(reg(), modulo, f, "NEXT"))
            r.push_back(reg().*campo);
        EXPECT_EQ(c().Status, "23") << c().Msg;
        EXPECT_EQ(Chama(reg(), modulo, f, "CLOSE"), "00");
        return r;
    }
    // Items of a grouping from 'inicio' on for a price type, as the callers loop.
    std::vector<int32_t> Itens(const std::string& codigo, int32_t inicio, int16_t tipo) {
        ChaveMTBMATAG() = {.Empresa = 1, .Codigo = codigo, .Item = inicio, .Tipo = tipo};
        return Le(A_MTBMATAG, MTBMATAG, "FSEL010", &A_MTBMATAG_t::Item);
    }
    double Conta(const std::string& where) { return CDbl(Um("SELECT COUNT(*) FROM " + where)); }
};

// Item 6 has no price of type 1; each row spreads over the grouping's record
// and the equivalence's (T2.DscItem is the equivalence's).
TEST_P(Modulos, Fsel010DoItemDadoEmDianteEmOrdemSemOsItensSemPrecoDoTipoEnchendoOsDoisRegistros) {
    for (int i = 1; i <= 8; ++i) {
        const std::string eq = "E" + std::to_string(i);
        if (i != 6) Equivalencia(eq, 1, 10 + i);
        Equivalencia(eq, 2, 20 + i);
    }
    for (int i : {8, 3, 5, 1, 7, 2, 6, 4})
        ItemAgrupamento("G1", i, "E" + std::to_string(i), i + 0.25);
    EXPECT_EQ(Itens("G1", 0, 2), (std::vector<int32_t>{1, 2, 3, 4, 5, 6, 7, 8}));
    EXPECT_TRUE(Itens("G1", 9, 1).empty());
    EXPECT_TRUE(Itens("G1", 0, 3).empty()) << "no item has type 3: an empty grouping";
    A_MTBMATAG().DscItem = "intocado";
    EXPECT_EQ(Itens("G1", 5, 1), (std::vector<int32_t>{5, 7, 8}));
    EXPECT_EQ(std::make_tuple(A_MTBMATAG().Valor, A_MTBMATEQ().Valor, A_MTBMATEQ().UltCForn),
              std::make_tuple(8.25, 18.0, 101));
    EXPECT_EQ(Apara(A_MTBMATEQ().DscItem), "Equivalência E8");
    EXPECT_EQ(Apara(A_MTBMATAG().DscItem), "intocado");
    EXPECT_EQ(Apara(A_MTBMATAG().Nome), "Agrupamento G1");
}

TEST_P(Modulos, Fupd005ComCodigoNovoNoRegistroEAntigoNaChaveMoveTodasAsLinhas) {
    for (int i = 1; i <= 3; ++i)
        ItemAgrupamento("VELHO", i, "E" + std::to_string(i));
    ItemAgrupamento("OUTRO", 1, "E1");
    A_MTBMATAG_t& ag = A_MTBMATAG();
    ag.Empresa = 1;
    ag.Codigo = "NOVO";
    ag.Nome = "Nome novo";
    ag.STTR = 1;
    ag.Observacao = "Nova";
    ag.Tipo = 2;
    ChaveMTBMATAG() = {.Empresa = 1, .Codigo = "VELHO"};
    ASSERT_EQ(Chama(ag, MTBMATAG, "FUPD005", "EXECUTE"), "00") << c().Msg;
    Chama(ag, MTBMATAG, "FUPD005", "COMMIT");
    EXPECT_EQ(Conta("TBMATAG WHERE Codigo = 'VELHO'"), 0);
    EXPECT_EQ(Conta("TBMATAG WHERE Codigo = 'NOVO' AND STTR = 1 AND TIPO = 2 AND Nome = 'Nome novo' AND "
                    "Observacao = 'Nova'"),
              3);
    EXPECT_EQ(Conta("TBMATAG WHERE Codigo = 'OUTRO' AND Nome = 'Agrupamento OUTRO'"), 1);
}

// From item 999999999 down, the bound exclusive; purchase items count per
// supplier; a document's greatest item comes first.
TEST_P(Modulos, Fsel003EFsel024DaoOsItensDoMaiorParaOMenor) {
    db->Direto("INSERT INTO TBPEVIT (Empresa, NumPed, Item) VALUES (1, 7, 10), (1, 7, 30), (1, 7, 20), "
               "(1, 8, 99)"); // and another order
    db->Direto("INSERT INTO TBPECIT (Empresa, NumPed, CodFor, Item) VALUES (1, 3, 101, 10), (1, 3, 101, 20), "
               "(1, 3, 102, 50)");
    db->Direto("INSERT INTO TBDOCIT (Empresa, Seq, Item) VALUES (1, 4, 1), (1, 4, 3), (1, 4, 2), (1, 5, 9)");
    ChaveMTBPEVIT() = {.Empresa = 1, .NumPed = 7, .Item = 999999999};
    EXPECT_EQ(Le(A_MTBPEVIT, MTBPEVIT, "FSEL003", &A_MTBPEVIT_t::Item), (std::vector<int32_t>{30, 20, 10}));
    ChaveMTBPEVIT().Item = 30;
    Chama(A_MTBPEVIT(), MTBPEVIT, "FSEL003", "REQUERY");
    EXPECT_EQ(A_MTBPEVIT().Item, 20);
    ChaveMTBPECIT() = {.Empresa = 1, .NumPed = 3, .CodFor = 101, .Item = 999999999};
    EXPECT_EQ(Le(A_MTBPECIT, MTBPECIT, "FSEL003", &A_MTBPECIT_t::Item), (std::vector<int32_t>{20, 10}));
    ChaveMTBDOCIT() = {.Empresa = 1, .Seq = 4};
    ASSERT_EQ(Chama(A_MTBDOCIT(), MTBDOCIT, "FSEL024", "OPEN"), "00") << c().Msg;
    EXPECT_EQ(A_MTBDOCIT().Item, 3);
}

// FSEL063 reads through the product's module, FSEL011 through the
// equivalence's: each sends the other table's columns to that table's record.
TEST_P(Modulos, Fsel063EFsel011LevamAsColunasDeCadaTabelaAoSeuRegistro) {
    db->Direto("INSERT INTO TBMAT (Empresa, CodItem, DscItem, PrcItem, PrcItem4, UltCForn, CCusto, QtdItAtu) "
               "VALUES (1, 'P1', 'Estoque', 5, 4.4, 77, 'LOJA', 50)");
    Equivalencia("E1", 1, 6.5, "P1");
    Equivalencia("E1", 2, 8.8, "P1");
    A_MTBMAT().QtdItAtu = 123;
    A_MTBMAT().DscItem = "antes";
    ChaveEquivMTBMAT() = {.EMPRESA = 1, .CODEQUIV = "E1", .TIPO = 2};
    ASSERT_EQ(Chama(A_MTBMAT(), MTBMAT, "FSEL063", "REQUERY"), "00") << c().Msg;
    EXPECT_EQ(Apara(A_MTBMATEQ().DscItem), "Equivalência E1");
    EXPECT_EQ(Apara(A_MTBMAT().DscItem), "antes") << "T2.DSCITEM is the equivalence's";
    // QtdItAtu is not in the select list.
    EXPECT_EQ(std::make_tuple(A_MTBMATEQ().Valor, A_MTBMAT().PrcItem4, A_MTBMAT().QtdItAtu),
              std::make_tuple(8.8, 4.4, 123.0));

    A_MTBMAT().CCusto = "";
    A_MTBMAT().PrcItem = 99;
    A_MTBMATEQ().FatorConvGer = 7;
    ChaveMTBMATEQ() = {.Empresa = 1, .Tipo = 1, .CodEquiv = "E1"};
    ASSERT_EQ(Chama(A_MTBMATEQ(), MTBMATEQ, "FSEL011", "REQUERY"), "00") << c().Msg;
    EXPECT_EQ(Apara(A_MTBMAT().CCusto), "LOJA");
    // Only CCusto comes from the product; column 36 is not read by FSEL011.
    EXPECT_EQ(std::make_tuple(A_MTBMAT().PrcItem, A_MTBMATEQ().Valor, A_MTBMATEQ().FatorConvGer),
              std::make_tuple(99.0, 6.5, 7.0));
}

TEST_P(Modulos, AliquotaICMSGeralOuDoEstadoSoParaOTipoF) {
    db->Direto("INSERT INTO TBICM (EMPRESA, CODIGO, PERCICMS, PERCICMSF) VALUES (1, 4, 18, 17)");
    db->Direto("INSERT INTO TBICMUF (EMPRESA, CODIGO, UF, PERCICMSF) VALUES (1, 4, 'RJ', 20)");
    const struct {
        int16_t codigo;
        const char *uf, *tipo;
        double icms, icmsf;
        const char* status;
    } casos[] = {
        {4, "RJ", " f ", 18, 20, "00"}, // the state's own row
        {4, "SP", "F", 18, 17, "00"},   // no row for the state: the general rate
        {4, "RJ", "D", 18, 17, "00"},   // other types never look at the state
        {9, "RJ", "F", 0, 0, "23"},     // no such code
    };
    for (const auto& k : casos) {
        int16_t empresa = 1, codigo = k.codigo;
        std::string uf = k.uf, tipo = k.tipo;
        double icms = -1, icmsf = -1;
        LerAliquotaICMS(empresa, codigo, uf, tipo, icms, icmsf);
        EXPECT_EQ(std::tie(icms, icmsf, c().Status), std::make_tuple(k.icms, k.icmsf, k.status))
            << k.uf << "/" << k.tipo << "/" << k.codigo;
    }
}

ZTOLVAN_NOS_DOIS_BANCOS(Modulos);

} // namespace
