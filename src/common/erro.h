#pragma once
#include <stdexcept>
#include <string>

namespace ztolvan {

// A run-time error of the kind the old run-time raised (overflow, type
// mismatch, subscript out of range). Thrown inside the component only: every
// public entry point and screen event traps it and reports it in its own words.
class ErroExecucao : public std::runtime_error {
  public:
    ErroExecucao(long numero, const std::string& descricao)
        : std::runtime_error(descricao), numero_(numero) {}
    long Numero() const noexcept { return numero_; }
    std::string Descricao() const { return what(); }

    static ErroExecucao Estouro() { return {6, "Estouro"}; }
    static ErroExecucao SubscritoForaDoIntervalo() { return {9, "Subscrito fora do intervalo"}; }
    static ErroExecucao TiposIncompativeis() { return {13, "Tipos incompatíveis"}; }

  private:
    long numero_;
};

} // namespace ztolvan
