#include "data/postgres/conector_postgres.h"

#include <atomic>
#include <cctype>
#include <cstring>
#include <deque>
#include <memory>

#include "common/conversao.h"
#include "common/texto.h"
#include "data/comunica.h"

namespace ztolvan {

struct ConectorPostgres::ComandoPg : Comando {
    std::string nome;
    std::string texto; // with $n placeholders
    int parametros = 0;
    bool consulta = false;
    bool altera = false;
    bool avulso = false; // run with PQexecParams: nothing kept on the server
    unsigned geracao = 0;
    int Parametros() const override { return parametros; }
    bool EhConsulta() const override { return consulta; }
};

std::atomic<uint64_t> ConectorPostgres::idasEVoltas_{0};

namespace {

using Resultado = std::unique_ptr<PGresult, decltype(&PQclear)>;

Resultado Envolve(PGresult* r) { return Resultado(r, &PQclear); }

std::string MensagemDe(PGconn* c, const PGresult* r) {
    std::string m = r ? PQresultErrorMessage(r) : "";
    if (m.empty() && c) m = PQerrorMessage(c);
    while (!m.empty() && (m.back() == '\n' || m.back() == ' '))
        m.pop_back();
    return m.empty() ? "Falha no servidor de banco de dados" : m;
}

std::string StatusDe(const PGresult* r) {
    const char* estado = r ? PQresultErrorField(r, PG_DIAG_SQLSTATE) : nullptr;
    return estado && std::strcmp(estado, "23505") == 0 ? status::ChaveExiste : status::Falha;
}

// Statements that only read: no unit of change is opened for them.
bool SoLe(const std::string& texto) {
    size_t i = texto.find_first_not_of(" \t\r\n(");
    if (i == std::string::npos) return true;
    size_t f = i;
    while (f < texto.size() && std::isalpha(static_cast<unsigned char>(texto[f])))
        ++f;
    std::string palavra = Maiusculas(texto.substr(i, f - i));
    return palavra == "SELECT" || palavra == "VALUES" || palavra == "SHOW" || palavra == "TABLE" ||
           palavra == "EXPLAIN";
}

// A server's result, whole in memory, kept as it came: each row is made into
// values when it is read, each value by its column's type.
class ResultadoPg final : public LinhasLidas::Fonte {
  public:
    explicit ResultadoPg(Resultado r) : r_(std::move(r)) {
        for (int j = 0; j < PQnfields(r_.get()); ++j)
            tipos_.push_back(TipoDe(PQftype(r_.get(), j)));
    }
    size_t Linhas() const override { return static_cast<size_t>(PQntuples(r_.get())); }
    void Copia(size_t linha, Valor::Lista& destino) const override {
        const PGresult* r = r_.get();
        const int i = static_cast<int>(linha);
        destino.resize(tipos_.size());
        for (int j = 0; j < static_cast<int>(tipos_.size()); ++j) {
            Valor& v = destino[static_cast<size_t>(j)];
            const char* t = PQgetvalue(r, i, j);
            const auto tamanho = static_cast<size_t>(PQgetlength(r, i, j));
            // Only an empty value can be a NULL: one call less per value read.
            if (tamanho == 0 && PQgetisnull(r, i, j)) {
                v = Valor();
                continue;
            }
            switch (tipos_[static_cast<size_t>(j)]) {
            case Tipo::Logico:
                v = Valor(static_cast<int64_t>(t[0] == 't' ? 1 : 0));
                break;
            case Tipo::Inteiro:
                v = Valor(static_cast<int64_t>(std::strtoll(t, nullptr, 10)));
                break;
            case Tipo::Numero: {
                double d = 0.0;
                LeNumero(std::string_view(t, tamanho), d);
                v = Valor(d);
                break;
            }
            case Tipo::Texto:
                LinhasLidas::PoeTexto(v, std::string_view(t, tamanho));
            }
        }
    }

