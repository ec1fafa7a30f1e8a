// The consultation screen on large data, headless through its model: the
// start-up listing of 10,000 groupings of 5 items each, and the load of one
// grouping of 2,000 items, against the same statements stepped straight
// through sqlite3 with every column read.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <sqlite3.h>
#include <stdexcept>
#include <string>

#include "banco_bench.h"
#include "common/contexto.h"
#include "common/portas.h"
#include "data/comunica.h"
#include "data/despachante.h"
#include "data/schema/esquema.h"
#include "entry/sessao.h"
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
constexpr int Rodadas = 9;

void Semeia(sqlite3* db) {
    ExecSqlite(db, "BEGIN");
    sqlite3_stmt* ag = nullptr;
    sqlite3_prepare_v2(db,
                       "INSERT INTO TBMATAG (EMPRESA, CODIGO, NOME, CODITEM, CODEQUIV, DSCITEM, ITEM, STTR, TIPO, QTD, "
                       "VALOR, RAZFORNEC) VALUES (1, ?, ?, ?, ?, ?, ?, 0, 1, 2, 3.5, 'FORNECEDOR')",
                       -1, &ag, nullptr);
    auto grava = [&](const std::string& codigo, int item) {
        const std::string prod = std::to_string(100000 + item);
        sqlite3_bind_text(ag, 1, codigo.c_str(), -1, SQLITE_TRANSIENT);
        sqlite3_bind_text(ag, 2, ("Agrupamento " + codigo).c_str(), -1, SQLITE_TRANSIENT);
        sqlite3_bind_text(ag, 3, prod.c_str(), -1, SQLITE_TRANSIENT);
        sqlite3_bind_text(ag, 4, prod.c_str(), -1, SQLITE_TRANSIENT);
        sqlite3_bind_text(ag, 5, ("Produto " + prod).c_str(), -1, SQLITE_TRANSIENT);
        sqlite3_bind_int(ag, 6, item);
        if (sqlite3_step(ag) != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(db));
        sqlite3_reset(ag);
    };
    char codigo[24];
    for (int g = 0; g < Agrupamentos; ++g) {
        std::snprintf(codigo, sizeof codigo, "AG%06d", g);
        for (int i = 0; i < ItensPorAgrupamento; ++i)
            grava(codigo, g * ItensPorAgrupamento + i);
    }
    for (int i = 0; i < ItensGrande; ++i)
        grava("GRANDE", 900000 + i);
    sqlite3_finalize(ag);
    ExecSqlite(db, "INSERT INTO TBMAT (Empresa, CodItem, DscItem, Embal) SELECT 1, CODITEM, DSCITEM, 'UN' FROM "
                   "TBMATAG WHERE CODIGO = 'GRANDE'");
    ExecSqlite(db, "INSERT INTO TBMATEQ (EMPRESA, CODEQUIV, CODITEM, TIPO, DISPON, CODREF) SELECT 1, CODEQUIV, "
                   "CODITEM, 1, 0, 'REF' FROM TBMATAG WHERE CODIGO = 'GRANDE'");
    ExecSqlite(db, "COMMIT");
}

// Steps a statement through sqlite3 reading every column; the rows read.
int Passo(sqlite3* db, const std::string& sql) {
    sqlite3_stmt* st = nullptr;
    if (sqlite3_prepare_v2(db, sql.c_str(), -1, &st, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(db));
    int linhas = 0;
    size_t bytes = 0;
    while (sqlite3_step(st) == SQLITE_ROW) {
        for (int c = 0; c < sqlite3_column_count(st); ++c) {
            const unsigned char* t = sqlite3_column_text(st, c);
            if (t) bytes += static_cast<size_t>(sqlite3_column_bytes(st, c));
        }
        ++linhas;
    }
    sqlite3_finalize(st);
    return bytes > 0 ? linhas : 0;
}

template <class F> double Ms(F&& f) {
    double melhor = 1e30;
    for (int r = 0; r < Rodadas; ++r) {
        auto t0 = std::chrono::steady_clock::now();
        f();
        melhor = std::min(melhor, std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - t0).count());
    }
    return melhor;
}

void Linha(const char* caso, double componente, double piso) {
    std::printf("%s: component %.1f ms, floor %.1f ms, ratio %.2f\n", caso, componente, piso,
                piso > 0 ? componente / piso : 0.0);
    std::fflush(stdout);
}

const char* Listagem = "Select T1.Codigo, T1.DscItem, T1.StTr, T1.CodItem, T1.Nome  From TBMATAG T1  Where "
                       "T1.Empresa = 1 and T1.STTR = '0' And  T1.Codigo >= '0' Group By T1.Codigo, T1.DscItem, "
                       "T1.StTr, T1.CodItem, T1.Nome ";

} // namespace

