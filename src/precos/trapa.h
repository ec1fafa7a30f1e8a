#pragma once
// How a generation procedure ends on an unexpected run-time error: it shows
// "Atenção! erro não previsto na função - <proc>" (critical, titled "Aviso")
// with the detail "Erro na linha : <line> - <description> na função <proc>
// no Formulário <screen>" and the operator, and leaves the procedure; what it
// wrote before stays written.
#include <exception>
#include <string>

#include "common/erro.h"

namespace ztolvan {

void RelataErroGeracao(const std::string& procedimento, const std::string& formulario, int linha,
                       const std::string& descricao);

// Runs corpo(linha), which keeps 'linha' at the step it is on; false when an
// error was reported.
template <class F> bool Trapa(const std::string& procedimento, const std::string& formulario, F&& corpo) {
    int linha = 0;
    try {
        corpo(linha);
        return true;
    } catch (const ErroExecucao& e) {
        RelataErroGeracao(procedimento, formulario, linha, e.Descricao());
    } catch (const std::exception& e) {
        RelataErroGeracao(procedimento, formulario, linha, e.what());
    }
    return false;
}

} // namespace ztolvan