  private:
    enum class Tipo { Logico, Inteiro, Numero, Texto };
    static Tipo TipoDe(Oid tipo) {
        switch (tipo) {
        case 16: // bool
            return Tipo::Logico;
        case 20: // int8
        case 21: // int2
        case 23: // int4
            return Tipo::Inteiro;
        case 700:  // float4
        case 701:  // float8
        case 1700: // numeric
            return Tipo::Numero;
        default:
            return Tipo::Texto;
        }
    }
    Resultado r_;
    std::vector<Tipo> tipos_;
};

std::string TextoParametro(const Valor& v) {
    switch (v.tipo()) {
    case Valor::Tipo::Inteiro:
        return std::to_string(v.inteiro());
    case Valor::Tipo::Duplo:
        return EscreveNumero(v.duplo());
    case Valor::Tipo::Logico:
        return v.logico() ? "1" : "0";
    case Valor::Tipo::Texto:
        return v.texto();
    default:
        return {};
    }
}

} // namespace

std::string ConectorPostgres::Numera(const std::string& texto, int& parametros) {
    std::string r;
    r.reserve(texto.size() + 16);
    parametros = 0;
    char aspas = 0;
    for (char c : texto) {
        if (aspas) {
            if (c == aspas) aspas = 0; // a doubled quote closes and reopens: same result
            r.push_back(c);
        } else if (c == '\'' || c == '"') {
            aspas = c;
            r.push_back(c);
        } else if (c == '?') {
            r += "$" + std::to_string(++parametros);
        } else {
            r.push_back(c);
        }
    }
    return SemCaixaNoLike(r);
}

// The suite's server compares LIKE without regard to case, accented letters
// included: here that is ILIKE (outside quoted texts and names).
std::string ConectorPostgres::SemCaixaNoLike(const std::string& texto) {
    auto letra = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '$'; };
    std::string r;
    r.reserve(texto.size() + 4);
    char aspas = 0;
    for (size_t i = 0; i < texto.size(); ++i) {
        const char c = texto[i];
        if (aspas) {
            if (c == aspas) aspas = 0;
        } else if (c == '\'' || c == '"') {
            aspas = c;
        } else if ((c == 'L' || c == 'l') && (i == 0 || !letra(texto[i - 1])) && i + 4 <= texto.size() &&
                   IguaisSemCaixa(std::string_view(texto).substr(i, 4), "LIKE") &&
                   (i + 4 == texto.size() || !letra(texto[i + 4]))) {
            r += "ILIKE";
            i += 3;
            continue;
        }
        r.push_back(c);
    }
    return r;
}

ConectorPostgres::~ConectorPostgres() { Desconecta(); }

bool ConectorPostgres::Conecta(const std::string& Servidor, const std::string& Banco,
                               const std::string& Usuario, const std::string& Senha, std::string& msg) {
    std::string host = Apara(Servidor), porta;
    if (size_t p = host.rfind(':'); p != std::string::npos && host.find(':') == p) {
        porta = host.substr(p + 1);
        host = host.substr(0, p);
    }
    std::vector<const char*> chaves, valores;
    std::deque<std::string> guardados; // keeps every value alive until the connection is made
    auto poe = [&](const char* k, std::string v) {
        if (!v.empty()) {
            chaves.push_back(k);
            valores.push_back(guardados.emplace_back(std::move(v)).c_str());
        }
    };
    const std::string banco = Apara(Banco), usuario = Apara(Usuario);
    poe("host", host);
    poe("port", porta);
    poe("dbname", banco);
    poe("user", usuario);
    poe("password", Senha);
    poe("connect_timeout", "10");
    poe("application_name", "ztolvan");
    poe("client_encoding", "UTF8");
    chaves.push_back(nullptr);
    valores.push_back(nullptr);
    conn_ = PQconnectdbParams(chaves.data(), valores.data(), 0);
    if (!conn_ || PQstatus(conn_) != CONNECTION_OK) {
        msg = MensagemDe(conn_, nullptr);
        Desconecta();
        return false;
    }
    // Server notices (a cascade, an implicit index) are not the operator's business.
    PQsetNoticeProcessor(
        conn_, [](void*, const char*) {}, nullptr);
    if (!AjustaSessao(msg)) {
        Desconecta();
        return false;
    }
    ++geracao_;
    emUnidade_ = false;
    return true;
}

void ConectorPostgres::Desconecta() {
    antecipada_.clear();
    if (conn_) PQfinish(conn_);
    conn_ = nullptr;
    emUnidade_ = false;
}

