#pragma once
#include <cstdint>
#include <string>

#include "data/conector.h"

namespace ztolvan {

// The suite's database object: list queries over the thread's connection,
// with the rows in a record set read by column name.
struct Campo {
    Valor Value;
};

class RecordSet {
  public:
    RecordSet() = default;
    explicit RecordSet(TabelaResultado t) : tabela_(std::move(t)) { Le(); }
    bool Eof() const { return posicao_ >= tabela_.linhas.size(); }
    // Column by name, any case; ErroExecucao 3265-like when there is no such
    // column or no current row.
    Campo Fields(const std::string& nome) const;
    // The position of a column, looked up once for a walk over many rows
    // (same error as Fields when there is none), and a field by position.
    size_t Indice(const std::string& nome) const;
    const Valor& ValorNa(size_t indice) const;
    void MoveFirst() {
        posicao_ = 0;
        Le();
    }
    void MoveNext() {
        if (Eof()) return;
        ++posicao_;
        Le();
    }
    size_t RecordCount() const { return tabela_.linhas.size(); }

  private:
    // The current row made into values once, for every field read of it.
    void Le() {
        if (!Eof()) tabela_.linhas.Copia(posicao_, atual_);
    }

    TabelaResultado tabela_;
    size_t posicao_ = 0;
    Valor::Lista atual_;
};

struct ResultadoComando {
    std::string situacao;
    std::string mensagem;
    RecordSet rsDadosRetorno;
};

class clsBancoDados {
  public:
    // The thread's connection stands for every connection number.
    bool fcAbreBancoDadosVeltra(int16_t conexao);
    // The third argument (always false in the component) is accepted and has no effect.
    ResultadoComando fcExecutaComando(int16_t conexao, const std::string& texto, bool flag);
    // Starts the query that the next fcExecutaComando will run with the same
    // text, so that the database works on it while the caller does.
    void Antecipa(int16_t conexao, const std::string& texto);
};

} // namespace ztolvan
