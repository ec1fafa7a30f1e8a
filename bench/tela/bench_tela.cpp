// The consultation screen on large data, headless through its model: the
// start-up listing of 10,000 groupings of 5 items each, the load of one
// grouping of 2,000 items and what the stock supplies of it, against the
// same statements run straight through sqlite3 or libpq with every column
// read, on both databases.
#include <algorithm>
#include <functional>
#include <libpq-fe.h>
#include <chrono>
#include <clocale>
#include <cstdio>
#include <sqlite3.h>
#include <stdexcept>
#include <string>
#include <vector>

#include "banco_bench.h"
#include "common/contexto.h"
#include "common/portas.h"
#include "data/comunica.h"
#include "data/despachante.h"
#include "data/schema/esquema.h"
#include "data/sqlite/conector_sqlite.h"
#include "entry/sessao.h"
#include "estoque/disponibilidade.h"
#include "medida.h"
#include "screens/consultation/tolvanf01.h"
#include "screens/janelas.h"
#ifdef ZTOLVAN_BENCH_QT
#include <QApplication>

#include "ui/qt/visao_tela.h"
#endif

using namespace ztolvan;
using namespace ztolvan::bench;

namespace {

constexpr int Agrupamentos = 10000;
constexpr int ItensPorAgrupamento = 5;
constexpr int ItensGrande = 2000;
constexpr int Rodadas = 21;

// The same rows on either database, written by set statements: groupings
// AG000000.. of 5 items, and GRANDE with its products and equivalences.
void Semeia(const std::function<void(const std::string&)>& exec, bool sqlite) {
    const std::string serie = sqlite ? "WITH RECURSIVE s(g) AS (SELECT 0 UNION ALL SELECT g + 1 FROM s WHERE g < " +
                                           std::to_string(Agrupamentos * ItensPorAgrupamento - 1) + ") "
                                     : "";
    const std::string de = sqlite ? " FROM s" : " FROM generate_series(0, " +
                                                   std::to_string(Agrupamentos * ItensPorAgrupamento - 1) + ") s(g)";
    const std::string pad = sqlite ? "printf('%06d', g / " + std::to_string(ItensPorAgrupamento) + ")"
                                   : "lpad((g / " + std::to_string(ItensPorAgrupamento) + ")::text, 6, '0')";
    const std::string texto = sqlite ? "CAST(100000 + g AS TEXT)" : "(100000 + g)::text";
    exec("BEGIN");
    exec("INSERT INTO TBMATAG (EMPRESA, CODIGO, NOME, CODITEM, CODEQUIV, DSCITEM, ITEM, STTR, TIPO, QTD, VALOR, "
         "RAZFORNEC) " + serie + "SELECT 1, 'AG' || " + pad + ", 'Agrupamento AG' || " + pad + ", " + texto +
         ", " + texto + ", 'Produto ' || " + texto + ", g, 0, 1, 2, 3.5, 'FORNECEDOR'" + de);
    const std::string grande = sqlite ? "WITH RECURSIVE s(g) AS (SELECT 0 UNION ALL SELECT g + 1 FROM s WHERE g < " +
                                            std::to_string(ItensGrande - 1) + ") "
                                      : "";
    const std::string deGrande =
        sqlite ? " FROM s" : " FROM generate_series(0, " + std::to_string(ItensGrande - 1) + ") s(g)";
    const std::string textoGrande = sqlite ? "CAST(1000000 + g AS TEXT)" : "(1000000 + g)::text";
    exec("INSERT INTO TBMATAG (EMPRESA, CODIGO, NOME, CODITEM, CODEQUIV, DSCITEM, ITEM, STTR, TIPO, QTD, VALOR, "
         "RAZFORNEC) " + grande + "SELECT 1, 'GRANDE', 'Agrupamento GRANDE', " + textoGrande + ", " + textoGrande +
         ", 'Produto ' || " + textoGrande + ", 900000 + g, 0, 1, 2, 3.5, 'FORNECEDOR'" + deGrande);
    exec("INSERT INTO TBMAT (Empresa, CodItem, DscItem, Embal) SELECT 1, CODITEM, DSCITEM, 'UN' FROM "
         "TBMATAG WHERE CODIGO = 'GRANDE'");
    exec("INSERT INTO TBMATEQ (EMPRESA, CODEQUIV, CODITEM, TIPO, DISPON, CODREF) SELECT 1, CODEQUIV, "
         "CODITEM, 1, '0', 'REF' FROM TBMATAG WHERE CODIGO = 'GRANDE'");
    exec("COMMIT");
    // The server's table as autovacuum leaves it in a running store: its
    // visibility map set, so the listing reads the index alone.
    exec(sqlite ? "ANALYZE" : "VACUUM ANALYZE TBMATAG");
}

// Steps a statement straight through sqlite3, every column's text read
// where the statement holds it (the connection has no mutex to take); the
// rows read.
int PassoSqlite(sqlite3* db, const std::string& sql) {
    sqlite3_stmt* st = nullptr;
    if (sqlite3_prepare_v2(db, sql.c_str(), -1, &st, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(db));
    int linhas = 0;
    size_t bytes = 0;
    const int colunas = sqlite3_column_count(st);
    while (sqlite3_step(st) == SQLITE_ROW) {
        for (int c = 0; c < colunas; ++c) {
            sqlite3_value* v = sqlite3_column_value(st, c);
            if (sqlite3_value_text(v)) bytes += static_cast<size_t>(sqlite3_value_bytes(v));
        }
        ++linhas;
    }
    sqlite3_finalize(st);
    return bytes > 0 ? linhas : 0;
}

// The same through libpq: the whole result, every value touched.
int PassoPg(PGconn* c, const std::string& sql) {
    PGresult* r = PQexec(c, sql.c_str());
    if (PQresultStatus(r) != PGRES_TUPLES_OK) {
        const std::string m = PQresultErrorMessage(r);
        PQclear(r);
        throw std::runtime_error(m);
    }
    const int linhas = PQntuples(r), colunas = PQnfields(r);
    size_t bytes = 0;
    for (int i = 0; i < linhas; ++i)
        for (int j = 0; j < colunas; ++j)
            bytes += static_cast<size_t>(PQgetlength(r, i, j));
    PQclear(r);
    return bytes > 0 ? linhas : 0;
}

template <class F> double Ms(F&& f) {
    const auto t0 = std::chrono::steady_clock::now();
    f();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - t0).count();
}

// The component and its floor in alternate rounds, the best of each and the
// ratio printed: a burst of load on a shared machine falls on both sides.
template <class F, class G> void Compara(const std::string& caso, F&& componente, G&& piso) {
    double melhor = 1e30, melhorPiso = 1e30;
    for (int r = 0; r < Rodadas; ++r) {
        melhor = std::min(melhor, Ms(componente));
        melhorPiso = std::min(melhorPiso, Ms(piso));
    }
    std::printf("%s: component %.1f ms, floor %.1f ms, ratio %.2f\n", caso.c_str(), melhor, melhorPiso,
                melhorPiso > 0 ? melhor / melhorPiso : 0.0);
    std::fflush(stdout);
}

const char* Listagem = "Select T1.Codigo, T1.DscItem, T1.StTr, T1.CodItem, T1.Nome  From TBMATAG T1  Where "
                       "T1.Empresa = 1 and T1.STTR = '0' And  T1.Codigo >= '0' Group By T1.Codigo, T1.DscItem, "
                       "T1.StTr, T1.CodItem, T1.Nome ";

// The stock of GRANDE's products, as the availability count sends it.
const char* SqlSaldos = "SELECT T2.CODITEM, T2.QTDITATU, T2.QTDITBLOQ FROM TBMAT T2 WHERE T2.EMPRESA = 1 AND "
                        "T2.CODITEM IN (SELECT T1.CODITEM FROM TBMATAG T1 WHERE T1.EMPRESA = 1 AND T1.CODIGO = "
                        "'GRANDE')";

// The consultation's start-up and large load on the connected database,
// each against its statement run raw through 'passo'.
void Mede(const std::string& banco, const std::function<int(const std::string&)>& passo) {
    PortasAtuais().mensagens = std::make_shared<MensagensGravadas>();
    PortasAtuais().telas = std::make_shared<JanelasModelo>();
    Sessao& s = SessaoAtual();
    s.Empresa = s.EmpresaConsulta = 1;
    s.Operador = "BENCH";
    s.Origem = s.OrigemTrim = "V";
    s.OrigemDocumento = true;
    s.TipoPreco = "1";

    // Start-up lists the groupings once, when the search kind is set to
    // "Selecione...".
    TolvanF01 tela;
    const auto pisoInicio = [&] {
        if (passo(Listagem) == 0) throw std::runtime_error("sem linhas");
    };
    Compara("tela-inicio-" + banco, [&] {
        tela.Carrega();
        if (tela.MSFGAgrupamento.Rows() != Agrupamentos + 2) throw std::runtime_error("listagem incompleta");
        tela.Unload();
    }, pisoInicio);

    tela.Carrega();
    int linhaGrande = 0;
    for (int r = 1; r < tela.MSFGAgrupamento.Rows(); ++r)
        if (tela.MSFGAgrupamento.TextMatrix(r, 0).starts_with("GRANDE")) linhaGrande = r;
    // The item statement as the screen sends it (the file database's
    // connector turns ISNULL into IFNULL; the server has ISNULL).
    const std::string sqlItens =
        "SELECT DISTINCT ISNULL(T2.DscItem,'PRODUTO NÃO CADASTRADO PARA ESTA EMPRESA') AS DscItem ,  "
        "ISNULL(T3.DISPON, '0') AS DISPON,  T1.RAZFORNEC , T1.QTD, T1.VALOR, ISNULL(T2.Embal, '') AS Embal,  "
        "ISNULL(T2.CodItem, '') AS CodItem,  ISNULL(T3.CODREF , '') AS CODREF,  ISNULL(T3.CODEQUIV, '') AS "
        "CODEQUIV,  ISNULL(T1.TIPO, '') AS TIPO FROM TBMATAG T1 LEFT JOIN TBMAT T2 ON (T1.EMPRESA = T2.EMPRESA "
        "AND T1.CODITEM = T2.CODITEM) LEFT JOIN TBMATEQ T3 ON (T1.EMPRESA = T3.EMPRESA AND T1.CODITEM = "
        "T3.CODITEM AND T1.CODEQUIV = T3.CODEQUIV AND T3.TIPO = 1) WHERE T1.EMPRESA  = 1 AND T1.CODIGO = "
        "'GRANDE' AND T1.EMPRESA = '1'";
    const std::string sqlPiso = banco == "sqlite" ? ConectorSqlite::TraduzDialeto(sqlItens) : sqlItens;
    // A load reads the items and then its products' stock (the availability
    // line): both statements make its floor.
    const auto pisoCarga = [&] {
        if (passo(sqlPiso) != ItensGrande || passo(SqlSaldos) != ItensGrande)
            throw std::runtime_error("piso sem itens");
    };
    Compara("tela-itens-" + banco, [&] {
        tela.MSFGAgrupamento.DefineRow(linhaGrande);
        tela.sbPesquisaProdutos();
        if (tela.GCon1.Rows() != ItensGrande + 1) throw std::runtime_error("itens incompletos");
    }, pisoCarga);

    // What the stock supplies of the 2,000 items: the component's one stock
    // statement and the count, against that statement run raw.
    std::vector<estoque::Necessidade> necessidades;
    for (int r = 1; r < tela.GCon1.Rows(); ++r)
        necessidades.push_back({tela.GCon1.TextMatrix(r, TolvanF01::ColProduto),
                                tela.GCon1.TextMatrix(r, TolvanF01::ColDescricao), 2});
    Compara("disponibilidade-" + banco, [&] {
        std::string erro;
        const auto saldos = estoque::LeSaldos(1, "GRANDE", erro);
        if (!saldos || saldos->size() != ItensGrande) throw std::runtime_error("saldos incompletos " + erro);
        if (estoque::Calcula(necessidades, *saldos).itens.size() != ItensGrande)
            throw std::runtime_error("contagem incompleta");
    }, [&] {
        if (passo(SqlSaldos) != ItensGrande) throw std::runtime_error("piso sem saldos");
    });
    tela.Unload();
#ifdef ZTOLVAN_BENCH_QT
    // The same operator actions with the Qt view showing the screen.
    Compara("tela-inicio-qt-" + banco, [&] {
        tela.Carrega();
        VisaoTela v(tela);
        v.show();
        QCoreApplication::processEvents();
        tela.Unload();
    }, pisoInicio);
    tela.Carrega();
    VisaoTela visao(tela);
    visao.show();
    QCoreApplication::processEvents();
    Compara("tela-itens-qt-" + banco, [&] {
        tela.MSFGAgrupamento.DefineRow(linhaGrande);
        tela.sbPesquisaProdutos();
        visao.Sincroniza();
        QCoreApplication::processEvents();
    }, pisoCarga);
    tela.Unload();
#endif
}

void CasoSqlite() {
    SqliteBench base;
    if (!AbreComponente("ACCESS", base.Arquivo())) throw std::runtime_error(ComunicaAtual().Msg);
    std::string msg;
    if (!CriaEsquema(msg)) throw std::runtime_error(msg);
    Semeia([&](const std::string& sql) { ExecSqlite(base.db, sql); }, true);
    Mede("sqlite", [&](const std::string& sql) { return PassoSqlite(base.db, sql); });
    FechaConexao();
}

void CasoPostgres() {
    PgBench banco("zt_bench_tela_");
    if (!banco.Pronto()) {
        std::printf("tela-postgres: skipped (ZTOLVAN_PG_SERVIDOR not set)\n");
        return;
    }
    if (!banco.AbreComponente()) throw std::runtime_error(ComunicaAtual().Msg);
    std::string msg;
    if (!CriaEsquema(msg)) throw std::runtime_error(msg);
    Semeia([&](const std::string& sql) { ExecPg(banco.c, sql); }, false);
    // The floor's session plans as the component's does.
    ExecPg(banco.c, "SET enable_hashagg = off");
    Mede("postgres", [&](const std::string& sql) { return PassoPg(banco.c, sql); });
    FechaConexao();
}

} // namespace

int main(int argc, char** argv) {
#ifdef ZTOLVAN_BENCH_QT
    // The view is measured offscreen: the same widgets, no display needed.
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QApplication app(argc, argv);
    // Qt took the desktop's locale: the figures print the same everywhere.
    setlocale(LC_NUMERIC, "C");
#else
    (void)argc;
    (void)argv;
#endif
    return Principal(CasoSqlite, CasoPostgres);
}