bool ConectorPostgres::Disponivel(std::string& msg) {
    if (PQstatus(conn_) == CONNECTION_OK) return true;
    // A dropped connection: try once to get it back. A pending unit is lost
    // with it, and its statements must be prepared again.
    antecipada_.clear();
    PQreset(conn_);
    emUnidade_ = false;
    if (PQstatus(conn_) != CONNECTION_OK) {
        msg = MensagemDe(conn_, nullptr);
        return false;
    }
    ++geracao_;
    return AjustaSessao(msg);
}

// The system's listings read a GROUP BY's or DISTINCT's rows as runs of
// equal keys, as the suite's server hands them. Grouping by hashing would
// scatter a key's rows once a table is large enough.
bool ConectorPostgres::AjustaSessao(std::string& msg) {
    return Simples("SET enable_hashagg = off", msg) == status::Ok;
}

std::string ConectorPostgres::Simples(const char* sql, std::string& msg) {
    DescartaAntecipada();
    ++idasEVoltas_;
    auto r = Envolve(PQexec(conn_, sql));
    if (PQresultStatus(r.get()) == PGRES_COMMAND_OK || PQresultStatus(r.get()) == PGRES_TUPLES_OK)
        return status::Ok;
    msg = MensagemDe(conn_, r.get());
    return status::Falha;
}

bool ConectorPostgres::PreparaNoServidor(ComandoPg& c, std::string& msg) {
    DescartaAntecipada();
    idasEVoltas_ += 2;
    auto r = Envolve(PQprepare(conn_, c.nome.c_str(), c.texto.c_str(), 0, nullptr));
    if (PQresultStatus(r.get()) != PGRES_COMMAND_OK) {
        msg = MensagemDe(conn_, r.get());
        return false;
    }
    auto d = Envolve(PQdescribePrepared(conn_, c.nome.c_str()));
    if (PQresultStatus(d.get()) != PGRES_COMMAND_OK) {
        msg = MensagemDe(conn_, d.get());
        return false;
    }
    c.consulta = PQnfields(d.get()) > 0;
    c.geracao = geracao_;
    return true;
}

std::unique_ptr<ConectorComum::Comando> ConectorPostgres::Prepara(const std::string& texto, bool avulso,
                                                                  std::string& msg) {
    if (!Disponivel(msg)) return nullptr;
    auto c = std::make_unique<ComandoPg>();
    c->texto = Numera(texto, c->parametros);
    c->altera = !SoLe(texto);
    if (avulso) {
        // Run once and forgotten: a server-side statement would pile up.
        c->avulso = true;
        c->consulta = !c->altera;
        return c;
    }
    c->nome = "zt" + std::to_string(++proximoNome_);
    // Preparing inside a unit must not spoil it when the text is wrong.
    if (emUnidade_ && Simples("SAVEPOINT zt_prep", msg) != status::Ok) return nullptr;
    bool ok = PreparaNoServidor(*c, msg);
    if (emUnidade_) {
        std::string ignora;
        Simples(ok ? "RELEASE SAVEPOINT zt_prep" : "ROLLBACK TO SAVEPOINT zt_prep", ignora);
        if (!ok) Simples("RELEASE SAVEPOINT zt_prep", ignora);
    }
    if (!ok) return nullptr;
    return c;
}

// The values as libpq takes them: text, NULL for an empty value.
struct ConectorPostgres::Parametros {
    std::vector<std::string> textos;
    std::vector<const char*> ptrs;
    explicit Parametros(const Valor::Lista& valores) : textos(valores.size()), ptrs(valores.size()) {
        for (size_t i = 0; i < valores.size(); ++i) {
            if (valores[i].vazio()) continue;
            textos[i] = TextoParametro(valores[i]);
            ptrs[i] = textos[i].c_str();
        }
    }
    int n() const { return static_cast<int>(ptrs.size()); }
};

// A statement's result as the contract wants it: status, message, rows.
std::string ConectorPostgres::Le(ComandoPg& c, PGresult* resultado, TabelaResultado& tabela, bool comColunas,
                                 std::string& msg) {
    Resultado r = Envolve(resultado);
    ExecStatusType est = PQresultStatus(r.get());
    if (c.avulso) c.consulta = est == PGRES_TUPLES_OK;
    if (est != PGRES_TUPLES_OK && est != PGRES_COMMAND_OK) {
        msg = MensagemDe(conn_, r.get());
        return StatusDe(r.get());
    }
    if (est == PGRES_TUPLES_OK) {
        const int ncol = PQnfields(r.get());
        if (comColunas)
            for (int j = 0; j < ncol; ++j)
                tabela.colunas.emplace_back(PQfname(r.get(), j));
        tabela.linhas.Inicia(static_cast<size_t>(ncol));
        tabela.linhas.Adota(std::make_unique<ResultadoPg>(std::move(r)));
    }
    return status::Ok;
}

