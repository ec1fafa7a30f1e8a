#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "common/valor.h"
#include "data/linhas_lidas.h"

namespace ztolvan {

// A buffered result with its column names, for the database object's record set.
struct TabelaResultado {
    std::vector<std::string> colunas;
    LinhasLidas linhas;
};

// The suite's database connector. The three operations of the contract take
// their arguments by reference, in the order of the Comunica fields.
class ConectorBD {
  public:
    virtual ~ConectorBD() = default;
    virtual void ZConnectOpen(std::string& Servidor, std::string& Banco, std::string& Usuario,
                              std::string& Senha, int16_t& Conexao, std::string& Status,
                              std::string& Msg) = 0;
    virtual void Processa(int16_t& Conexao, std::string& Transacao, int16_t& Cursor, std::string& Status,
                          std::string& Msg, Valor& Dados, Valor& Retorno) = 0;
    virtual void ZConnectClose(int16_t& Conexao) = 0;

    // Runs a statement text and hands back every row with the column names
    // (the database object's path). Status and Msg as in Processa.
    virtual void Consulta(int16_t Conexao, const std::string& Texto, TabelaResultado& Tabela,
                          std::string& Status, std::string& Msg) = 0;
    // Which kind this is: "ACCESS" (desktop file) or "SERVIDOR".
    virtual const char* Tipo() const = 0;
    // A preview: from 'reter' true, every change of the connection is held
    // in one unit. COMMIT answers as usual and keeps what came before it,
    // ROLLBACK undoes back to the last COMMIT, and every read sees what is
    // held, so a run numbers and answers as a real one would. 'reter' false
    // undoes all of it. false with msg when the unit cannot be opened.
    virtual bool RetemAlteracoes(bool reter, std::string& msg) = 0;
    // Opens the next change's unit now, before the reads it depends on,
    // under a lock on 'chave' that the same call on another connection
    // waits for; the unit's COMMIT or ROLLBACK releases it. Inside a
    // preview's held unit nothing is needed. false with msg when the lock
    // cannot be had.
    virtual bool TravaParaAlterar(const std::string& chave, std::string& msg) = 0;
    // A query the caller will run next through Consulta, with the same
    // text, started now: a server works on it while the caller goes on, and
    // that Consulta takes its rows. Any other statement before it drops the
    // early one first, so the rows never miss a change this connection made.
    // Another terminal's commit between the two calls may be missed, as it
    // may be by any query already running.
    virtual void Antecipa(const std::string& Texto) = 0;
};

} // namespace ztolvan
