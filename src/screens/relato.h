#pragma once
#include <string>

#include "common/erro.h"

namespace ztolvan {

// The three ways a screen procedure reports an unexpected run-time error.
enum class EstiloErro {
    // "Atenção! erro não previsto na função - <proc>", critical, titled "Aviso",
    // with the detail "Erro na linha : ..." and the operator.
    Previsto,
    // Through sbGeraLog: "<number>, <description> Linha: <line>", shown.
    Log,
    // "Ocorreu um Erro Crítico - <description>", titled label + application.
    Critico,
};

// The component's application name, as reports and titles give it.
inline constexpr const char* NomeAplicacao = "ztolvan";

void RelataErro(EstiloErro estilo, const std::string& procedimento, const std::string& formulario, int linha,
                long numero, const std::string& descricao);

// Runs one procedure of a screen: corpo(linha) keeps 'linha' at the step it
// is on; a run-time error ends the procedure and is reported in its style.
// False when an error was reported.
template <class F>
bool Protegido(EstiloErro estilo, const std::string& procedimento, const std::string& formulario, F&& corpo) {
    int linha = 0;
    try {
        corpo(linha);
        return true;
    } catch (const ErroExecucao& e) {
        RelataErro(estilo, procedimento, formulario, linha, e.Numero(), e.Descricao());
    } catch (const std::exception& e) {
        RelataErro(estilo, procedimento, formulario, linha, 0, e.what());
    }
    return false;
}

} // namespace ztolvan