std::string ConectorPostgres::Roda(ComandoPg& c, const Valor::Lista& valores, TabelaResultado& tabela,
                                   bool comColunas, std::string& msg) {
    if (PGresult* r = TomaAntecipada(&c, valores)) return Le(c, r, tabela, comColunas, msg);
    if (!c.avulso && c.geracao != geracao_ && !PreparaNoServidor(c, msg)) return status::Falha;
    Parametros p(valores);
    ++idasEVoltas_;
    auto r = Envolve(c.avulso ? PQexecParams(conn_, c.texto.c_str(), p.n(), nullptr, p.ptrs.data(), nullptr,
                                             nullptr, 0)
                              : PQexecPrepared(conn_, c.nome.c_str(), p.n(), p.ptrs.data(), nullptr, nullptr, 0));
    return Le(c, r.release(), tabela, comColunas, msg);
}

void ConectorPostgres::Antecipa(const std::string& Texto) {
    // One at a time, and only where the query would run on its own: inside
    // a unit (or under a lock asked for) a read goes out with other words.
    if (!conn_ || !antecipada_.empty() || emUnidade_ || !travaPendente_.empty() || !SoLe(Texto) ||
        PQstatus(conn_) != CONNECTION_OK)
        return;
    int parametros = 0;
    std::string texto = Numera(Texto, parametros);
    if (parametros != 0) return;
    ++idasEVoltas_;
    if (PQsendQueryParams(conn_, texto.c_str(), 0, nullptr, nullptr, nullptr, nullptr, 0))
        antecipada_ = std::move(texto);
}

PGresult* ConectorPostgres::TomaAntecipada(const ComandoPg* c, const Valor::Lista& valores) {
    if (antecipada_.empty()) return nullptr;
    const bool ela = c && c->avulso && valores.empty() && c->texto == antecipada_;
    antecipada_.clear();
    PGresult* r = PQgetResult(conn_);
    while (PGresult* resto = PQgetResult(conn_))
        PQclear(resto);
    if (ela) return r;
    PQclear(r);
    return nullptr;
}

// The statement between two command words (BEGIN before it; SAVEPOINT before
// and RELEASE after it), all sent in one round trip through libpq's pipeline.
// A failing statement leaves the words after it unrun and the unit aborted:
// the caller undoes it. Returns the statement's status.
std::string ConectorPostgres::RodaEntre(std::span<const char* const> antes, ComandoPg& c,
                                        const Valor::Lista& valores, const char* depois, TabelaResultado& tabela,
                                        bool comColunas, std::string& msg) {
    DescartaAntecipada();
    if (!c.avulso && c.geracao != geracao_ && !PreparaNoServidor(c, msg)) return status::Falha;
    Parametros p(valores);
    if (!PQenterPipelineMode(conn_)) {
        msg = MensagemDe(conn_, nullptr);
        return status::Falha;
    }
    bool enviado = true;
    for (const char* a : antes)
        enviado = enviado && PQsendQueryParams(conn_, a, 0, nullptr, nullptr, nullptr, nullptr, 0);
    enviado = enviado &&
              (c.avulso ? PQsendQueryParams(conn_, c.texto.c_str(), p.n(), nullptr, p.ptrs.data(), nullptr, nullptr,
                                            0)
                        : PQsendQueryPrepared(conn_, c.nome.c_str(), p.n(), p.ptrs.data(), nullptr, nullptr, 0)) &&
              (!depois || PQsendQueryParams(conn_, depois, 0, nullptr, nullptr, nullptr, nullptr, 0)) &&
              PQpipelineSync(conn_);
    ++idasEVoltas_;
    // Results arrive in order, each followed by a NULL, and the sync last.
    const int comando = static_cast<int>(antes.size());
    const int pedidos = comando + (depois ? 2 : 1);
    std::string st = status::Falha, falhaAntes;
    for (int i = 0; enviado && i < pedidos; ++i) {
        auto r = Envolve(PQgetResult(conn_));
        if (r)
            while (PGresult* resto = PQgetResult(conn_))
                PQclear(resto);
        if (i == comando) {
            st = Le(c, r.release(), tabela, comColunas, msg);
        } else if (i < comando && falhaAntes.empty() && PQresultStatus(r.get()) != PGRES_COMMAND_OK &&
                   PQresultStatus(r.get()) != PGRES_TUPLES_OK) {
            falhaAntes = MensagemDe(conn_, r.get());
        }
    }
    if (enviado) {
        for (PGresult* r; (r = PQgetResult(conn_)) != nullptr;) {
            const bool sincronizado = PQresultStatus(r) == PGRES_PIPELINE_SYNC;
            PQclear(r);
            if (sincronizado) break;
        }
    } else {
        msg = MensagemDe(conn_, nullptr);
    }
    if (!PQexitPipelineMode(conn_)) {
        while (PGresult* r = PQgetResult(conn_))
            PQclear(r);
        PQexitPipelineMode(conn_);
    }
    if (!falhaAntes.empty()) {
        msg = falhaAntes;
        return status::Falha;
    }
    return st;
}

