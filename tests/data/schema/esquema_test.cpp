// The schema on both databases: created once or again, keyed, and able to run
// the system's own statements with ISNULL and padded texts.
#include <gtest/gtest.h>

#include "common/conversao.h"
#include "common/texto.h"
#include "data/despachante.h"
#include "data/modules/modulos_teste.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

class Esquema : public ComEsquema {};

const char* const TodasAsTabelas[] = {
    "TBPAR",   "TBPNF", "TBDOC",   "TBDOCIT", "TBICM", "TBICMUF", "TBVEN", "TBREP", "TBMAT",   "TBMATEQ",
    "TBMATAG", "TBPEV", "TBPEVIT", "TBPEVDC", "TBPEC", "TBPECIT", "TBCUS", "TBFOR", "TBMATTP", "TBREGSRV"};

TEST_P(Esquema, CriarDeNovoNaoMudaNadaEMantemOsDados) {
    db->Direto("INSERT INTO TBMATTP (TIPO, DESCRICAO) VALUES (1, 'Varejo')");
    std::string msg;
    EXPECT_TRUE(CriaEsquema(msg)) << msg;
    for (const char* t : TodasAsTabelas)
        EXPECT_EQ(CDbl(Um(std::string("SELECT COUNT(*) FROM ") + t)), t == std::string("TBMATTP") ? 1 : 0)
            << t;
}

TEST_P(Esquema, TodaTabelaTemChavePrimariaEOsItensSaoPorEmpresaDocumentoEItem) {
    auto colunasDaChave = [&](const std::string& t) {
        return CDbl(
            Um(db->kind() == Kind::Sqlite
                   ? "SELECT COUNT(*) FROM pragma_table_info('" + t + "') WHERE pk > 0"
                   : "SELECT COUNT(*) FROM information_schema.key_column_usage k JOIN "
                     "information_schema.table_constraints c ON c.constraint_name = k.constraint_name AND "
                     "c.table_schema = k.table_schema WHERE c.constraint_type = 'PRIMARY KEY' AND "
                     "k.table_schema = current_schema() AND k.table_name = lower('" +
                         t + "')"));
    };
    for (const char* t : TodasAsTabelas)
        EXPECT_GT(colunasDaChave(t), 0) << t;
    EXPECT_EQ(colunasDaChave("TBPEVIT"), 3);
    EXPECT_EQ(colunasDaChave("TBDOCIT"), 3);
    EXPECT_EQ(colunasDaChave("TBPECIT"), 4) << "purchase items are numbered per supplier";
    EXPECT_EQ(colunasDaChave("TBMATAG"), 3);
    db->Direto("INSERT INTO TBMATAG (Empresa, Codigo, Item) VALUES (1, 'A', 1)");
    EXPECT_THROW(db->Direto("INSERT INTO TBMATAG (Empresa, Codigo, Item) VALUES (1, 'A   ', 1)"),
                 std::runtime_error)
        << "trailing blanks never make a key different";
    db->Direto("INSERT INTO TBMATAG (Empresa, Codigo, Item) VALUES (1, 'A', 2)");
}

// A file made before the tables were STRICT is rebuilt by init with every
// row; a row the new table refuses is named and nothing changes.
TEST_P(Esquema, ArquivoAntigoFicaEstritoSemPerderLinhaEALinhaRecusadaENomeada) {
    if (db->kind() != Kind::Sqlite) GTEST_SKIP() << "the server's tables were always typed";
    db->Direto("INSERT INTO TBMATAG (Empresa, Codigo, Item, Nome, Qtd) VALUES (1, '000101', 1, 'Cesta', 2.5), "
               "(1, '000101', 2, 'Cesta', 1)");
    TabelaAntiga("TBMATAG");
    auto estrita = [&](const char* t) {
        return CInt(Um(std::string("SELECT strict FROM pragma_table_list WHERE name = '") + t + "'"));
    };
    ASSERT_EQ(estrita("TBMATAG"), 0);
    std::string msg;
    ASSERT_TRUE(CriaEsquema(msg)) << msg;
    EXPECT_EQ(estrita("TBMATAG"), 1);
    EXPECT_EQ(CDbl(Um("SELECT SUM(Qtd) FROM TBMATAG WHERE Nome = 'Cesta'")), 3.5);
    EXPECT_EQ(CInt(Um("SELECT COUNT(*) FROM pragma_index_list('TBMATAG') WHERE name = 'IX_TBMATAG_LISTA'")), 1);

    TabelaAntiga("TBPAR");
    db->Direto("INSERT INTO TBPAR (Empresa, PerPis) VALUES (1, 1.65), (6, 'abc')");
    EXPECT_FALSE(CriaEsquema(msg));
    EXPECT_NE(msg.find("TBPAR linha 2"), std::string::npos) << msg;
    EXPECT_EQ(msg.find("linha 1:"), std::string::npos) << msg;
    EXPECT_EQ(estrita("TBPAR"), 0);
    EXPECT_EQ(CInt(Um("SELECT COUNT(*) FROM TBPAR")), 2) << "no row dropped";
}

