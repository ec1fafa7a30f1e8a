#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace ztolvan {

// The variables the screens exchange values through: the caller sets the
// inputs, shows a dialog modally and reads the outputs. One set per thread;
// they keep their last value between openings.
struct VariaveisTroca {
    // Quantity dialog (TolvanF03).
    int16_t LinhaAlterar = 0;
    std::string DescricaoAlterar;
    std::string FornecedorAlterar;
    double QtdAlterar = 0;
    double PrecoAlterar = 0;
    bool AlteracaoConfirmada = false;
    // Generation multiplier (TolvanF05).
    int16_t QtdGera = 0;
    // Whole groupings the free stock supplies of what generation would take
    // (none: not counted); the multiplier dialog warns above it.
    std::optional<int64_t> AgrupamentosDisponiveis;
    // Groupings list (TolvanF02).
    std::string CodigoSelecionado;
    // The same grouping's code as stored ("000101" where the list hands back
    // "101"): what the searches that follow the list look up.
    std::string CodigoGravado;
    int16_t CursorLista = 0;
    // Equivalence codes of the loaded items, one empty element after the last.
    std::vector<std::string> CodEquivItens;
    // Price type chosen on the maintenance screen.
    int16_t TipoAgrupamento = 0;
};

VariaveisTroca& Troca();

} // namespace ztolvan