std::string ConectorPostgres::Executa(Comando& comando, const Valor::Lista& valores, TabelaResultado& tabela,
                                      bool comColunas, std::string& msg) {
    auto& c = static_cast<ComandoPg&>(comando);
    if (!Disponivel(msg)) return status::Falha;
    if (!emUnidade_) {
        if (!c.altera && travaPendente_.empty()) return Roda(c, valores, tabela, comColunas, msg);
        // First change of a unit (or a read under a lock asked for), sent with
        // its BEGIN and the lock: when it fails the unit holds nothing else,
        // so undoing the whole unit undoes just it.
        const char* const antes[] = {"BEGIN", travaPendente_.c_str()};
        std::string st = RodaEntre(std::span(antes, travaPendente_.empty() ? 1 : 2), c, valores, nullptr, tabela,
                                   comColunas, msg);
        travaPendente_.clear();
        if (st == status::Ok) {
            emUnidade_ = true;
        } else {
            std::string ignora;
            Simples("ROLLBACK", ignora);
        }
        return st;
    }
    // Inside a unit a failing statement is undone alone, its earlier
    // changes kept pending.
    const char* const antes[] = {"SAVEPOINT zt"};
    std::string st = RodaEntre(antes, c, valores, "RELEASE SAVEPOINT zt", tabela, comColunas, msg);
    if (st != status::Ok) {
        std::string ignora;
        Simples("ROLLBACK TO SAVEPOINT zt; RELEASE SAVEPOINT zt", ignora);
    }
    return st;
}

std::string ConectorPostgres::Confirma(std::string& msg) {
    travaPendente_.clear();
    if (!emUnidade_) return status::Ok;
    emUnidade_ = false;
    return Simples("COMMIT", msg);
}

std::string ConectorPostgres::Desfaz(std::string& msg) {
    travaPendente_.clear();
    if (!emUnidade_) return status::Ok;
    emUnidade_ = false;
    return Simples("ROLLBACK", msg);
}

// A transaction-level advisory lock on the key: another connection asking
// for the same key waits until this unit's COMMIT or ROLLBACK. A unit not
// yet open takes it with its BEGIN and first statement, in one round trip.
std::string ConectorPostgres::AbreUnidadeTravada(const std::string& chave, std::string& msg) {
    if (!Disponivel(msg)) return status::Falha;
    char* literal = PQescapeLiteral(conn_, chave.data(), chave.size());
    if (!literal) {
        msg = MensagemDe(conn_, nullptr);
        return status::Falha;
    }
    std::string sql = std::string("SELECT pg_advisory_xact_lock(hashtextextended(") + literal + ", 0))";
    PQfreemem(literal);
    if (!emUnidade_) {
        travaPendente_ = std::move(sql);
        return status::Ok;
    }
    return Simples(sql.c_str(), msg);
}

std::string ConectorPostgres::AbreUnidadeRetida(std::string& msg) {
    if (!Disponivel(msg) || Simples("BEGIN", msg) != status::Ok) return status::Falha;
    emUnidade_ = true;
    return status::Ok;
}

std::string ConectorPostgres::DesfazUnidadeRetida(std::string& msg) {
    emUnidade_ = true;
    return Desfaz(msg);
}

} // namespace ztolvan
