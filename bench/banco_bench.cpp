#include "banco_bench.h"

#include <stdexcept>
#include <unistd.h>

#include "common/contexto.h"
#include "common/portas.h"
#include "data/comunica.h"
#include "data/despachante.h"
#include "data/sqlite/conector_sqlite.h"
#include "medida.h"

namespace ztolvan::bench {

bool AbreComponente(const std::string& servidor, const std::string& banco, const std::string& usuario,
                    const std::string& senha) {
    std::string s = servidor, b = banco, u = usuario, p = senha;
    int16_t q = 1;
    AbreConexao(s, b, u, p, q);
    return ComunicaAtual().Status == status::Ok;
}

void ExecSqlite(sqlite3* db, const std::string& sql) {
    char* e = nullptr;
    if (sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &e) != SQLITE_OK) {
        std::string m = e ? e : "";
        sqlite3_free(e);
        throw std::runtime_error(m);
    }
}

void ExecPg(PGconn* c, const std::string& sql) {
    PGresult* r = PQexec(c, sql.c_str());
    auto st = PQresultStatus(r);
    std::string m = PQresultErrorMessage(r);
    PQclear(r);
    if (st != PGRES_COMMAND_OK && st != PGRES_TUPLES_OK) throw std::runtime_error(m);
}

SqliteBench::SqliteBench() {
    pasta_ = std::filesystem::temp_directory_path() / ("ztolvan-bench-" + std::to_string(getpid()));
    std::filesystem::create_directories(pasta_);
    arquivo_ = (pasta_ / "bench.db").string();
    std::string msg;
    if (!ConectorSqlite::CriaArquivo(arquivo_, msg)) throw std::runtime_error(msg);
    // Opened as the component opens its own: one thread per connection, no
    // mutex around each call.
    sqlite3_open_v2(arquivo_.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    ExecSqlite(db, "PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL;");
}

SqliteBench::~SqliteBench() {
    sqlite3_close(db);
    std::error_code ec;
    std::filesystem::remove_all(pasta_, ec);
}

PgBench::PgBench(const std::string& prefixo) {
    Pg pg;
    if (!pg.Definido()) return;
    esquema_ = prefixo + std::to_string(getpid());
    setenv("PGOPTIONS", ("-c search_path=" + esquema_).c_str(), 1);
    c = PQconnectdb(pg.ConnInfo().c_str());
    if (PQstatus(c) != CONNECTION_OK) throw std::runtime_error(PQerrorMessage(c));
    PQsetNoticeProcessor(
        c, [](void*, const char*) {}, nullptr);
    ExecPg(c, "CREATE SCHEMA " + esquema_);
}

PgBench::~PgBench() {
    if (!c) return;
    try {
        ExecPg(c, "DROP SCHEMA " + esquema_ + " CASCADE");
    } catch (...) {
    }
    PQfinish(c);
}

bool PgBench::AbreComponente() const {
    Pg pg;
    return bench::AbreComponente(pg.servidor, pg.banco, pg.usuario, pg.senha);
}

int Principal(const std::function<void()>& casoSqlite, const std::function<void()>& casoPostgres) {
    try {
        PortasAtuais().mensagens = std::make_shared<MensagensGravadas>();
        casoSqlite();
        Contexto::Renova();
        PortasAtuais().mensagens = std::make_shared<MensagensGravadas>();
        casoPostgres();
        return 0;
    } catch (const std::exception& e) {
        std::fprintf(stderr, "bench: %s\n", e.what());
        return 1;
    }
}

} // namespace ztolvan::bench
