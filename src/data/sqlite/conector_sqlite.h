#pragma once
#include <sqlite3.h>

#include "data/conector_comum.h"

namespace ztolvan {

// The desktop-file kind: one SQLite file per database (Banco is its path).
// WAL journal, synchronous=FULL, a busy timeout so that terminals sharing a
// file wait for each other, ISNULL(a, b) run as IFNULL, and every unit of
// change opened with BEGIN IMMEDIATE.
class ConectorSqlite : public ConectorComum {
  public:
    ~ConectorSqlite() override;
    const char* Tipo() const override { return "ACCESS"; }

    // Creates an empty database file (the connector itself never creates one,
    // so that a mistyped path fails instead of starting an empty database).
    static bool CriaArquivo(const std::string& caminho, std::string& msg);
    static constexpr int EsperaOcupadoMs = 10000;
    // The suite's dialect in SQLite's words: ISNULL(a, b) becomes IFNULL(a, b).
    static std::string TraduzDialeto(const std::string& texto);

  protected:
    bool Conecta(const std::string& Servidor, const std::string& Banco, const std::string& Usuario,
                 const std::string& Senha, std::string& msg) override;
    void Desconecta() override;
    bool Conectado() const override { return db_ != nullptr; }
    std::unique_ptr<Comando> Prepara(const std::string& texto, bool avulso, std::string& msg) override;
    std::string Executa(Comando& c, const Valor::Lista& valores, TabelaResultado& tabela, bool comColunas,
                        std::string& msg) override;
    std::string Confirma(std::string& msg) override;
    std::string Desfaz(std::string& msg) override;
    std::string AbreUnidadeRetida(std::string& msg) override { return Simples("BEGIN IMMEDIATE", msg); }
    std::string AbreUnidadeTravada(const std::string& chave, std::string& msg) override;
    std::string ComandoNaUnidade(const char* sql, std::string& msg) override { return Simples(sql, msg); }
    std::string DesfazUnidadeRetida(std::string& msg) override { return Desfaz(msg); }

  private:
    struct ComandoSqlite;
    std::string Simples(const char* sql, std::string& msg);
    std::string Falha(int rc, std::string& msg);

    sqlite3* db_ = nullptr;
};

} // namespace ztolvan
