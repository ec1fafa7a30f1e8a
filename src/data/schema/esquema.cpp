#include "data/schema/esquema.h"

#include "data/seguranca/seguranca_banco.h"

#include "common/conversao.h"
#include "data/comunica.h"
#include "data/despachante.h"
#include "data/modules/registros.h"
#include "data/schema/executa_texto.h"

namespace ztolvan {
namespace {

struct ColunaAvulsa {
    const char* nome;
    TipoCampo tipo;
};

// A table: the columns of its record (when it has one) after any columns
// of its own, and its primary key.
struct Tabela {
    const char* nome;
    const TabelaColunas& (*registro)();
    std::vector<ColunaAvulsa> proprias;
    std::vector<const char*> chave;
};

const std::vector<Tabela>& Tabelas() {
    using T = TipoCampo;
    static const std::vector<Tabela> t{
        {"TBPAR", &A_MTBPAR_t::Colunas, {}, {"Empresa"}},
        {"TBPNF", &A_MTBPNF_t::Colunas, {}, {"EMPRESA", "CODIGO"}},
        {"TBDOC", &A_MTBDOC_t::Colunas, {}, {"Empresa", "Seq"}},
        {"TBDOCIT", &A_MTBDOCIT_t::Colunas, {}, {"Empresa", "Seq", "Item"}},
        {"TBICM", &A_MTBICM_t::Colunas, {}, {"EMPRESA", "CODIGO"}},
        {"TBICMUF", &A_MTBICMUF_t::Colunas, {}, {"EMPRESA", "CODIGO", "UF"}},
        {"TBVEN", &A_MTBVEN_t::Colunas, {}, {"EMPRESA", "CODVEND"}},
        // The record keeps no company; the statements select by it.
        {"TBREP", &A_MTBREP_t::Colunas, {{"EMPRESA", T::Int16}}, {"EMPRESA", "CODREPCOM"}},
        {"TBMAT", &A_MTBMAT_t::Colunas, {}, {"Empresa", "CodItem"}},
        {"TBMATEQ", &A_MTBMATEQ_t::Colunas, {}, {"Empresa", "Tipo", "CodEquiv"}},
        {"TBMATAG", &A_MTBMATAG_t::Colunas, {}, {"Empresa", "Codigo", "Item"}},
        {"TBPEV", &A_MTBPEV_t::Colunas, {}, {"Empresa", "NumPed"}},
        {"TBPEVIT", &A_MTBPEVIT_t::Colunas, {}, {"Empresa", "NumPed", "Item"}},
        {"TBPEVDC", &A_MTBPEVDC_t::Colunas, {}, {"EMPRESA", "NUMPED", "ITEM"}},
        // Purchase orders of the same number for different suppliers number
        // their items apart, so the supplier is part of both keys.
        {"TBPEC", &A_MTBPEC_t::Colunas, {}, {"Empresa", "NumPed", "CodFor"}},
        {"TBPECIT", &A_MTBPECIT_t::Colunas, {}, {"Empresa", "NumPed", "CodFor", "Item"}},
        {"TBCUS", &A_MTBCUS_t::Colunas, {}, {"Empresa", "CodMat", "CodFor"}},
        {"TBFOR", &A_MTBFOR_t::Colunas, {}, {"EMPRESA", "CODFORN"}},
        {"TBMATTP", nullptr, {{"TIPO", T::Int16}, {"DESCRICAO", T::Texto}}, {"TIPO"}},
        {"TBREGSRV",
         nullptr,
         {{"usuario", T::Texto},
          {"chave", T::Texto},
          {"valor", T::Texto},
          {"dtinc", T::Texto},
          {"hrinc", T::Texto},
          {"dtatu", T::Texto},
          {"hratu", T::Texto},
          {"usuarioatu", T::Texto},
          {"usuarioinc", T::Texto}},
         {"usuario", "chave"}},
    };
    return t;
}

// Grouping items by company, code and item, equivalences by company, type
// and code come from the primary keys; these serve the joins by product
// and by equivalence code without the type, and the consultation's listing
// and name search: every column they read, grouped columns first (the
// status last, since the listing fixes it), so a listing reads the index
// alone with no sort.
const char* const Indices[] = {
    "CREATE INDEX IF NOT EXISTS IX_TBMATEQ_CODEQUIV ON TBMATEQ (Empresa, CodEquiv)",
    "CREATE INDEX IF NOT EXISTS IX_TBMATEQ_CODITEM ON TBMATEQ (Empresa, CodItem)",
    "CREATE INDEX IF NOT EXISTS IX_TBMATAG_CODITEM ON TBMATAG (Empresa, CodItem)",
    "CREATE INDEX IF NOT EXISTS IX_TBMATAG_LISTA ON TBMATAG (Empresa, Codigo, DscItem, CodItem, Nome, StTr, "
    "CodEquiv)",
};

// A column's type. The file database's tables are STRICT, and its integer
// columns are held to their width, so that both databases refuse the same
// values when they are written ('abc' or 40000 in a 16-bit column).
std::string TipoSql(std::string_view nome, TipoCampo t, Dialeto d) {
    const bool sqlite = d == Dialeto::Sqlite;
    const std::string coluna(nome);
    switch (t) {
    case TipoCampo::Int16:
        return sqlite ? "INTEGER DEFAULT 0 CHECK (" + coluna + " BETWEEN -32768 AND 32767)" : "SMALLINT DEFAULT 0";
    case TipoCampo::Int32:
        return sqlite ? "INTEGER DEFAULT 0 CHECK (" + coluna + " BETWEEN -2147483648 AND 2147483647)"
                      : "INTEGER DEFAULT 0";
    case TipoCampo::Duplo:
        return sqlite ? "REAL DEFAULT 0" : "DOUBLE PRECISION DEFAULT 0";
    case TipoCampo::Texto:
        break;
    }
    // Widths are the records' business: the database keeps what it is given
    // and a longer text is cut when a record reads it.
    return sqlite ? "TEXT COLLATE RTRIM DEFAULT ''" : "BPCHAR DEFAULT ''";
}

std::string CreateTable(const Tabela& t, Dialeto d, const std::string& nome) {
    std::string s = "CREATE TABLE IF NOT EXISTS " + nome + " (";
    bool primeira = true;
    auto poe = [&](std::string_view coluna, TipoCampo tipo) {
        if (!primeira) s += ", ";
        primeira = false;
        s += coluna;
        s += " " + TipoSql(coluna, tipo, d);
        for (const char* k : t.chave)
            if (IguaisSemCaixa(k, coluna)) s += " NOT NULL";
    };
    for (const auto& c : t.proprias)
        poe(c.nome, c.tipo);
    if (t.registro)
        for (const auto& c : t.registro().colunas)
            poe(c.nome, c.tipo);
    s += ", PRIMARY KEY (";
    for (size_t i = 0; i < t.chave.size(); ++i)
        s += (i ? ", " : "") + std::string(t.chave[i]);
    return s + "))" + (d == Dialeto::Sqlite ? " STRICT" : "");
}

std::string CreateTable(const Tabela& t, Dialeto d) { return CreateTable(t, d, t.nome); }

// Rows of a statement over the thread's connection; false with msg.
bool Linhas(const std::string& sql, TabelaResultado& r, std::string& msg) {
    std::string st;
    ConectorAtual()->Consulta(ComunicaAtual().Conexao, sql, r, st, msg);
    return st == status::Ok || st == status::SemLinha;
}

// A file made before its tables were STRICT gets them rebuilt, rows and all,
// inside the caller's unit. A row the new table refuses is never dropped:
// every such row is listed in msg and nothing is changed.
bool TornaEstritas(std::string& msg) {
    std::vector<std::string> recusadas;
    for (const Tabela& t : Tabelas()) {
        TabelaResultado r;
        if (!Linhas(std::string("SELECT strict FROM pragma_table_list WHERE name = '") + t.nome + "' COLLATE NOCASE",
                    r, msg))
            return false;
        if (r.linhas.empty() || CInt(r.linhas[0][0]) != 0) continue;
        const std::string nova = std::string(t.nome) + "_ESTRITA";
        if (!ExecutaTexto(CreateTable(t, Dialeto::Sqlite, nova), msg)) return false;
        std::string colunas;
        for (const auto& c : t.proprias)
            colunas += (colunas.empty() ? "" : ", ") + std::string(c.nome);
        if (t.registro)
            for (const auto& c : t.registro().colunas)
                colunas += (colunas.empty() ? "" : ", ") + std::string(c.nome);
        const std::string copia = "INSERT INTO " + nova + " (" + colunas + ") SELECT " + colunas + " FROM " + t.nome;
        std::string erro;
        if (!ExecutaTexto(copia, erro)) {
            // Which rows: each one alone, to name them all.
            TabelaResultado ids;
            if (!Linhas(std::string("SELECT rowid FROM ") + t.nome + " ORDER BY rowid", ids, msg)) return false;
            for (size_t l = 0; l < ids.linhas.size(); ++l) {
                const std::string id = CStr(ids.linhas[l][0]);
                if (!ExecutaTexto(copia + " WHERE rowid = " + id, erro))
                    recusadas.push_back(std::string(t.nome) + " linha " + id + ": " + ComunicaAtual().Msg);
            }
        }
        if (!ExecutaTexto("DROP TABLE " + std::string(t.nome), msg) ||
            !ExecutaTexto("ALTER TABLE " + nova + " RENAME TO " + t.nome, msg))
            return false;
    }
    if (recusadas.empty()) return true;
    msg = "Linhas que o novo esquema recusa (nada foi alterado; corrija-as e rode de novo):";
    for (const auto& r : recusadas)
        msg += "\n  " + r;
    ComunicaAtual().Status = status::Falha;
    ComunicaAtual().Msg = msg;
    return false;
}

// ISNULL(a, b) as the suite's server has it: the type of a, b when a is
// NULL. One overload per numeric type with the same type and with a text
// (ISNULL(int_column, '') gives 0: the leading number of the text), and one
// for texts, which bpchar columns reach by their implicit cast.
std::vector<std::string> FuncoesPostgres() {
    std::vector<std::string> f;
    f.push_back("CREATE OR REPLACE FUNCTION ISNULL(a text, b text) RETURNS text LANGUAGE sql IMMUTABLE AS "
                "'SELECT COALESCE(a, b)'");
    for (const char* t : {"smallint", "integer", "bigint", "real", "double precision", "numeric"}) {
        const std::string tipo = t;
        f.push_back("CREATE OR REPLACE FUNCTION ISNULL(a " + tipo + ", b " + tipo + ") RETURNS " + tipo +
                    " LANGUAGE sql IMMUTABLE AS 'SELECT COALESCE(a, b)'");
        f.push_back("CREATE OR REPLACE FUNCTION ISNULL(a " + tipo + ", b text) RETURNS " + tipo +
                    " LANGUAGE sql IMMUTABLE AS 'SELECT COALESCE(a, COALESCE(substring(b from "
                    "''^\\s*([-+]{0,1}[0-9]+(\\.[0-9]+){0,1})''), ''0'')::numeric::" +
                    tipo + ")'");
    }
    return f;
}

std::vector<std::string> Monta(Dialeto d) {
    std::vector<std::string> v;
    for (const Tabela& t : Tabelas())
        v.push_back(CreateTable(t, d));
    for (const char* i : Indices)
        v.push_back(i);
    if (d == Dialeto::Postgres)
        for (auto& f : FuncoesPostgres())
            v.push_back(std::move(f));
    for (auto& s : DdlSeguranca(d == Dialeto::Postgres))
        v.push_back(std::move(s));
    return v;
}

} // namespace

const std::vector<std::string>& TextosEsquema(Dialeto d) {
    static const std::vector<std::string> sqlite = Monta(Dialeto::Sqlite),
                                          postgres = Monta(Dialeto::Postgres);
    return d == Dialeto::Sqlite ? sqlite : postgres;
}

bool CriaEsquema(std::string& msg) {
    Dialeto d;
    if (!DialetoAtual(d, msg)) return false;
    if (d == Dialeto::Sqlite && !TornaEstritas(msg)) return Desfaz();
    for (const std::string& s : TextosEsquema(d))
        if (!ExecutaTexto(s, msg)) return Desfaz();
    return Confirma(msg);
}

} // namespace ztolvan
