#pragma once
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "data/conector.h"

namespace ztolvan {

// What both connectors share: the command words, the table of handles, the
// buffered results and their moves. A database kind supplies connecting,
// preparing, running and ending a unit of change.
class ConectorComum : public ConectorBD {
  public:
    void ZConnectOpen(std::string& Servidor, std::string& Banco, std::string& Usuario, std::string& Senha,
                      int16_t& Conexao, std::string& Status, std::string& Msg) final;
    void Processa(int16_t& Conexao, std::string& Transacao, int16_t& Cursor, std::string& Status,
                  std::string& Msg, Valor& Dados, Valor& Retorno) final;
    void ZConnectClose(int16_t& Conexao) final;
    void Consulta(int16_t Conexao, const std::string& Texto, TabelaResultado& Tabela, std::string& Status,
                  std::string& Msg) final;
    bool RetemAlteracoes(bool reter, std::string& msg) final;
    bool TravaParaAlterar(const std::string& chave, std::string& msg) final;
    // Where the database runs in this process there is no one to work
    // meanwhile: the query runs when it is asked for.
    void Antecipa(const std::string&) override {}

    // The command words a call can carry.
    enum class Palavra {
        Prepare, Commit, Rollback, Open, Requery, Execute, Next, Prev, First, Last, Close,
        SemSuporte, // a word of the contract this connector does not take
        Desconhecida
    };

  protected:
    // A prepared statement of the database kind.
    struct Comando {
        virtual ~Comando() = default;
        virtual int Parametros() const = 0;
        // True when the statement returns rows.
        virtual bool EhConsulta() const = 0;
    };

    virtual bool Conecta(const std::string& Servidor, const std::string& Banco, const std::string& Usuario,
                         const std::string& Senha, std::string& msg) = 0;
    virtual void Desconecta() = 0;
    virtual bool Conectado() const = 0;
    // nullptr with msg on failure. An avulso statement runs once (a text sent
    // with handle 0): the kind need not keep it prepared.
    virtual std::unique_ptr<Comando> Prepara(const std::string& texto, bool avulso, std::string& msg) = 0;
    // Runs the statement with its values. A query fills tabela (column names
    // only when comColunas); a change runs inside the pending unit of change,
    // which the kind opens on the first change. Returns the status code.
    virtual std::string Executa(Comando& c, const Valor::Lista& valores, TabelaResultado& tabela,
                                bool comColunas, std::string& msg) = 0;
    virtual std::string Confirma(std::string& msg) = 0;
    virtual std::string Desfaz(std::string& msg) = 0;
    // The held unit of a preview: opened, a command word run inside it
    // ("SAVEPOINT ...", "RELEASE ..."), and undone whole.
    virtual std::string AbreUnidadeRetida(std::string& msg) = 0;
    virtual std::string ComandoNaUnidade(const char* sql, std::string& msg) = 0;
    virtual std::string DesfazUnidadeRetida(std::string& msg) = 0;
    // The unit of change opened (when none is) under the lock of 'chave'.
    virtual std::string AbreUnidadeTravada(const std::string& chave, std::string& msg) = 0;

  private:
    struct Cursor {
        std::unique_ptr<Comando> comando;
        TabelaResultado resultado;
        long posicao = -1;
        bool aberto = false;
        bool avulso = false; // opened from a statement text: freed on CLOSE
    };

    Cursor* Acha(int16_t handle);
    int16_t Guarda(Cursor c);
    void Roda(Cursor& c, const Valor& dados, std::string& Status, std::string& Msg, Valor& Retorno);
    void Move(Cursor& c, Palavra palavra, std::string& Status, std::string& Msg, Valor& Retorno);
    void ProcessaPalavra(Palavra palavra, const std::string& transacao, int16_t& Cursor, std::string& Status,
                         std::string& Msg, Valor& Dados, Valor& Retorno);

    std::vector<std::optional<Cursor>> cursores_; // index = handle
    int16_t conexao_ = 0;
    bool retendo_ = false;
    Valor reserva_; // the row handed back before this call, reused for the next
};

} // namespace ztolvan
