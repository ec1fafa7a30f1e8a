#pragma once
// The databases a benchmark runs on, opened both for the component and for
// the floor (the raw sqlite3 and libpq handles).
#include <filesystem>
#include <functional>
#include <libpq-fe.h>
#include <sqlite3.h>
#include <string>

namespace ztolvan::bench {

// Opens the thread's connection the way the component does, quietly.
bool AbreComponente(const std::string& servidor, const std::string& banco, const std::string& usuario = "",
                    const std::string& senha = "");
void ExecSqlite(sqlite3* db, const std::string& sql);
void ExecPg(PGconn* c, const std::string& sql);

// A new SQLite file in a temporary folder with the connector's pragmas.
class SqliteBench {
  public:
    SqliteBench();
    ~SqliteBench();
    const std::string& Arquivo() const { return arquivo_; }
    sqlite3* db = nullptr;

  private:
    std::filesystem::path pasta_;
    std::string arquivo_;
};

// A private schema in the PostgreSQL of ZTOLVAN_PG_*, which every connection
// of the process (the component's too) works in; Pronto() false when unset.
class PgBench {
  public:
    explicit PgBench(const std::string& prefixo);
    ~PgBench();
    bool Pronto() const { return c != nullptr; }
    bool AbreComponente() const;
    PGconn* c = nullptr;

  private:
    std::string esquema_;
};

// Runs the SQLite case, then the PostgreSQL case on a fresh thread context,
// messages kept quiet; 0, or 1 with the reason on stderr.
int Principal(const std::function<void()>& casoSqlite, const std::function<void()>& casoPostgres);

} // namespace ztolvan::bench
