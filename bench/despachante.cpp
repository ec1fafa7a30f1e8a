// The per-item pattern of generation (five keyed reads, one insert, one
// COMMIT) through the dispatcher, against the same statements run straight
// through sqlite3 and libpq.
#include <algorithm>
#include <libpq-fe.h>
#include <sqlite3.h>
#include <stdexcept>

#include "banco_bench.h"
#include "data/comunica.h"
#include "data/despachante.h"
#include "data/postgres/conector_postgres.h"
#include "medida.h"

using namespace ztolvan;
using namespace ztolvan::bench;

namespace {

constexpr int Itens = 2000;
constexpr int Produtos = 500;

const char* Leituras[5] = {
    "SELECT K, NOME, PRECO FROM TBPROD WHERE EMP = ? AND K = ?",
    "SELECT K, UND, QTD FROM TBPROD WHERE EMP = ? AND K = ?",
    "SELECT K, GRUPO FROM TBPROD WHERE EMP = ? AND K = ?",
    "SELECT K, PRECO, QTD, UND FROM TBPROD WHERE EMP = ? AND K = ?",
    "SELECT NOME FROM TBPROD WHERE EMP = ? AND K = ?",
};
const char* Insercao =
    "INSERT INTO TBITEM (EMP, NUM, ITEM, PROD, QTD, VALOR, DSC) VALUES (?, ?, ?, ?, ?, ?, ?)";

std::string Ddl(bool pg) {
    std::string texto = pg ? "varchar(40)" : "TEXT";
    return "CREATE TABLE TBPROD (EMP INTEGER, K INTEGER, NOME " + texto + ", UND " + texto + ", GRUPO " +
           texto +
           ", PRECO DOUBLE PRECISION, QTD DOUBLE PRECISION, PRIMARY KEY (EMP, K));"
           "CREATE TABLE TBITEM (EMP INTEGER, NUM INTEGER, ITEM INTEGER, PROD INTEGER, QTD DOUBLE PRECISION, "
           "VALOR DOUBLE PRECISION, DSC " +
           texto + ", PRIMARY KEY (EMP, NUM, ITEM));";
}

std::string Carga() {
    std::string s = "INSERT INTO TBPROD VALUES ";
    for (int k = 0; k < Produtos; ++k)
        s += (k ? "," : "") + std::string("(1,") + std::to_string(k) + ",'PRODUTO " + std::to_string(k) +
             "','UN','ALIMENTOS'," + std::to_string(k * 1.25) + ",10)";
    return s + ";";
}

// Through the component: the thread's Comunica, handles kept between items.
void Componente(int base) {
    Comunica& c = ComunicaAtual();
    static int16_t cur[6] = {0, 0, 0, 0, 0, 0};
    if (base == 0)
        for (auto& x : cur)
            x = 0;
    for (int i = 0; i < 5; ++i)
        if (!cur[i]) {
            PreparaComando(Leituras[i]);
            cur[i] = c.Cursor;
        }
    if (!cur[5]) {
        PreparaComando(Insercao);
        cur[5] = c.Cursor;
    }
    for (int n = 0; n < Itens; ++n) {
        const int k = n % Produtos;
        for (int i = 0; i < 5; ++i) {
            c.Transacao = "OPEN";
            c.Cursor = cur[i];
            c.Dados = Valor::Lista{1, k};
            ExecutaComunica();
            if (c.Status != "00") throw std::runtime_error("leitura: " + c.Msg);
            c.Transacao = "CLOSE";
            ExecutaComunica();
        }
        c.Transacao = "EXECUTE";
        c.Cursor = cur[5];
        c.Dados = Valor::Lista{1, 1, base + n, k, 2.0, k * 2.5, "ITEM"};
        ExecutaComunica();
        if (c.Status != "00") throw std::runtime_error("inclusão: " + c.Msg);
        c.Transacao = "COMMIT";
        c.Cursor = 0;
        c.Dados = std::string();
        ExecutaComunica();
        if (c.Status != "00") throw std::runtime_error("commit: " + c.Msg);
    }
}

void PisoSqlite(sqlite3* db, int base) {
    sqlite3_stmt* st[6];
    for (int i = 0; i < 5; ++i)
        sqlite3_prepare_v3(db, Leituras[i], -1, SQLITE_PREPARE_PERSISTENT, &st[i], nullptr);
    sqlite3_prepare_v3(db, Insercao, -1, SQLITE_PREPARE_PERSISTENT, &st[5], nullptr);
    volatile double soma = 0;
    for (int n = 0; n < Itens; ++n) {
        const int k = n % Produtos;
        for (int i = 0; i < 5; ++i) {
            sqlite3_bind_int(st[i], 1, 1);
            sqlite3_bind_int(st[i], 2, k);
            while (sqlite3_step(st[i]) == SQLITE_ROW)
                for (int j = 0; j < sqlite3_column_count(st[i]); ++j)
                    soma = soma + sqlite3_column_bytes(st[i], j);
            sqlite3_reset(st[i]);
        }
        ExecSqlite(db, "BEGIN IMMEDIATE");
        sqlite3_bind_int(st[5], 1, 1);
        sqlite3_bind_int(st[5], 2, 2);
        sqlite3_bind_int(st[5], 3, base + n);
        sqlite3_bind_int(st[5], 4, k);
        sqlite3_bind_double(st[5], 5, 2.0);
        sqlite3_bind_double(st[5], 6, k * 2.5);
        sqlite3_bind_text(st[5], 7, "ITEM", -1, SQLITE_STATIC);
        if (sqlite3_step(st[5]) != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(db));
        sqlite3_reset(st[5]);
        ExecSqlite(db, "COMMIT");
    }
    for (auto* s : st)
        sqlite3_finalize(s);
}

void CasoSqlite() {
    SqliteBench banco;
    ExecSqlite(banco.db, Ddl(false));
    ExecSqlite(banco.db, Carga());
    if (!AbreComponente("ACCESS", banco.Arquivo())) throw std::runtime_error(ComunicaAtual().Msg);
    int base = 0;
    double comp = 0, piso = 0;
    // Alternate the two so that neither gets the quieter moment of the disk.
    for (int r = 0; r < 3; ++r) {
        comp = std::max(comp, ItensPorSegundo(Itens, 1, [&] { Componente(base); }));
        base += Itens;
        piso = std::max(piso, ItensPorSegundo(Itens, 1, [&] { PisoSqlite(banco.db, base); }));
        base += Itens;
    }
    FechaConexao();
    Imprime("dispatcher-sqlite", comp, piso);
}

void PisoPostgres(PGconn* c, int base) {
    static bool preparado = false;
    if (!preparado) {
        for (int i = 0; i < 5; ++i) {
            int n = 0;
            const std::string t = ConectorPostgres::Numera(Leituras[i], n);
            PQclear(PQprepare(c, ("l" + std::to_string(i)).c_str(), t.c_str(), 0, nullptr));
        }
        PQclear(PQprepare(c, "ins",
                          "INSERT INTO TBITEM (EMP, NUM, ITEM, PROD, QTD, VALOR, DSC) VALUES "
                          "($1, $2, $3, $4, $5, $6, $7)",
                          0, nullptr));
        preparado = true;
    }
    volatile size_t soma = 0;
    for (int n = 0; n < Itens; ++n) {
        const std::string k = std::to_string(n % Produtos);
        const char* chave[2] = {"1", k.c_str()};
        for (int i = 0; i < 5; ++i) {
            PGresult* r = PQexecPrepared(c, ("l" + std::to_string(i)).c_str(), 2, chave, nullptr, nullptr, 0);
            for (int j = 0; j < PQnfields(r); ++j)
                soma = soma + static_cast<size_t>(PQgetlength(r, 0, j));
            PQclear(r);
        }
        ExecPg(c, "BEGIN");
        const std::string item = std::to_string(base + n), valor = std::to_string((n % Produtos) * 2.5);
        const char* v[7] = {"1", "2", item.c_str(), k.c_str(), "2", valor.c_str(), "ITEM"};
        PGresult* r = PQexecPrepared(c, "ins", 7, v, nullptr, nullptr, 0);
        if (PQresultStatus(r) != PGRES_COMMAND_OK) throw std::runtime_error(PQresultErrorMessage(r));
        PQclear(r);
        ExecPg(c, "COMMIT");
    }
}

void CasoPostgres() {
    PgBench banco("zt_bench_");
    if (!banco.Pronto()) {
        std::printf("dispatcher-postgres: skipped (ZTOLVAN_PG_SERVIDOR not set)\n");
        return;
    }
    ExecPg(banco.c, Ddl(true));
    ExecPg(banco.c, Carga());
    if (!banco.AbreComponente()) throw std::runtime_error(ComunicaAtual().Msg);
    int base = 0;
    double comp = 0, piso = 0;
    for (int r = 0; r < 3; ++r) {
        comp = std::max(comp, ItensPorSegundo(Itens, 1, [&] { Componente(base); }));
        base += Itens;
        piso = std::max(piso, ItensPorSegundo(Itens, 1, [&] { PisoPostgres(banco.c, base); }));
        base += Itens;
    }
    FechaConexao();
    Imprime("dispatcher-postgres", comp, piso);
}

} // namespace

int main() { return Principal(CasoSqlite, CasoPostgres); }