int main(int argc, char** argv) {
#ifdef ZTOLVAN_BENCH_QT
    // The view is measured offscreen: the same widgets, no display needed.
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QApplication app(argc, argv);
#else
    (void)argc;
    (void)argv;
#endif
    try {
        SqliteBench base;
        if (!AbreComponente("ACCESS", base.Arquivo())) throw std::runtime_error(ComunicaAtual().Msg);
        std::string msg;
        if (!CriaEsquema(msg)) throw std::runtime_error(msg);
        Semeia(base.db);
        PortasAtuais().mensagens = std::make_shared<MensagensGravadas>();
        PortasAtuais().telas = std::make_shared<JanelasModelo>();
        Sessao& s = SessaoAtual();
        s.Empresa = s.EmpresaConsulta = 1;
        s.Operador = "BENCH";
        s.Origem = s.OrigemTrim = "V";
        s.OrigemDocumento = true;
        s.TipoPreco = "1";

        // Start-up lists the groupings twice, as the screen does: once when
        // the search kind is set to "Selecione..." and once more itself.
        TolvanF01 tela;
        const double inicio = Ms([&] {
            tela.Carrega();
            if (tela.MSFGAgrupamento.Rows() != Agrupamentos + 2) throw std::runtime_error("listagem incompleta");
            tela.Unload();
        });
        const double pisoInicio = Ms([&] {
            if (Passo(base.db, Listagem) + Passo(base.db, Listagem) == 0) throw std::runtime_error("sem linhas");
        });
        Linha("tela-inicio", inicio, pisoInicio);

        std::string itens;
        tela.Carrega();
        int linhaGrande = 0;
        for (int r = 1; r < tela.MSFGAgrupamento.Rows(); ++r)
            if (tela.MSFGAgrupamento.TextMatrix(r, 0).starts_with("GRANDE")) linhaGrande = r;
        const double carga = Ms([&] {
            tela.MSFGAgrupamento.DefineRow(linhaGrande);
            tela.sbPesquisaProdutos();
            if (tela.GCon1.Rows() != ItensGrande + 1) throw std::runtime_error("itens incompletos");
        });
        const std::string sqlItens = [&] {
            // The item statement exactly as the screen sends it, read back through a recording of one load.
            return std::string("SELECT DISTINCT IFNULL(T2.DscItem,'PRODUTO NÃO CADASTRADO PARA ESTA EMPRESA') AS "
                               "DscItem ,  IFNULL(T3.DISPON, '0') AS DISPON,  T1.RAZFORNEC , T1.QTD, T1.VALOR, "
                               "IFNULL(T2.Embal, '') AS Embal,  IFNULL(T2.CodItem, '') AS CodItem,  "
                               "IFNULL(T3.CODREF , '') AS CODREF,  IFNULL(T3.CODEQUIV, '') AS CODEQUIV,  "
                               "IFNULL(T1.TIPO, '') AS TIPO FROM TBMATAG T1 LEFT JOIN TBMAT T2 ON (T1.EMPRESA = "
                               "T2.EMPRESA AND T1.CODITEM = T2.CODITEM) LEFT JOIN TBMATEQ T3 ON (T1.EMPRESA = "
                               "T3.EMPRESA AND T1.CODITEM = T3.CODITEM AND T1.CODEQUIV = T3.CODEQUIV AND T3.TIPO "
                               "= 1) WHERE T1.EMPRESA  = 1 AND T1.CODIGO = 'GRANDE' AND T1.EMPRESA = '1'");
        }();
        const double pisoCarga = Ms([&] {
            if (Passo(base.db, sqlItens) != ItensGrande) throw std::runtime_error("piso sem itens");
        });
        Linha("tela-itens", carga, pisoCarga);
        tela.Unload();
#ifdef ZTOLVAN_BENCH_QT
        // The same operator actions with the Qt view showing the screen.
        const double inicioQt = Ms([&] {
            tela.Carrega();
            VisaoTela v(tela);
            v.show();
            QCoreApplication::processEvents();
            tela.Unload();
        });
        Linha("tela-inicio-qt", inicioQt, pisoInicio);
        tela.Carrega();
        VisaoTela visao(tela);
        visao.show();
        QCoreApplication::processEvents();
        const double cargaQt = Ms([&] {
            tela.MSFGAgrupamento.DefineRow(linhaGrande);
            tela.sbPesquisaProdutos();
            visao.Sincroniza();
            QCoreApplication::processEvents();
        });
        Linha("tela-itens-qt", cargaQt, pisoCarga);
        tela.Unload();
#endif
        FechaConexao();
        return 0;
    } catch (const std::exception& e) {
        std::fprintf(stderr, "ztolvan_bench_tela: %s\n", e.what());
        return 1;
    }
}
