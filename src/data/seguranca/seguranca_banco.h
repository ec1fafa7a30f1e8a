#pragma once
#include <memory>
#include <string>
#include <vector>

#include "common/seguranca.h"
#include "data/seguranca/autorizacao.h"

namespace ztolvan {

// The security component over the thread's connection. Rights are rows of
// TBSEGDIREITO (operator, program, function, PERMITE 1 or 0); operators who
// may authorise others have a password hash in TBSEGOPERADOR. Names compare
// trimmed and upper-cased.
//
// A check passes at once when the operator has the right. Otherwise, unless
// Codigo is seguranca::SoConsulta, it asks the authorisation port for an
// operator and password, and passes when that operator has the right and the
// password matches; OperadorCopia then names the authorising operator.
// Anything else (no answer, wrong password, no right, a database failure) is
// a refusal. It only reads, so a check in the middle of a unit of change
// neither commits nor disturbs it, and it leaves Comunica as it was.
class SegurancaBanco : public PortaSeguranca {
  public:
    explicit SegurancaBanco(std::shared_ptr<PortaAutorizacao> autorizacao)
        : autorizacao_(std::move(autorizacao)) {}
    void ZProcessa(int16_t Codigo, const std::string& Programa, const std::string& Funcao,
                   std::string& OperadorCopia, int16_t& Resultado, const std::string& TextoPassado,
                   const std::string& TextoSobrepoe) override;

  private:
    std::shared_ptr<PortaAutorizacao> autorizacao_;
};

// For Portas::seguranca: each thread gets its own SegurancaBanco over the
// same authorisation port.
FabricaSeguranca FabricaSegurancaBanco(std::shared_ptr<PortaAutorizacao> autorizacao);

// The tables' DDL for SQLite (postgres false) or PostgreSQL.
std::vector<std::string> DdlSeguranca(bool postgres);
// Creates the tables (when missing) through the thread's connection and commits.
bool CriaTabelasSeguranca(std::string& Msg);

// Whether the operator holds the right; false also when it cannot be read.
bool TemDireito(const std::string& Operador, const std::string& Programa, const std::string& Funcao);

// Seeding: create or replace an operator's password, or a right. Each is a
// unit of its own: it commits the thread's pending changes, or rolls them
// back when it fails, so call it outside generation. An empty password is
// refused.
bool GravaOperadorSeguranca(const std::string& Operador, const std::string& Senha, std::string& Msg);
bool GravaDireito(const std::string& Operador, const std::string& Programa, const std::string& Funcao,
                  bool Permite, std::string& Msg);

} // namespace ztolvan
