#include "apoio/banco_teste.h"

#include <cstdlib>
#include <filesystem>
#include <libpq-fe.h>
#include <stdexcept>
#include <unistd.h>

#include "common/contexto.h"
#include "common/portas.h"
#include "data/comunica.h"
#include "data/despachante.h"
#include "data/sqlite/conector_sqlite.h"

namespace ztolvan::teste {
namespace {

std::string Env(const char* n) {
    const char* v = std::getenv(n);
    return v ? v : "";
}

std::string ConnInfo() {
    std::string s = Env("ZTOLVAN_PG_SERVIDOR"), host = s, porta;
    if (auto p = s.rfind(':'); p != std::string::npos) {
        host = s.substr(0, p);
        porta = s.substr(p + 1);
    }
    std::string ci = "host=" + host + " dbname=" + Env("ZTOLVAN_PG_BANCO");
    if (!porta.empty()) ci += " port=" + porta;
    if (!Env("ZTOLVAN_PG_USUARIO").empty()) ci += " user=" + Env("ZTOLVAN_PG_USUARIO");
    if (!Env("ZTOLVAN_PG_SENHA").empty()) ci += " password=" + Env("ZTOLVAN_PG_SENHA");
    return ci;
}

void PgDireto(const std::string& sql, const char* opcoes = nullptr) {
    std::string ci = ConnInfo();
    if (opcoes) ci += std::string(" options='") + opcoes + "'";
    PGconn* c = PQconnectdb(ci.c_str());
    if (PQstatus(c) != CONNECTION_OK) {
        std::string m = PQerrorMessage(c);
        PQfinish(c);
        throw std::runtime_error(m);
    }
    PGresult* r = PQexec(c, sql.c_str());
    auto st = PQresultStatus(r);
    std::string m = PQresultErrorMessage(r);
    PQclear(r);
    PQfinish(c);
    if (st != PGRES_COMMAND_OK && st != PGRES_TUPLES_OK) throw std::runtime_error(m + " em: " + sql);
}

int contador = 0;

} // namespace

std::string Nome(Kind k) { return k == Kind::Sqlite ? "Sqlite" : "Postgres"; }

BancoTeste::BancoTeste(Kind k) : kind_(k) {
    Contexto::Renova();
    mensagens = std::make_shared<MensagensGravadas>();
    PortasAtuais().mensagens = mensagens;
    PortasAtuais().armazem = std::make_shared<ArmazemMemoria>();
    // Nothing of the machine's own connection settings leaks into a test.
    setenv("ZTOLVAN_CONFIG", "/nonexistent/ztolvan-teste.ini", 1);
    std::error_code ec;
    auto base = std::filesystem::temp_directory_path(ec) /
                ("ztolvan-" + std::to_string(getpid()) + "-" + std::to_string(++contador));
    std::filesystem::create_directories(base, ec);
    pasta_ = base.string();
    if (k == Kind::Sqlite) {
        pronto_ = ConectorSqlite::CriaArquivo(Banco(), motivo_);
        return;
    }
    if (Env("ZTOLVAN_PG_SERVIDOR").empty()) {
        motivo_ = "ZTOLVAN_PG_SERVIDOR não definido";
        return;
    }
    esquema_ = "zt_" + std::to_string(getpid()) + "_" + std::to_string(contador);
    try {
        PgDireto("DROP SCHEMA IF EXISTS " + esquema_ + " CASCADE; CREATE SCHEMA " + esquema_);
        // Every connection of this process (the component's included) works in the schema.
        setenv("PGOPTIONS", ("-c search_path=" + esquema_ + ",public").c_str(), 1);
        pronto_ = true;
    } catch (const std::exception& e) {
        motivo_ = e.what();
    }
}

BancoTeste::~BancoTeste() {
    FechaConexao();
    Contexto::Renova();
    if (!esquema_.empty() && pronto_) {
        try {
            PgDireto("DROP SCHEMA IF EXISTS " + esquema_ + " CASCADE");
        } catch (...) {
        }
    }
    std::error_code ec;
    std::filesystem::remove_all(pasta_, ec);
}

bool BancoTeste::Obrigatorio() const {
    return kind_ == Kind::Postgres && Env("ZTOLVAN_PG_OBRIGATORIO") == "1";
}

std::string BancoTeste::Servidor() const {
    return kind_ == Kind::Sqlite ? "ACCESS" : Env("ZTOLVAN_PG_SERVIDOR");
}
std::string BancoTeste::Banco() const {
    return kind_ == Kind::Sqlite ? pasta_ + "/teste.db" : Env("ZTOLVAN_PG_BANCO");
}
std::string BancoTeste::Usuario() const { return Env("ZTOLVAN_PG_USUARIO"); }
std::string BancoTeste::Senha() const { return Env("ZTOLVAN_PG_SENHA"); }

bool BancoTeste::Conecta() {
    std::string s = Servidor(), b = Banco(), u = Usuario(), p = Senha();
    int16_t silencioso = 1;
    AbreConexao(s, b, u, p, silencioso);
    return ComunicaAtual().Status == status::Ok;
}

void BancoTeste::Direto(const std::string& sql) {
    if (kind_ == Kind::Postgres) {
        PgDireto(sql, ("-c search_path=" + esquema_).c_str());
        return;
    }
    sqlite3* db = nullptr;
    sqlite3_open(Banco().c_str(), &db);
    sqlite3_busy_timeout(db, 5000);
    char* erro = nullptr;
    int rc = sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &erro);
    std::string m = erro ? erro : "";
    sqlite3_free(erro);
    sqlite3_close(db);
    if (rc != SQLITE_OK) throw std::runtime_error(m + " em: " + sql);
}

void ConectorGravador::Processa(int16_t& Conexao, std::string& Transacao, int16_t& Cursor,
                                std::string& Status, std::string& Msg, Valor& Dados, Valor& Retorno) {
    Chamada ch{Transacao, Cursor, Dados.eTexto() ? Dados.texto() : std::string(), {}};
    if (falha && falha(Transacao)) {
        if (Transacao == "COMMIT") {
            std::string desfaz = "ROLLBACK";
            real_->Processa(Conexao, desfaz, Cursor, Status, Msg, Dados, Retorno);
        }
        Status = "99";
        Msg = "falha simulada";
    } else {
        real_->Processa(Conexao, Transacao, Cursor, Status, Msg, Dados, Retorno);
    }
    ch.Status = Status;
    chamadas.push_back(std::move(ch));
}

std::vector<std::string> ConectorGravador::Palavras() const {
    std::vector<std::string> r;
    for (auto& c : chamadas)
        r.push_back(c.Transacao);
    return r;
}

ConectorGravador* GravaChamadas(Kind k) {
    auto g = std::make_unique<ConectorGravador>(CriaConector(k == Kind::Sqlite ? "ACCESS" : "servidor"));
    auto* p = g.get();
    DefineConector(std::move(g));
    return p;
}

} // namespace ztolvan::teste
