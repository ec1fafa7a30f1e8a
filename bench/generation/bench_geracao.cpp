// Generation of 1,000 marked items into a sales order (origin V) and a store
// document (origin D, a type that reserves stock) through the real generate
// command, messages silent, against the same statements stepped straight
// through sqlite3 and libpq in a tight loop; then the memory generation takes
// on top of what the process holds, for 1,000 and 10,000 items.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <libpq-fe.h>
#include <sqlite3.h>
#include <sstream>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "banco_bench.h"
#include "common/portas.h"
#include "common/texto.h"
#include "data/comunica.h"
#include "data/config_banco.h"
#include "data/despachante.h"
#include "data/modules/modulos.h"
#include "data/postgres/conector_postgres.h"
#include "data/schema/esquema.h"
#include "entry/sessao.h"
#include "generation/geracao.h"
#include "medida.h"
#include "rele_latencia.h"
#include "screens/auxiliary/tolvanf05.h"
#include "screens/consultation/tolvanf01.h"
#include "screens/janelas.h"
#include "ztolvan/consultalista.h"

using namespace ztolvan;
using namespace ztolvan::bench;

namespace {

constexpr int Itens = 1000;
constexpr int ItensGrande = 10000;
constexpr int Rodadas = 2;

struct Caso {
    const char* origem;
    int16_t tpmov;
    Valor dados;
    const char* tabela; // the item table
    const char* colDoc; // its document column
    int32_t docPiso;    // the floor writes into another document
};

const Caso Casos[] = {
    {"V", 0, Valor::Lista{5102, "1", 0, "SP", "SP", "SP", "SP"}, "TBPEVIT", "NumPed", 2000},
    {"D", 2, Valor::Lista{5102, "1", 0, "SP", "SP", "SP", "SP"}, "TBDOCIT", "Seq", 2000},
};

// Groupings of 1,000 and 10,000 items (distinct quantities over the demo
// products), stock that never runs out, cascade discounts and stock
// reservation on for the benchmark's operator, every product available.
void Semeia(const std::function<void(const std::string&)>& exec) {
    exec("UPDATE TBMAT SET QtdItAtu = 1000000000 WHERE Empresa = 1");
    exec("UPDATE TBMATEQ SET Dispon = '0' WHERE Empresa = 1");
    for (auto [codigo, n] : {std::pair{"CARGA", Itens}, std::pair{"CARGA10K", ItensGrande}}) {
        for (int ini = 0; ini < n; ini += 500) {
            std::ostringstream sql;
            sql << "INSERT INTO TBMATAG (Empresa, Codigo, Nome, Item, CodItem, DscItem, CodEquiv, Qtd, "
                   "UndItem, "
                   "QtdUnd, Valor, STTR, Tipo) VALUES ";
            for (int i = ini; i < std::min(n, ini + 500); ++i) {
                const std::string p = std::to_string(1001 + i % 63);
                sql << (i > ini ? ", " : "") << "(1, '" << codigo << "', 'Carga', " << i + 1 << ", '" << p
                    << "', 'x', '7891234" << p << "00', " << i + 1 << ", 'UN', 1, 1, 0, 1)";
            }
            exec(sql.str());
        }
    }
    exec("INSERT INTO TBREGSRV (usuario, chave, valor) VALUES ('BENCH', 'DESCONTO CASCATA', 'SIM'), "
         "('BENCH', 'BLOQUEIA ITENS', 'SIM')");
    // Empty documents for the memory runs.
    for (int doc : {3, 4}) {
        const std::string d = std::to_string(doc);
        exec("INSERT INTO TBPEV (Empresa, NumPed, UF, CodVendedor, CodRep, NatOper) VALUES (1, " + d +
             ", 'SP', 1, 10, 5102)");
        exec("INSERT INTO TBDOC (Empresa, Seq, UF, Vendedor, CodRep, NatOper) VALUES (1, " + d +
             ", 'SP', 1, 10, 5102)");
    }
}

void Copia(const Grade& de, Grade& para) {
    para.DefineCols(de.Cols());
    para.DefineRows(0);
    for (int r = 0; r < de.Rows(); ++r) {
        std::string l;
        for (int c = 0; c < de.Cols(); ++c)
            l += (c ? "\t" : "") + de.TextMatrix(r, c);
        para.AddItem(l);
    }
    para.DefineRow(1);
}

// The consultation screen's load of a grouping, kept as generation's input.
struct Entrada {
    Grade itens, agrupamentos;
    std::string nome;
    void Carrega(const std::string& grupo) {
        TolvanF01 f;
        f.Carrega();
        f.cboPesquisa.Seleciona(1);
        f.txtPesquisa.Digita(grupo);
        f.bttPesquisa_Click();
        f.sbMarcarTodosDaTela();
        Copia(f.GCon1, itens);
        Copia(f.MSFGAgrupamento, agrupamentos);
        nome = f.LNome.Caption;
    }
};

// ZProcessa's context for the case, without a screen.
void PreencheSessao(consultalista& comp, const Caso& k) {
    int16_t empresa = 1, opcao = 0, ret = 0, zs = 0, tp = k.tpmov;
    int32_t cod = 0, doc = 1;
    std::string op = "BENCH", senha, origem = k.origem, mens;
    Valor dados = k.dados;
    comp.ZProcessa(empresa, op, senha, opcao, cod, origem, doc, tp, ret, zs, mens, &dados);
}

// One generation of every row through the generate command.
void Gera(JanelasModelo& janelas, Entrada& e, size_t esperados) {
    janelas.AoMostrar("TolvanF05", [](Tela& t) {
        auto& d = static_cast<TolvanF05&>(t);
        d.TxQtdGera.Digita("1");
        d.bok_Click();
    });
    TelaGeracao tela{e.itens, e.agrupamentos, e.nome, {}};
    sbGerarDocumento(tela);
    if (ItensGerados().size() != esperados)
        throw std::runtime_error("geração escreveu " + std::to_string(ItensGerados().size()) + " itens");
}

long Kib(const char* campo) {
    std::ifstream f("/proc/self/status");
    std::string l;
    while (std::getline(f, l))
        if (l.rfind(campo, 0) == 0) return std::stol(l.substr(std::string(campo).size()));
    return 0;
}

// The memory a generation of n items takes, in a process of its own that
// opens its connection and loads the grouping first: its resident peak over
// what it held just before generating, and that peak. Each size writes into
// an empty document of its own, so that the last-item read, which the
// connectors buffer whole, weighs the same. The parent holds no component
// connection while the child runs.
std::pair<long, long> Memoria(const ConfigBanco& config, JanelasModelo& janelas, const std::string& grupo,
                              size_t n, int32_t documento) {
    FechaConexao();
    int p[2];
    if (pipe(p) != 0) throw std::runtime_error("pipe");
    const pid_t pid = fork();
    if (pid == 0) {
        close(p[0]);
        long r[2] = {-1, -1};
        try {
            if (AbreComponente(config.Servidor, config.Banco, config.USUARIO, config.Senha)) {
                ZeraCursoresModulos();
                SessaoAtual().NumDoc = documento;
                Entrada e;
                e.Carrega(grupo);
                std::ofstream("/proc/self/clear_refs") << "5";
                const long antes = Kib("VmRSS:");
                Gera(janelas, e, n);
                r[1] = Kib("VmHWM:");
                r[0] = r[1] - antes;
            }
        } catch (...) {
        }
        _exit(write(p[1], r, sizeof r) == sizeof r ? 0 : 1);
    }
    close(p[1]);
    long r[2] = {-1, -1};
    const bool lido = read(p[0], r, sizeof r) == sizeof r;
    close(p[0]);
    waitpid(pid, nullptr, 0);
    if (!lido || r[0] < 0) throw std::runtime_error("medida de memória falhou");
    if (!AbreComponente(config.Servidor, config.Banco, config.USUARIO, config.Senha))
        throw std::runtime_error(ComunicaAtual().Msg);
    ZeraCursoresModulos();
    return {r[0], r[1]};
}

// Where the floor's values come from: what the component wrote, per item.
struct Colunas {
    int perComis = -1, qtdItBloq = -1;
    Colunas() {
        const auto& cols = A_MTBMAT_t::Colunas().colunas;
        for (size_t i = 0; i < cols.size(); ++i) {
            if (cols[i].nome == "PerComis") perComis = static_cast<int>(i);
            if (cols[i].nome == "QtdItBloq") qtdItBloq = static_cast<int>(i);
        }
    }
};

std::string Lista(const Caso& k) {
    return k.origem == std::string("V") ? A_MTBPEVIT_t::Colunas().Lista() : A_MTBDOCIT_t::Colunas().Lista();
}

// The statements the component sends per item, in its order.
struct Comandos {
    std::string produto, estoque, vendedor, representante, item, desconto, bloqueio;
    explicit Comandos(const Caso& k)
        : produto(k.origem == std::string("V") ? TextoDoComando("MTBMATEQ", "FSEL011")
                                               : TextoDoComando("MTBMAT", "FSEL063")),
          estoque(TextoDoComando("MTBMAT", "FSEL001")), vendedor(TextoDoComando("MTBVEN", "FSEL001")),
          representante(TextoDoComando("MTBREP", "FSEL017")),
          item(TextoDoComando(k.origem == std::string("V") ? "MTBPEVIT" : "MTBDOCIT", "FINS001")),
          desconto(TextoDoComando("MTBPEVDC", "FINS001")), bloqueio(TextoDoComando("MTBMAT", "FUPD009")) {}
};

// ---------------------------------------------------------------- SQLite

struct Sq {
    sqlite3* db;
    sqlite3_stmt* s = nullptr;
    Sq(sqlite3* d, const std::string& t) : db(d) {
        if (sqlite3_prepare_v3(db, t.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &s, nullptr) != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(db));
    }
    ~Sq() { sqlite3_finalize(s); }
    void Texto(int i, const std::string& v) {
        sqlite3_bind_text(s, i, v.data(), int(v.size()), SQLITE_STATIC);
    }
    bool Linha() {
        const int rc = sqlite3_step(s);
        if (rc != SQLITE_ROW && rc != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(db));
        return rc == SQLITE_ROW;
    }
    void Fim() {
        sqlite3_reset(s);
        sqlite3_clear_bindings(s);
    }
};

// The component's rows, each value as SQLite holds it.
struct ValoresSq {
    std::vector<std::vector<sqlite3_value*>> linhas;
    ValoresSq(sqlite3* db, const Caso& k) {
        Sq q(db, "SELECT " + Lista(k) + " FROM " + k.tabela + " T1 WHERE T1.Empresa = 1 AND T1." + k.colDoc +
                     " = 1 ORDER BY T1.Item");
        while (q.Linha() && static_cast<int>(linhas.size()) < Itens) {
            linhas.emplace_back();
            for (int j = 0; j < sqlite3_column_count(q.s); ++j)
                linhas.back().push_back(sqlite3_value_dup(sqlite3_column_value(q.s, j)));
        }
    }
    ValoresSq(const ValoresSq&) = delete;
    ValoresSq(ValoresSq&& o) noexcept : linhas(std::move(o.linhas)) {}
    ~ValoresSq() {
        for (auto& l : linhas)
            for (sqlite3_value* v : l)
                sqlite3_value_free(v);
    }
};

void PisoSqlite(sqlite3* db, const Caso& k, const Entrada& e, const ValoresSq& valores, int base) {
    const auto& v = valores.linhas;
    const Comandos cmd(k);
    const Colunas col;
    const bool venda = k.origem == std::string("V");
    Sq produto(db, cmd.produto), estoque(db, cmd.estoque), vend(db, cmd.vendedor), rep(db, cmd.representante),
        item(db, cmd.item), desc(db, cmd.desconto), bloq(db, cmd.bloqueio);
    volatile size_t soma = 0;
    auto le = [&](Sq& s) {
        if (!s.Linha()) throw std::runtime_error("sem linha");
        for (int j = 0; j < sqlite3_column_count(s.s); ++j)
            soma = soma + sqlite3_column_bytes(s.s, j);
    };
    for (int n = 0; n < Itens; ++n) {
        const std::string& equiv = e.itens.TextMatrix(n + 1, 8);
        const std::string& prod = e.itens.TextMatrix(n + 1, 9);
        const int32_t numero = base + 10 * n;
        sqlite3_bind_int(produto.s, 1, 1);
        produto.Texto(2, equiv);
        sqlite3_bind_int(produto.s, 3, 1);
        le(produto);
        produto.Fim();
        sqlite3_bind_int(estoque.s, 1, 1);
        estoque.Texto(2, prod);
        le(estoque);
        const double perComis = sqlite3_column_double(estoque.s, col.perComis);
        estoque.Fim();
        if (perComis <= 0) {
            for (Sq* s : {&vend, &rep}) {
                sqlite3_bind_int(s->s, 1, 1);
                sqlite3_bind_int(s->s, 2, s == &vend ? 1 : 10);
                le(*s);
                s->Fim();
            }
        }
        ExecSqlite(db, "BEGIN IMMEDIATE");
        const auto& linha = v[static_cast<size_t>(n) % v.size()];
        for (size_t j = 0; j < linha.size(); ++j)
            sqlite3_bind_value(item.s, int(j + 1), linha[j]);
        sqlite3_bind_int(item.s, 2, k.docPiso);
        sqlite3_bind_int(item.s, venda ? 3 : 5, numero);
        item.Linha();
        item.Fim();
        if (venda) {
            sqlite3_bind_int(desc.s, 1, 1);
            sqlite3_bind_int(desc.s, 2, k.docPiso);
            sqlite3_bind_int(desc.s, 3, numero);
            for (int j = 4; j <= 8; ++j)
                sqlite3_bind_double(desc.s, j, 0);
            desc.Linha();
            desc.Fim();
        }
        ExecSqlite(db, "COMMIT");
        if (!venda) {
            // The block's read and write under the write lock, as the
            // component does, so that no other terminal's block is lost.
            ExecSqlite(db, "BEGIN IMMEDIATE");
            sqlite3_bind_int(estoque.s, 1, 1);
            estoque.Texto(2, prod);
            le(estoque);
            const double bloqueado = sqlite3_column_double(estoque.s, col.qtdItBloq) + 1;
            estoque.Fim();
            sqlite3_bind_double(bloq.s, 1, bloqueado);
            sqlite3_bind_int(bloq.s, 2, 1);
            bloq.Texto(3, prod);
            bloq.Linha();
            bloq.Fim();
            ExecSqlite(db, "COMMIT");
        }
    }
}

// ---------------------------------------------------------------- PostgreSQL

struct Pq {
    PGconn* c;
    std::string nome;
    Pq(PGconn* conn, const std::string& n, const std::string& t) : c(conn), nome(n) {
        int k = 0;
        PGresult* r = PQprepare(c, nome.c_str(), ConectorPostgres::Numera(t, k).c_str(), 0, nullptr);
        const bool ok = PQresultStatus(r) == PGRES_COMMAND_OK;
        const std::string m = PQresultErrorMessage(r);
        PQclear(r);
        if (!ok) throw std::runtime_error(m);
    }
    ~Pq() { PQclear(PQexec(c, ("DEALLOCATE " + nome).c_str())); }
    // Runs with text values; the first row's text of column 'col' (or "").
    std::string Roda(const std::vector<const char*>& v, int col = -1) {
        PGresult* r = PQexecPrepared(c, nome.c_str(), int(v.size()), v.data(), nullptr, nullptr, 0);
        const auto st = PQresultStatus(r);
        if (st != PGRES_TUPLES_OK && st != PGRES_COMMAND_OK) {
            const std::string m = PQresultErrorMessage(r);
            PQclear(r);
            throw std::runtime_error(nome + ": " + m);
        }
        if (st == PGRES_TUPLES_OK && PQntuples(r) < 1) throw std::runtime_error(nome + ": sem linha");
        std::string valor = col >= 0 ? PQgetvalue(r, 0, col) : "";
        PQclear(r);
        return valor;
    }
};

std::vector<std::vector<std::string>> ValoresPg(PGconn* c, const Caso& k) {
    const std::string sql = "SELECT " + Lista(k) + " FROM " + k.tabela + " T1 WHERE T1.Empresa = 1 AND T1." +
                            k.colDoc + " = 1 ORDER BY T1.Item LIMIT " + std::to_string(Itens);
    PGresult* r = PQexec(c, sql.c_str());
    std::vector<std::vector<std::string>> v;
    for (int i = 0; i < PQntuples(r); ++i) {
        v.emplace_back();
        for (int j = 0; j < PQnfields(r); ++j)
            v.back().push_back(PQgetvalue(r, i, j));
    }
    PQclear(r);
    if (v.empty()) throw std::runtime_error("sem itens para o piso");
    return v;
}

void PisoPostgres(PGconn* c, const Caso& k, const Entrada& e, const std::vector<std::vector<std::string>>& v,
                  int base) {
    const Comandos cmd(k);
    const Colunas col;
    const bool venda = k.origem == std::string("V");
    Pq produto(c, "p_prod", cmd.produto), estoque(c, "p_est", cmd.estoque), vend(c, "p_ven", cmd.vendedor),
        rep(c, "p_rep", cmd.representante), item(c, "p_item", cmd.item), desc(c, "p_desc", cmd.desconto),
        bloq(c, "p_bloq", cmd.bloqueio);
    const std::string doc = std::to_string(k.docPiso), zero = "0";
    for (int n = 0; n < Itens; ++n) {
        const std::string& equiv = e.itens.TextMatrix(n + 1, 8);
        const std::string& prod = e.itens.TextMatrix(n + 1, 9);
        const std::string numero = std::to_string(base + 10 * n);
        produto.Roda({"1", equiv.c_str(), "1"});
        const double perComis = std::stod(estoque.Roda({"1", prod.c_str()}, col.perComis));
        if (perComis <= 0) {
            vend.Roda({"1", "1"});
            rep.Roda({"1", "10"});
        }
        ExecPg(c, "BEGIN");
        std::vector<const char*> valores;
        for (const std::string& x : v[static_cast<size_t>(n) % v.size()])
            valores.push_back(x.c_str());
        valores[1] = doc.c_str();
        valores[venda ? 2 : 4] = numero.c_str();
        item.Roda(valores);
        if (venda) desc.Roda({"1", doc.c_str(), numero.c_str(), "0", "0", "0", "0", "0"});
        ExecPg(c, "COMMIT");
        if (!venda) {
            // The block's read and write in one unit under the product's
            // advisory lock, as the component does.
            ExecPg(c, ("BEGIN; SELECT pg_advisory_xact_lock(hashtextextended('TBMAT 1 " + prod + "', 0))").c_str());
            const std::string bloqueado =
                std::to_string(std::stod(estoque.Roda({"1", prod.c_str()}, col.qtdItBloq)) + 1);
            bloq.Roda({bloqueado.c_str(), "1", prod.c_str()});
            ExecPg(c, "COMMIT");
        }
    }
}

// ---------------------------------------------------------------- cases

// The sales-order generation again, component and floor both through a relay
// that holds every packet 0.5 ms each way: a store network's 1 ms round trip.
void ComLatencia(const ConfigBanco& config, JanelasModelo& janelas, Entrada& e,
                 const std::function<void(PGconn*)>& piso) {
    Pg pg;
    const auto dois = pg.servidor.rfind(':');
    ReleLatencia rele(pg.servidor.substr(0, dois), std::stoi(pg.servidor.substr(dois + 1)),
                      std::chrono::microseconds(500));
    const std::string porRele = "127.0.0.1:" + std::to_string(rele.Porta());
    pg.servidor = porRele;
    PGconn* c = PQconnectdb(pg.ConnInfo().c_str());
    if (PQstatus(c) != CONNECTION_OK) throw std::runtime_error(PQerrorMessage(c));
    FechaConexao();
    if (!AbreComponente(porRele, config.Banco, config.USUARIO, config.Senha))
        throw std::runtime_error(ComunicaAtual().Msg);
    ZeraCursoresModulos();
    const double comp = ItensPorSegundo(Itens, 1, [&] { Gera(janelas, e, Itens); });
    const double floor = ItensPorSegundo(Itens, 1, [&] { piso(c); });
    PQfinish(c);
    Imprime("geracao-V-postgres-1ms", comp, floor);
    FechaConexao();
    if (!AbreComponente(config.Servidor, config.Banco, config.USUARIO, config.Senha))
        throw std::runtime_error(ComunicaAtual().Msg);
    ZeraCursoresModulos();
}

// Several terminals at once: 1, 2, 4 and 8 processes, each with its own
// connection generating its own 500-item sales order, all let go together.
// Items/s over the whole wall time, and the failures (items not written,
// messages shown): 0 expected, SQLite's busy timeout absorbing the waits.
void Terminais(const std::string& banco, const ConfigBanco& config, JanelasModelo& janelas, const Entrada& e,
               const std::function<void(const std::string&)>& exec) {
    constexpr int Por = 500;
    Entrada parte;
    for (int r = 0; r <= Por; ++r) {
        std::string l;
        for (int c = 0; c < e.itens.Cols(); ++c)
            l += (c ? "\t" : "") + e.itens.TextMatrix(r, c);
        parte.itens.DefineCols(e.itens.Cols());
        parte.itens.AddItem(l);
    }
    parte.itens.DefineRow(1);
    Copia(e.agrupamentos, parte.agrupamentos);
    parte.nome = e.nome;
    for (int n : {1, 2, 4, 8}) {
        for (int i = 0; i < n; ++i)
            exec("INSERT INTO TBPEV (Empresa, NumPed, UF, CodVendedor, CodRep, NatOper) VALUES (1, " +
                 std::to_string(100 + 10 * n + i) + ", 'SP', 1, 10, 5102)");
        FechaConexao();
        int pronto[2], vai[2], resultado[2];
        if (pipe(pronto) != 0 || pipe(vai) != 0 || pipe(resultado) != 0) throw std::runtime_error("pipe");
        std::vector<pid_t> pids;
        for (int i = 0; i < n; ++i) {
            const pid_t pid = fork();
            if (pid == 0) {
                close(pronto[0]);
                close(vai[1]);
                close(resultado[0]);
                int r[2] = {0, 1};
                try {
                    if (AbreComponente(config.Servidor, config.Banco, config.USUARIO, config.Senha)) {
                        ZeraCursoresModulos();
                        SessaoAtual().NumDoc = 100 + 10 * n + i;
                        auto mensagens = std::make_shared<MensagensGravadas>();
                        PortasAtuais().mensagens = mensagens;
                        char b = 'p';
                        if (write(pronto[1], &b, 1) == 1 && read(vai[0], &b, 1) == 1) {
                            // The process's own copy of the grid, after the fork.
                            TelaGeracao tela{parte.itens, parte.agrupamentos, parte.nome, {}};
                            janelas.AoMostrar("TolvanF05", [](Tela& t) {
                                auto& d = static_cast<TolvanF05&>(t);
                                d.TxQtdGera.Digita("1");
                                d.bok_Click();
                            });
                            sbGerarDocumento(tela);
                            r[0] = static_cast<int>(ItensGerados().size());
                            r[1] = static_cast<int>(mensagens->Mostradas().size());
                        }
                    }
                } catch (...) {
                }
                _exit(write(resultado[1], r, sizeof r) == sizeof r ? 0 : 1);
            }
            pids.push_back(pid);
        }
        close(pronto[1]);
        close(vai[0]);
        close(resultado[1]);
        for (int i = 0; i < n; ++i) {
            char b;
            if (read(pronto[0], &b, 1) != 1) throw std::runtime_error("terminal não conectou");
        }
        const auto t0 = std::chrono::steady_clock::now();
        const std::string todos(static_cast<size_t>(n), 'g');
        if (write(vai[1], todos.data(), todos.size()) != static_cast<ssize_t>(todos.size()))
            throw std::runtime_error("pipe");
        int escritos = 0, falhas = 0;
        for (int i = 0; i < n; ++i) {
            int r[2] = {0, 1};
            if (read(resultado[0], r, sizeof r) != sizeof r) ++falhas;
            escritos += r[0];
            falhas += r[1] + (Por - r[0]);
        }
        for (pid_t p : pids)
            waitpid(p, nullptr, 0);
        const double s = std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
        close(pronto[0]);
        close(vai[1]);
        close(resultado[0]);
        std::printf("terminais-%s-%d: %d processes, %.0f items/s, failures %d\n", banco.c_str(), n, n,
                    escritos / s, falhas);
        std::fflush(stdout);
        if (!AbreComponente(config.Servidor, config.Banco, config.USUARIO, config.Senha))
            throw std::runtime_error(ComunicaAtual().Msg);
        ZeraCursoresModulos();
    }
}

template <class Piso, class Valores>
void Roda(const std::string& banco, const ConfigBanco& config,
          const std::function<void(const std::string&)>& exec, Valores valoresDo, Piso piso) {
    ConfigBanco::DefineFixa(config);
    auto janelas = std::make_shared<JanelasModelo>();
    PortasAtuais().telas = janelas;
    consultalista comp;
    if (ComunicaAtual().Status != status::Ok) throw std::runtime_error(ComunicaAtual().Msg);
    std::string msg;
    if (!SemeiaDemo(msg)) throw std::runtime_error(msg);
    Semeia(exec);
    InstalaGeracao();
    for (const Caso& k : Casos) {
        PreencheSessao(comp, k);
        Entrada e;
        e.Carrega("CARGA");
        if (e.itens.Rows() != Itens + 1) throw std::runtime_error("carga incompleta");
        Gera(*janelas, e, Itens); // warm-up, and the floor's values
        const auto valores = valoresDo(k);
        double c = 0, p = 0;
        for (int r = 0; r < Rodadas; ++r) {
            c = std::max(c, ItensPorSegundo(Itens, 1, [&] { Gera(*janelas, e, Itens); }));
            p = std::max(p,
                         ItensPorSegundo(Itens, 1, [&] { piso(k, e, valores, 10 + r * 10 * Itens, nullptr); }));
        }
        Imprime(std::string("geracao-") + k.origem + "-" + banco, c, p);
        if (banco == "postgres") {
            // What a store network pays: every round trip costs its latency.
            const uint64_t antes = ConectorPostgres::IdasEVoltas();
            Gera(*janelas, e, Itens);
            std::printf("idas-e-voltas-geracao-%s-postgres: %.2f per item\n", k.origem,
                        static_cast<double>(ConectorPostgres::IdasEVoltas() - antes) / Itens);
            std::fflush(stdout);
            if (k.origem == std::string("V")) ComLatencia(config, *janelas, e, [&](PGconn* rele) {
                piso(k, e, valores, 10 + Rodadas * 10 * Itens, rele);
            });
        }

        if (k.origem == std::string("V")) Terminais(banco, config, *janelas, e, exec);
        const auto [extra1, pico1] = Memoria(config, *janelas, "CARGA", Itens, 3);
        const auto [extra10, pico10] = Memoria(config, *janelas, "CARGA10K", ItensGrande, 4);
        std::printf(
            "memoria-geracao-%s-%s: peak +%ld KiB over the loaded process at %d items, +%ld KiB at %d "
            "items (peak resident, the grid included: %ld / %ld KiB)\n",
            k.origem, banco.c_str(), extra1, Itens, extra10, ItensGrande, pico1, pico10);
        std::fflush(stdout);
    }
    ConfigBanco::DefineFixa(std::nullopt);
}

void CasoSqlite() {
    SqliteBench banco;
    auto exec = [&](const std::string& sql) { ExecSqlite(banco.db, sql); };
    Roda(
        "sqlite", ConfigBanco{"ACCESS", banco.Arquivo(), "", ""}, exec,
        [&](const Caso& k) { return ValoresSq(banco.db, k); },
        [&](const Caso& k, const Entrada& e, const ValoresSq& v, int base, PGconn*) {
            PisoSqlite(banco.db, k, e, v, base);
        });
}

void CasoPostgres() {
    PgBench banco("zt_bench_ger_");
    if (!banco.Pronto()) {
        std::printf("geracao-postgres: skipped (ZTOLVAN_PG_SERVIDOR not set)\n");
        return;
    }
    Pg pg;
    auto exec = [&](const std::string& sql) { ExecPg(banco.c, sql); };
    Roda(
        "postgres", ConfigBanco{pg.servidor, pg.banco, pg.usuario, pg.senha}, exec,
        [&](const Caso& k) { return ValoresPg(banco.c, k); },
        [&](const Caso& k, const Entrada& e, const std::vector<std::vector<std::string>>& v, int base,
            PGconn* rele) { PisoPostgres(rele ? rele : banco.c, k, e, v, base); });
}

} // namespace

int main() { return Principal(CasoSqlite, CasoPostgres); }
