#pragma once
#include <atomic>
#include <cstdint>
#include <libpq-fe.h>
#include <span>
#include <string>

#include "data/conector_comum.h"

namespace ztolvan {

// The server kind over PostgreSQL (Servidor "host[:port]", Banco the
// database). "?" placeholders become $1, $2 ...; statements are prepared once
// on the server and re-prepared by themselves after a reconnection. Every
// change runs inside a unit opened on the first change; a failing statement
// inside a unit is undone alone (through a savepoint) so that, as on the
// suite's server, the unit's earlier changes stay pending.
class ConectorPostgres : public ConectorComum {
  public:
    ~ConectorPostgres() override;
    const char* Tipo() const override { return "SERVIDOR"; }

    // "?" placeholders outside quoted literals and identifiers become $1, $2 ...
    static std::string Numera(const std::string& texto, int& parametros);
    // LIKE as ILIKE outside quoted texts and names.
    static std::string SemCaixaNoLike(const std::string& texto);
    // Round trips to the server made by every connection of this process
    // (what a slow store network pays for).
    static uint64_t IdasEVoltas() { return idasEVoltas_.load(std::memory_order_relaxed); }
    // Sends a query that reads only, outside a unit of change, and comes back
    // at once: the server runs it while the caller works.
    void Antecipa(const std::string& Texto) override;

  protected:
    bool Conecta(const std::string& Servidor, const std::string& Banco, const std::string& Usuario,
                 const std::string& Senha, std::string& msg) override;
    void Desconecta() override;
    bool Conectado() const override { return conn_ != nullptr; }
    std::unique_ptr<Comando> Prepara(const std::string& texto, bool avulso, std::string& msg) override;
    std::string Executa(Comando& c, const Valor::Lista& valores, TabelaResultado& tabela, bool comColunas,
                        std::string& msg) override;
    std::string Confirma(std::string& msg) override;
    std::string Desfaz(std::string& msg) override;
    std::string AbreUnidadeRetida(std::string& msg) override;
    std::string AbreUnidadeTravada(const std::string& chave, std::string& msg) override;
    std::string ComandoNaUnidade(const char* sql, std::string& msg) override { return Simples(sql, msg); }
    std::string DesfazUnidadeRetida(std::string& msg) override;

  private:
    struct ComandoPg;
    struct Parametros;
    bool Disponivel(std::string& msg);
    bool AjustaSessao(std::string& msg);
    bool PreparaNoServidor(ComandoPg& c, std::string& msg);
    std::string Simples(const char* sql, std::string& msg);
    std::string Roda(ComandoPg& c, const Valor::Lista& valores, TabelaResultado& tabela, bool comColunas,
                     std::string& msg);
    std::string RodaEntre(std::span<const char* const> antes, ComandoPg& c, const Valor::Lista& valores,
                          const char* depois, TabelaResultado& tabela, bool comColunas, std::string& msg);
    // The early query's result when 'c' is that query, else nullptr; the
    // early query is over either way (a result nobody takes is dropped).
    PGresult* TomaAntecipada(const ComandoPg* c, const Valor::Lista& valores);
    void DescartaAntecipada() { TomaAntecipada(nullptr, {}); }
    // Takes 'r' over: a query's rows stay in it, read a row at a time.
    std::string Le(ComandoPg& c, PGresult* r, TabelaResultado& tabela, bool comColunas, std::string& msg);

    static std::atomic<uint64_t> idasEVoltas_;
    PGconn* conn_ = nullptr;
    bool emUnidade_ = false;
    // A product's lock asked before any statement of its unit: it goes out
    // with the unit's BEGIN and first statement, in the same round trip.
    std::string travaPendente_;
    // The text ($n placeholders) of a query sent ahead, whose result is
    // still on its way; empty when none is.
    std::string antecipada_;
    unsigned geracao_ = 0; // bumped on every (re)connection: prepared names are per session
    unsigned proximoNome_ = 0;
};

} // namespace ztolvan
