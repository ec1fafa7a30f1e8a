#pragma once
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "common/mensagens.h"
#include "data/conector.h"

namespace ztolvan::teste {

enum class Kind { Sqlite, Postgres };
std::string Nome(Kind k);

// A throw-away database of either kind for one test, and the thread's
// context pointed at it. SQLite: a file in a fresh temporary folder.
// PostgreSQL: a private schema in the server named by ZTOLVAN_PG_SERVIDOR,
// ZTOLVAN_PG_BANCO, ZTOLVAN_PG_USUARIO and ZTOLVAN_PG_SENHA; without them the
// test is skipped, unless ZTOLVAN_PG_OBRIGATORIO=1 makes that a failure.
class BancoTeste {
  public:
    explicit BancoTeste(Kind k);
    ~BancoTeste();

    // Whether the database could be made; when not, Motivo() says why.
    bool Pronto() const { return pronto_; }
    const std::string& Motivo() const { return motivo_; }
    bool Obrigatorio() const;

    Kind kind() const { return kind_; }
    std::string Servidor() const;
    std::string Banco() const;
    std::string Usuario() const;
    std::string Senha() const;
    std::string Pasta() const { return pasta_; }

    // Opens the thread's connection on this database (AbreConexao, quiet).
    bool Conecta();
    // Runs statements straight on the database, outside the component (set-up).
    void Direto(const std::string& sql);

    std::shared_ptr<MensagensGravadas> mensagens;

  private:
    Kind kind_;
    bool pronto_ = false;
    std::string motivo_;
    std::string pasta_;
    std::string esquema_;
};

// What the recorded messages said, in order.
inline std::vector<std::string> Textos(const MensagensGravadas& m) {
    std::vector<std::string> r;
    for (const auto& x : m.Mostradas())
        r.push_back(x.Texto);
    return r;
}

// Statements the component sent, for tests that check text and order.
struct Chamada {
    std::string Transacao;
    int16_t Cursor = 0;
    std::string Texto; // Dados when it was a text
    std::string Status;
};

// Wraps a real connector and records every Processa call.
class ConectorGravador : public ConectorBD {
  public:
    explicit ConectorGravador(std::unique_ptr<ConectorBD> real) : real_(std::move(real)) {}
    void ZConnectOpen(std::string& s, std::string& b, std::string& u, std::string& p, int16_t& c,
                      std::string& st, std::string& m) override {
        real_->ZConnectOpen(s, b, u, p, c, st, m);
    }
    void Processa(int16_t& Conexao, std::string& Transacao, int16_t& Cursor, std::string& Status,
                  std::string& Msg, Valor& Dados, Valor& Retorno) override;
    void ZConnectClose(int16_t& c) override { real_->ZConnectClose(c); }
    void Consulta(int16_t c, const std::string& t, TabelaResultado& r, std::string& s,
                  std::string& m) override {
        consultas.push_back(t);
        real_->Consulta(c, t, r, s, m);
    }
    const char* Tipo() const override { return real_->Tipo(); }
    bool RetemAlteracoes(bool reter, std::string& msg) override { return real_->RetemAlteracoes(reter, msg); }
    bool TravaParaAlterar(const std::string& chave, std::string& msg) override {
        return real_->TravaParaAlterar(chave, msg);
    }
    void Antecipa(const std::string& t) override {
        antecipadas.push_back(t);
        real_->Antecipa(t);
    }

    std::vector<Chamada> chamadas;
    // A fault to play: when it answers true for a call, the call fails with
    // "99" and "falha simulada"; a failed COMMIT rolls the unit back.
    std::function<bool(const std::string& transacao)> falha;
    // Statements run through the database object, in order.
    std::vector<std::string> consultas;
    // Queries sent ahead of their Consulta, in order.
    std::vector<std::string> antecipadas;
    std::vector<std::string> Palavras() const;

  private:
    std::unique_ptr<ConectorBD> real_;
};

// Installs a recording wrapper around a fresh connector of the kind and
// returns it; call before BancoTeste::Conecta.
ConectorGravador* GravaChamadas(Kind k);

} // namespace ztolvan::teste
