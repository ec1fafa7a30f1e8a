#include "data/postgres/conector_postgres.h"

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

Valor Coluna(const PGresult* r, int linha, int col) {
    if (PQgetisnull(r, linha, col)) return Valor();
    const char* v = PQgetvalue(r, linha, col);
    switch (PQftype(r, col)) {
    case 16: // bool
        return Valor(static_cast<int64_t>(v[0] == 't' ? 1 : 0));
    case 20: // int8
    case 21: // int2
    case 23: // int4
        return Valor(static_cast<int64_t>(std::strtoll(v, nullptr, 10)));
    case 700:  // float4
    case 701:  // float8
    case 1700: { // numeric
        double d = 0.0;
        LeNumero(v, d);
        return Valor(d);
    }
    default:
        return Valor(std::string(v, static_cast<size_t>(PQgetlength(r, linha, col))));
    }
}

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
    ++geracao_;
    emUnidade_ = false;
    return true;
}

void ConectorPostgres::Desconecta() {
    if (conn_) PQfinish(conn_);
    conn_ = nullptr;
    emUnidade_ = false;
}

bool ConectorPostgres::Disponivel(std::string& msg) {
    if (PQstatus(conn_) == CONNECTION_OK) return true;
    // A dropped connection: try once to get it back. A pending unit is lost
    // with it, and its statements must be prepared again.
    PQreset(conn_);
    emUnidade_ = false;
    if (PQstatus(conn_) != CONNECTION_OK) {
        msg = MensagemDe(conn_, nullptr);
        return false;
    }
    ++geracao_;
    return true;
}

std::string ConectorPostgres::Simples(const char* sql, std::string& msg) {
    auto r = Envolve(PQexec(conn_, sql));
    if (PQresultStatus(r.get()) == PGRES_COMMAND_OK || PQresultStatus(r.get()) == PGRES_TUPLES_OK)
        return status::Ok;
    msg = MensagemDe(conn_, r.get());
    return status::Falha;
}

bool ConectorPostgres::PreparaNoServidor(ComandoPg& c, std::string& msg) {
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

std::string ConectorPostgres::Roda(ComandoPg& c, const Valor::Lista& valores, TabelaResultado& tabela,
                                   bool comColunas, std::string& msg) {
    if (!c.avulso && c.geracao != geracao_ && !PreparaNoServidor(c, msg)) return status::Falha;
    std::vector<std::string> textos(valores.size());
    std::vector<const char*> ptrs(valores.size());
    for (size_t i = 0; i < valores.size(); ++i) {
        if (valores[i].vazio()) {
            ptrs[i] = nullptr;
        } else {
            textos[i] = TextoParametro(valores[i]);
            ptrs[i] = textos[i].c_str();
        }
    }
    auto r = Envolve(c.avulso ? PQexecParams(conn_, c.texto.c_str(), static_cast<int>(ptrs.size()), nullptr,
                                             ptrs.data(), nullptr, nullptr, 0)
                              : PQexecPrepared(conn_, c.nome.c_str(), static_cast<int>(ptrs.size()),
                                               ptrs.data(), nullptr, nullptr, 0));
    ExecStatusType est = PQresultStatus(r.get());
    if (c.avulso) c.consulta = est == PGRES_TUPLES_OK;
    if (est != PGRES_TUPLES_OK && est != PGRES_COMMAND_OK) {
        msg = MensagemDe(conn_, r.get());
        return StatusDe(r.get());
    }
    if (est == PGRES_TUPLES_OK) {
        const int nlin = PQntuples(r.get()), ncol = PQnfields(r.get());
        if (comColunas)
            for (int j = 0; j < ncol; ++j)
                tabela.colunas.emplace_back(PQfname(r.get(), j));
        tabela.linhas.reserve(static_cast<size_t>(nlin));
        for (int i = 0; i < nlin; ++i) {
            Valor::Lista linha;
            linha.reserve(static_cast<size_t>(ncol));
            for (int j = 0; j < ncol; ++j)
                linha.push_back(Coluna(r.get(), i, j));
            tabela.linhas.push_back(std::move(linha));
        }
    }
    return status::Ok;
}

std::string ConectorPostgres::Executa(Comando& comando, const Valor::Lista& valores, TabelaResultado& tabela,
                                      bool comColunas, std::string& msg) {
    auto& c = static_cast<ComandoPg&>(comando);
    if (!Disponivel(msg)) return status::Falha;
    if (!emUnidade_) {
        if (!c.altera) return Roda(c, valores, tabela, comColunas, msg);
        // First change of a unit: when it fails the unit holds nothing else,
        // so undoing the whole unit is undoing just this statement.
        if (Simples("BEGIN", msg) != status::Ok) return status::Falha;
        std::string st = Roda(c, valores, tabela, comColunas, msg);
        if (st == status::Ok) {
            emUnidade_ = true;
        } else {
            std::string ignora;
            Simples("ROLLBACK", ignora);
        }
        return st;
    }
    if (Simples("SAVEPOINT zt", msg) != status::Ok) return status::Falha;
    std::string st = Roda(c, valores, tabela, comColunas, msg);
    std::string ignora;
    if (st != status::Ok) Simples("ROLLBACK TO SAVEPOINT zt", ignora);
    Simples("RELEASE SAVEPOINT zt", ignora);
    return st;
}

std::string ConectorPostgres::Confirma(std::string& msg) {
    if (!emUnidade_) return status::Ok;
    emUnidade_ = false;
    return Simples("COMMIT", msg);
}

std::string ConectorPostgres::Desfaz(std::string& msg) {
    if (!emUnidade_) return status::Ok;
    emUnidade_ = false;
    return Simples("ROLLBACK", msg);
}

} // namespace ztolvan
