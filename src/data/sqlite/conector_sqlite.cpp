#include "data/sqlite/conector_sqlite.h"

#include <cctype>

#include "common/texto.h"
#include "data/comunica.h"

namespace ztolvan {

struct ConectorSqlite::ComandoSqlite : Comando {
    sqlite3_stmt* stmt = nullptr;
    ~ComandoSqlite() override { sqlite3_finalize(stmt); }
    int Parametros() const override { return sqlite3_bind_parameter_count(stmt); }
    bool EhConsulta() const override { return sqlite3_column_count(stmt) > 0; }
};

namespace {

bool LetraDeNome(char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '$'; }

// SQLite counts every allocation of every statement under one process-wide
// mutex, for figures nobody here reads; a listing of many rows spent over
// a quarter of its time on it. The count is off before the first file is opened.
// A host that started SQLite before keeps its own settings (the call is then
// refused, and harmless).
void PreparaSqlite() {
    static const int feito = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
    (void)feito;
}

} // namespace

// SQLite reads ISNULL as a keyword (the postfix "x ISNULL"), so no function
// of that name can be called: the suite's ISNULL(a, b) becomes SQLite's own
// IFNULL(a, b), outside quoted texts and names.
std::string ConectorSqlite::TraduzDialeto(const std::string& texto) {
    std::string r = texto;
    char aspas = 0;
    for (size_t i = 0; i < r.size(); ++i) {
        const char c = r[i];
        if (aspas) {
            if (c == aspas) aspas = 0;
            continue;
        }
        if (c == '\'' || c == '"' || c == '[') {
            aspas = c == '[' ? ']' : c;
            continue;
        }
        if ((c != 'I' && c != 'i') || (i > 0 && LetraDeNome(r[i - 1])) || i + 6 > r.size() ||
            !IguaisSemCaixa(std::string_view(r).substr(i, 6), "ISNULL"))
            continue;
        size_t j = i + 6;
        while (j < r.size() && std::isspace(static_cast<unsigned char>(r[j])))
            ++j;
        if (j < r.size() && r[j] == '(') {
            r.replace(i, 6, "IFNULL");
            i += 5;
        }
    }
    return r;
}

namespace {

// One value of the current row, by its storage class, onto the rows read.
// The value is read where the statement holds it: the connection is this
// thread's alone (no mutex), so the column's value needs no guarded copy,
// and one lookup serves its type, text and length.
void LeColuna(sqlite3_stmt* st, int i, LinhasLidas& linhas) {
    sqlite3_value* v = sqlite3_column_value(st, i);
    switch (sqlite3_value_type(v)) {
    case SQLITE_INTEGER:
        return linhas.Inteiro(sqlite3_value_int64(v));
    case SQLITE_FLOAT:
        return linhas.Duplo(sqlite3_value_double(v));
    case SQLITE_NULL:
        return linhas.Nulo();
    default: {
        const auto* p = reinterpret_cast<const char*>(sqlite3_value_text(v));
        return linhas.Texto(std::string_view(p ? p : "", static_cast<size_t>(sqlite3_value_bytes(v))));
    }
    }
}

int Liga(sqlite3_stmt* st, int i, const Valor& v) {
    switch (v.tipo()) {
    case Valor::Tipo::Vazio:
        return sqlite3_bind_null(st, i);
    case Valor::Tipo::Inteiro:
        return sqlite3_bind_int64(st, i, v.inteiro());
    case Valor::Tipo::Duplo:
        return sqlite3_bind_double(st, i, v.duplo());
    case Valor::Tipo::Logico:
        return sqlite3_bind_int(st, i, v.logico() ? 1 : 0);
    case Valor::Tipo::Texto:
        return sqlite3_bind_text(st, i, v.texto().data(), static_cast<int>(v.texto().size()),
                                 SQLITE_TRANSIENT);
    case Valor::Tipo::Lista:
        break;
    }
    return SQLITE_MISMATCH;
}

// Next code point of UTF-8 text; a byte that starts no valid sequence
// counts as one character.
char32_t ProximoCaractere(std::string_view s, size_t& i) {
    const auto b = static_cast<unsigned char>(s[i]);
    int n = b < 0x80 ? 0 : (b >> 5) == 6 ? 1 : (b >> 4) == 14 ? 2 : (b >> 3) == 30 ? 3 : -1;
    if (n <= 0 || i + n >= s.size()) {
        ++i;
        return b;
    }
    char32_t c = b & (0x3F >> n);
    for (int k = 1; k <= n; ++k) {
        const auto d = static_cast<unsigned char>(s[i + k]);
        if ((d & 0xC0) != 0x80) {
            ++i;
            return b;
        }
        c = (c << 6) | (d & 0x3F);
    }
    i += n + 1;
    return c;
}

// LIKE's % and _ over characters, after both sides are upper-cased the way
// the component upper-cases (accented letters included).
bool Casa(std::string_view valor, std::string_view padrao, char32_t escape) {
    size_t v = 0, p = 0, vMarca = std::string_view::npos, pMarca = 0;
    while (v < valor.size()) {
        if (p < padrao.size()) {
            size_t pp = p;
            char32_t pc = ProximoCaractere(padrao, pp);
            if (pc == U'%' && pc != escape) {
                pMarca = p = pp;
                vMarca = v;
                continue;
            }
            bool literal = false;
            if (escape && pc == escape && pp < padrao.size()) {
                pc = ProximoCaractere(padrao, pp);
                literal = true;
            }
            size_t vv = v;
            const char32_t vc = ProximoCaractere(valor, vv);
            if ((!literal && pc == U'_') || pc == vc) {
                p = pp;
                v = vv;
                continue;
            }
        }
        if (vMarca == std::string_view::npos) return false;
        ProximoCaractere(valor, vMarca);
        v = vMarca;
        p = pMarca;
    }
    while (p < padrao.size()) {
        size_t pp = p;
        if (ProximoCaractere(padrao, pp) != U'%') return false;
        p = pp;
    }
    return true;
}

void FuncaoLike(sqlite3_context* ctx, int n, sqlite3_value** args) {
    const auto* padrao = sqlite3_value_text(args[0]);
    const auto* valor = sqlite3_value_text(args[1]);
    if (!padrao || !valor) return sqlite3_result_null(ctx);
    char32_t escape = 0;
    if (n == 3) {
        const auto* e = reinterpret_cast<const char*>(sqlite3_value_text(args[2]));
        if (e && *e) {
            size_t i = 0;
            escape = ProximoCaractere(e, i);
        }
    }
    const std::string p = Maiusculas(reinterpret_cast<const char*>(padrao));
    const std::string v = Maiusculas(reinterpret_cast<const char*>(valor));
    sqlite3_result_int(ctx, Casa(v, p, escape) ? 1 : 0);
}

bool ChaveDuplicada(int estendido) {
    return estendido == SQLITE_CONSTRAINT_PRIMARYKEY || estendido == SQLITE_CONSTRAINT_UNIQUE;
}

} // namespace

ConectorSqlite::~ConectorSqlite() { Desconecta(); }

bool ConectorSqlite::CriaArquivo(const std::string& caminho, std::string& msg) {
    PreparaSqlite();
    sqlite3* db = nullptr;
    int rc = sqlite3_open_v2(caminho.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    if (rc == SQLITE_OK) rc = sqlite3_exec(db, "PRAGMA journal_mode=WAL", nullptr, nullptr, nullptr);
    if (rc != SQLITE_OK) msg = db ? sqlite3_errmsg(db) : sqlite3_errstr(rc);
    sqlite3_close(db);
    return rc == SQLITE_OK;
}

bool ConectorSqlite::Conecta(const std::string&, const std::string& Banco, const std::string&,
                             const std::string&, std::string& msg) {
    if (Banco.empty()) {
        msg = "Arquivo do banco não informado";
        return false;
    }
    PreparaSqlite();
    int rc = sqlite3_open_v2(Banco.c_str(), &db_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    if (rc != SQLITE_OK) {
        msg = "Não foi possível abrir o banco " + Banco + ": " +
              (db_ ? sqlite3_errmsg(db_) : sqlite3_errstr(rc));
        Desconecta();
        return false;
    }
    sqlite3_extended_result_codes(db_, 1);
    sqlite3_busy_timeout(db_, EsperaOcupadoMs);
    // The suite's server compares LIKE without regard to case, accented letters included.
    for (int n : {2, 3})
        sqlite3_create_function(db_, "like", n, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, FuncaoLike, nullptr,
                                nullptr);
    std::string erro;
    if (Simples("PRAGMA journal_mode=WAL", erro) != status::Ok ||
        Simples("PRAGMA synchronous=FULL", erro) != status::Ok) {
        msg =
            "Não foi possível preparar o banco " + Banco + ": " + (erro.empty() ? sqlite3_errmsg(db_) : erro);
        Desconecta();
        return false;
    }
    // A file that is not a database fails only on first read: find out now.
    if (Simples("SELECT count(*) FROM sqlite_master", erro) != status::Ok) {
        msg = "Não foi possível abrir o banco " + Banco + ": " + erro;
        Desconecta();
        return false;
    }
    return true;
}

void ConectorSqlite::Desconecta() {
    if (db_) {
        // Handles are finalized by ConectorComum before; close_v2 copes with stragglers.
        sqlite3_close_v2(db_);
        db_ = nullptr;
    }
}

std::string ConectorSqlite::Falha(int rc, std::string& msg) {
    int estendido = db_ ? sqlite3_extended_errcode(db_) : rc;
    msg = db_ ? sqlite3_errmsg(db_) : sqlite3_errstr(rc);
    return ChaveDuplicada(estendido) ? status::ChaveExiste : status::Falha;
}

std::string ConectorSqlite::Simples(const char* sql, std::string& msg) {
    char* erro = nullptr;
    int rc = sqlite3_exec(db_, sql, nullptr, nullptr, &erro);
    if (rc == SQLITE_OK) return status::Ok;
    msg = erro ? erro : sqlite3_errstr(rc);
    sqlite3_free(erro);
    return status::Falha;
}

std::unique_ptr<ConectorComum::Comando> ConectorSqlite::Prepara(const std::string& texto, bool avulso,
                                                                std::string& msg) {
    auto c = std::make_unique<ComandoSqlite>();
    const std::string sql = TraduzDialeto(texto);
    int rc = sqlite3_prepare_v3(db_, sql.c_str(), static_cast<int>(sql.size()),
                                avulso ? 0 : SQLITE_PREPARE_PERSISTENT, &c->stmt, nullptr);
    if (rc != SQLITE_OK) {
        Falha(rc, msg);
        return nullptr;
    }
    if (!c->stmt) {
        msg = "Comando vazio";
        return nullptr;
    }
    return c;
}

std::string ConectorSqlite::Executa(Comando& comando, const Valor::Lista& valores, TabelaResultado& tabela,
                                    bool comColunas, std::string& msg) {
    sqlite3_stmt* st = static_cast<ComandoSqlite&>(comando).stmt;
    sqlite3_reset(st);
    sqlite3_clear_bindings(st);
    for (size_t i = 0; i < valores.size(); ++i) {
        int rc = Liga(st, static_cast<int>(i + 1), valores[i]);
        if (rc != SQLITE_OK) {
            msg = "Valor " + std::to_string(i) + " não pode ser enviado ao banco";
            return status::Falha;
        }
    }
    // The first change after COMMIT or ROLLBACK opens the unit of change; it
    // takes the write lock at once so that a later write cannot fail busy.
    if (!sqlite3_stmt_readonly(st) && sqlite3_get_autocommit(db_)) {
        if (Simples("BEGIN IMMEDIATE", msg) != status::Ok) return status::Falha;
    }
    const int ncol = sqlite3_column_count(st);
    if (comColunas) {
        tabela.colunas.clear();
        for (int i = 0; i < ncol; ++i)
            tabela.colunas.emplace_back(sqlite3_column_name(st, i));
    }
    tabela.linhas.Inicia(static_cast<size_t>(ncol));
    int rc;
    while ((rc = sqlite3_step(st)) == SQLITE_ROW)
        for (int i = 0; i < ncol; ++i)
            LeColuna(st, i, tabela.linhas);
    std::string r = rc == SQLITE_DONE ? status::Ok : Falha(rc, msg);
    sqlite3_reset(st);
    return r;
}

std::string ConectorSqlite::Confirma(std::string& msg) {
    if (sqlite3_get_autocommit(db_)) return status::Ok;
    return Simples("COMMIT", msg);
}

std::string ConectorSqlite::Desfaz(std::string& msg) {
    if (sqlite3_get_autocommit(db_)) return status::Ok;
    return Simples("ROLLBACK", msg);
}

// The file has one write lock: a unit that takes it before its reads makes
// every other writer wait (busy timeout) until its COMMIT or ROLLBACK.
std::string ConectorSqlite::AbreUnidadeTravada(const std::string&, std::string& msg) {
    if (!sqlite3_get_autocommit(db_)) return status::Ok;
    return Simples("BEGIN IMMEDIATE", msg);
}

} // namespace ztolvan