// The consultation's listing and name search read an index, no table scan
// and no sort: ten thousand groupings list in a blink.
TEST_P(Esquema, AListagemEABuscaPorNomeDoAgrupamentoLeemUmIndice) {
    const std::string listagem =
        "Select T1.Codigo, T1.DscItem, T1.StTr, T1.CodItem, T1.Nome  From TBMATAG T1  Where T1.Empresa = 1 and "
        "T1.STTR = '0' And  T1.Codigo >= '0' Group By T1.Codigo, T1.DscItem, T1.StTr, T1.CodItem, T1.Nome ";
    const std::string busca = "SELECT DISTINCT T1.CODIGO, T1.NOME, T1.STTR  FROM TBMATAG T1 WHERE EMPRESA = '1'"
                              " AND NOME LIKE '%kit%' AND STTR = '0' ORDER BY T1.CODIGO ASC";
    const bool sqlite = db->kind() == Kind::Sqlite;
    // The server's planner would rather scan a small table: forbid it, so
    // the plan tells whether an index can serve the statement at all.
    if (!sqlite) db->Direto("SET enable_seqscan = off");
    for (const std::string& sql : {listagem, busca}) {
        TabelaResultado plano;
        std::string st, msg;
        ConectorAtual()->Consulta(c().Conexao, (sqlite ? "EXPLAIN QUERY PLAN " : "EXPLAIN ") + sql, plano, st,
                                  msg);
        ASSERT_EQ(st, "00") << msg;
        std::string texto;
        for (size_t l = 0; l < plano.linhas.size(); ++l)
            texto += CStr(plano.linhas[l].back()) + "\n";
        EXPECT_NE(Maiusculas(texto).find("IX_TBMATAG_LISTA"), std::string::npos) << sql << "\n" << texto;
        if (sqlite) {
            EXPECT_EQ(texto.find("TEMP B-TREE FOR GROUP BY"), std::string::npos) << texto;
        }
    }
}

// The server turns ISNULL's '' into the column's type (0); the untyped file
// gives '' back. Both read as 0 the way the screens read a number cell.
TEST_P(Esquema, IsNullResolveParaNumerosTextosEDuplosENumerosComparamComLiteraisEntreAspas) {
    db->Direto("INSERT INTO TBMATAG (Empresa, Codigo, Item, TIPO, Nome, Valor) VALUES "
               "(1, 'A', 1, NULL, NULL, NULL), (1, 'B', 1, 2, 'Nome', 1.5), (2, 'C', 1, 2, 'Outra', 0)");
    auto linha = [&](const char* codigo) {
        Um(std::string("SELECT ISNULL(TIPO, ''), ISNULL(Nome, 'x'), ISNULL(Valor, 0), ISNULL(Item, 0) FROM "
                       "TBMATAG WHERE Codigo = '") +
           codigo + "'");
        return c().Retorno.eLista() ? c().Retorno.lista() : Valor::Lista(4);
    };
    const Valor::Lista a = linha("A"), b = linha("B");
    EXPECT_EQ(Val(CStr(a[0])), 0);
    EXPECT_TRUE(db->kind() == Kind::Sqlite || CDbl(a[0]) == 0) << "the server gives a number";
    EXPECT_EQ(std::make_tuple(Apara(CStr(a[1])), CDbl(a[2])), std::make_tuple("x", 0.0));
    EXPECT_EQ(std::make_tuple(CDbl(b[0]), Apara(CStr(b[1])), CDbl(b[2]), CDbl(b[3])),
              std::make_tuple(2.0, "Nome", 1.5, 1.0));
    EXPECT_EQ(CDbl(Um("SELECT COUNT(*) FROM TBMATAG T1 WHERE T1.EMPRESA = '1' AND T1.TIPO = '2'")), 1);
}

ZTOLVAN_NOS_DOIS_BANCOS(Esquema);

} // namespace
