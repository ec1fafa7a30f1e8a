// One generated sales item through the table-access modules (MTBMATEQ
// FSEL011, MTBMAT FSEL001, MTBVEN FSEL001, MTBREP FSEL017, the MTBPEVIT
// insert and a COMMIT) on the demo data, against the same statements run
// straight through sqlite3 and libpq in a tight loop.
#include <algorithm>
#include <libpq-fe.h>
#include <sqlite3.h>
#include <stdexcept>

#include "banco_bench.h"
#include "common/texto.h"
#include "data/comunica.h"
#include "data/despachante.h"
#include "data/modules/modulos.h"
#include "data/postgres/conector_postgres.h"
#include "data/schema/esquema.h"
#include "medida.h"

using namespace ztolvan;
using namespace ztolvan::bench;

namespace {

constexpr int Itens = 2000;
constexpr int Rodadas = 3;

// The four reads and the insert, exactly as the modules send them.
struct Comandos {
    std::string leituras[4] = {TextoDoComando("MTBMATEQ", "FSEL011"), TextoDoComando("MTBMAT", "FSEL001"),
                               TextoDoComando("MTBVEN", "FSEL001"), TextoDoComando("MTBREP", "FSEL017")};
    std::string insercao = TextoDoComando("MTBPEVIT", "FINS001");
};

// The equivalence codes of company 1, price type 1, as the seed wrote them.
std::vector<std::string> Equivalencias() {
    std::vector<std::string> r;
    Comunica& c = ComunicaAtual();
    c.Transacao = "OPEN";
    c.Cursor = 0;
    c.Dados = "SELECT CodEquiv FROM TBMATEQ WHERE Empresa = 1 AND Tipo = 1 ORDER BY CodEquiv";
    ExecutaComunica();
    const int16_t cur = c.Cursor;
    while (c.Status == "00") {
        r.push_back(TextoFixo(CStr(c.Retorno[0]), 20));
        c.Transacao = "NEXT";
        c.Cursor = cur;
        ExecutaComunica();
    }
    c.Transacao = "CLOSE";
    c.Cursor = cur;
    ExecutaComunica();
    if (r.empty()) throw std::runtime_error("sem equivalências: " + c.Msg);
    return r;
}

void Exige(const char* passo) {
    const Comunica& c = ComunicaAtual();
    if (c.Status != "00") throw std::runtime_error(std::string(passo) + ": " + c.Status + " " + c.Msg);
}

// The item as generation fills it from the records it has just read.
void PreencheItem(A_MTBPEVIT_t& it, int32_t numped, int32_t item) {
    const A_MTBMATEQ_t& eq = A_MTBMATEQ();
    it.Empresa = 1;
    it.NumPed = numped;
    it.Item = item;
    it.CodMat = eq.CodItem;
    it.CodMat2 = eq.CodEquiv;
    it.DscMat = eq.DscItem;
    it.UndMat = eq.UndItem;
    it.ValUnit = eq.Valor;
    it.QtdMat = 2;
    it.ClFisIPI = eq.ClasFiscal;
    it.PercIPI = eq.IPI;
    it.PercICMS = 18;
    it.SitTrib = eq.SitTrib;
    it.ComissVnd = A_MTBVEN().PERCOMIS;
    it.ComissRep = A_MTBREP().PERCOMIS;
    it.GrpMat = eq.GrpItem;
    it.ValTotal = eq.Valor * 2;
    it.NatOper = 5102;
    it.ValItem = eq.Valor;
    it.CCusto = A_MTBMAT().CCusto;
}

void Componente(const std::vector<std::string>& equivs, int32_t numped, int base) {
    for (int n = 0; n < Itens; ++n) {
        ChaveMTBMATEQ().Empresa = 1;
        ChaveMTBMATEQ().CodEquiv = equivs[static_cast<size_t>(n) % equivs.size()];
        ChaveMTBMATEQ().Tipo = 1;
        A_MTBMATEQ().Funcao = "FSEL011";
        A_MTBMATEQ().Transacao = "REQUERY";
        MTBMATEQ();
        Exige("MTBMATEQ");
        ChaveMTBMAT().Empresa = 1;
        ChaveMTBMAT().CodItem = A_MTBMATEQ().CodItem;
        A_MTBMAT().Funcao = "FSEL001";
        A_MTBMAT().Transacao = "REQUERY";
        MTBMAT();
        Exige("MTBMAT");
        ChaveMTBVEN().EMPRESA = 1;
        ChaveMTBVEN().CODVEND = 1;
        A_MTBVEN().Funcao = "FSEL001";
        A_MTBVEN().Transacao = "REQUERY";
        MTBVEN();
        Exige("MTBVEN");
        ChaveMTBREP().EMPRESA = 1;
        ChaveMTBREP().CODREPCOM = 10;
        A_MTBREP().Funcao = "FSEL017";
        A_MTBREP().Transacao = "REQUERY";
        MTBREP();
        Exige("MTBREP");
        A_MTBPEVIT_t& it = A_MTBPEVIT();
        PreencheItem(it, numped, base + n);
        it.Funcao = "FINS001";
        it.Transacao = "EXECUTE";
        MTBPEVIT();
        Exige("MTBPEVIT");
        it.Transacao = "COMMIT";
        MTBPEVIT();
        Exige("COMMIT");
    }
}

// The insert's values per equivalence, worked out once before the floor's
// loop, so that the floor only binds and runs.
std::vector<Valor::Lista> ValoresDeInsercao(const std::vector<std::string>& equivs) {
    std::vector<Valor::Lista> r;
    for (const auto& e : equivs) {
        ChaveMTBMATEQ().Empresa = 1;
        ChaveMTBMATEQ().CodEquiv = e;
        ChaveMTBMATEQ().Tipo = 1;
        A_MTBMATEQ().Funcao = "FSEL011";
        A_MTBMATEQ().Transacao = "REQUERY";
        MTBMATEQ();
        Exige("MTBMATEQ");
        A_MTBPEVIT_t it;
        PreencheItem(it, 0, 0);
        r.push_back(A_MTBPEVIT_t::Colunas().Valores(&it));
    }
    return r;
}

void Prepara(std::string& msg) {
    if (!CriaEsquema(msg) || !SemeiaDemo(msg)) throw std::runtime_error(msg);
}

void Liga(sqlite3_stmt* st, int i, const Valor& v) {
    if (v.tipo() == Valor::Tipo::Inteiro)
        sqlite3_bind_int64(st, i, v.inteiro());
    else if (v.tipo() == Valor::Tipo::Duplo)
        sqlite3_bind_double(st, i, v.duplo());
    else
        sqlite3_bind_text(st, i, v.texto().data(), static_cast<int>(v.texto().size()), SQLITE_STATIC);
}

void PisoSqlite(sqlite3* db, const Comandos& cmd, const std::vector<std::string>& equivs,
                const std::vector<Valor::Lista>& valores, int32_t numped, int base) {
    sqlite3_stmt* st[5];
    for (int i = 0; i < 4; ++i)
        sqlite3_prepare_v3(db, cmd.leituras[i].c_str(), -1, SQLITE_PREPARE_PERSISTENT, &st[i], nullptr);
    sqlite3_prepare_v3(db, cmd.insercao.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &st[4], nullptr);
    volatile size_t soma = 0;
    std::string codItem;
    for (int n = 0; n < Itens; ++n) {
        const size_t k = static_cast<size_t>(n) % equivs.size();
        auto le = [&](sqlite3_stmt* s) {
            if (sqlite3_step(s) != SQLITE_ROW) throw std::runtime_error(sqlite3_errmsg(db));
            for (int j = 0; j < sqlite3_column_count(s); ++j)
                soma = soma + sqlite3_column_bytes(s, j);
        };
        sqlite3_bind_int(st[0], 1, 1);
        sqlite3_bind_text(st[0], 2, equivs[k].data(), static_cast<int>(equivs[k].size()), SQLITE_STATIC);
        sqlite3_bind_int(st[0], 3, 1);
        le(st[0]);
        codItem.assign(reinterpret_cast<const char*>(sqlite3_column_text(st[0], 3)));
        sqlite3_reset(st[0]);
        sqlite3_bind_int(st[1], 1, 1);
        sqlite3_bind_text(st[1], 2, codItem.data(), static_cast<int>(codItem.size()), SQLITE_STATIC);
        le(st[1]);
        sqlite3_reset(st[1]);
        for (int i = 2; i < 4; ++i) {
            sqlite3_bind_int(st[i], 1, 1);
            sqlite3_bind_int(st[i], 2, i == 2 ? 1 : 10);
            le(st[i]);
            sqlite3_reset(st[i]);
        }
        ExecSqlite(db, "BEGIN IMMEDIATE");
        const Valor::Lista& v = valores[k];
        for (size_t i = 0; i < v.size(); ++i)
            Liga(st[4], static_cast<int>(i + 1), v[i]);
        sqlite3_bind_int(st[4], 2, numped);
        sqlite3_bind_int(st[4], 3, base + n);
        if (sqlite3_step(st[4]) != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(db));
        sqlite3_reset(st[4]);
        ExecSqlite(db, "COMMIT");
    }
    for (auto* s : st)
        sqlite3_finalize(s);
}

void CasoSqlite() {
    SqliteBench banco;
    if (!AbreComponente("ACCESS", banco.Arquivo())) throw std::runtime_error(ComunicaAtual().Msg);
    std::string msg;
    Prepara(msg);
    const Comandos cmd;
    const auto equivs = Equivalencias();
    const auto valores = ValoresDeInsercao(equivs);
    int base = 1;
    double comp = 0, piso = 0;
    // Alternate the two so that neither gets the quieter moment of the disk.
    for (int r = 0; r < Rodadas; ++r) {
        comp = std::max(comp, ItensPorSegundo(Itens, 1, [&] { Componente(equivs, 1000, base); }));
        piso = std::max(
            piso, ItensPorSegundo(Itens, 1, [&] { PisoSqlite(banco.db, cmd, equivs, valores, 2000, base); }));
        base += Itens;
    }
    FechaConexao();
    Imprime("modulos-sqlite", comp, piso);
}

std::string Numerado(const std::string& t) {
    int n = 0;
    return ConectorPostgres::Numera(t, n);
}

std::string ComoTexto(const Valor& v) {
    if (v.tipo() == Valor::Tipo::Inteiro) return std::to_string(v.inteiro());
    if (v.tipo() == Valor::Tipo::Duplo) {
        char b[40];
        std::snprintf(b, sizeof b, "%.17g", v.duplo());
        return b;
    }
    return v.texto();
}

void PisoPostgres(PGconn* c, const Comandos& cmd, const std::vector<std::string>& equivs,
                  const std::vector<Valor::Lista>& valores, int32_t numped, int base) {
    static bool preparado = false;
    if (!preparado) {
        for (int i = 0; i < 4; ++i)
            PQclear(PQprepare(c, ("m" + std::to_string(i)).c_str(), Numerado(cmd.leituras[i]).c_str(), 0,
                              nullptr));
        PQclear(PQprepare(c, "mins", Numerado(cmd.insercao).c_str(), 0, nullptr));
        preparado = true;
    }
    std::vector<std::vector<std::string>> textos;
    for (const auto& v : valores) {
        textos.emplace_back();
        for (const auto& x : v)
            textos.back().push_back(ComoTexto(x));
    }
    volatile size_t soma = 0;
    const std::string pedido = std::to_string(numped);
    for (int n = 0; n < Itens; ++n) {
        const size_t k = static_cast<size_t>(n) % equivs.size();
        auto le = [&](const char* nome, int np, const char* const* p) {
            PGresult* r = PQexecPrepared(c, nome, np, p, nullptr, nullptr, 0);
            if (PQntuples(r) < 1)
                throw std::runtime_error(std::string(nome) + ": " + PQresultErrorMessage(r));
            for (int j = 0; j < PQnfields(r); ++j)
                soma = soma + static_cast<size_t>(PQgetlength(r, 0, j));
            return r;
        };
        const char* p0[3] = {"1", equivs[k].c_str(), "1"};
        PGresult* r0 = le("m0", 3, p0);
        const std::string codItem = PQgetvalue(r0, 0, 3);
        PQclear(r0);
        const char* p1[2] = {"1", codItem.c_str()};
        PQclear(le("m1", 2, p1));
        const char* p2[2] = {"1", "1"};
        PQclear(le("m2", 2, p2));
        const char* p3[2] = {"1", "10"};
        PQclear(le("m3", 2, p3));
        ExecPg(c, "BEGIN");
        const std::string item = std::to_string(base + n);
        std::vector<const char*> v;
        for (const auto& t : textos[k])
            v.push_back(t.c_str());
        v[1] = pedido.c_str();
        v[2] = item.c_str();
        PGresult* r = PQexecPrepared(c, "mins", static_cast<int>(v.size()), v.data(), nullptr, nullptr, 0);
        if (PQresultStatus(r) != PGRES_COMMAND_OK) throw std::runtime_error(PQresultErrorMessage(r));
        PQclear(r);
        ExecPg(c, "COMMIT");
    }
}

void CasoPostgres() {
    PgBench banco("zt_bench_mod_");
    if (!banco.Pronto()) {
        std::printf("modulos-postgres: skipped (ZTOLVAN_PG_SERVIDOR not set)\n");
        return;
    }
    if (!banco.AbreComponente()) throw std::runtime_error(ComunicaAtual().Msg);
    std::string msg;
    Prepara(msg);
    const Comandos cmd;
    const auto equivs = Equivalencias();
    const auto valores = ValoresDeInsercao(equivs);
    int base = 1;
    double comp = 0, piso = 0;
    for (int r = 0; r < Rodadas; ++r) {
        comp = std::max(comp, ItensPorSegundo(Itens, 1, [&] { Componente(equivs, 1000, base); }));
        piso = std::max(piso, ItensPorSegundo(Itens, 1, [&] {
                            PisoPostgres(banco.c, cmd, equivs, valores, 2000, base);
                        }));
        base += Itens;
    }
    FechaConexao();
    Imprime("modulos-postgres", comp, piso);
}

} // namespace

int main() { return Principal(CasoSqlite, CasoPostgres); }
