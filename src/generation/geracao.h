#pragma once
// Document generation: the marked rows of the consultation screen's item
// grid become item rows of the document the host holds open (sales order,
// purchase order or store document), each priced, taxed and committed by
// itself.
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "screens/grade.h"

namespace ztolvan {

class TolvanF01;

// What generation reads from and does to the consultation screen: the item
// grid, the grouping grid, the open grouping's name (the caption of LNome)
// and closing the screen.
struct TelaGeracao {
    Grade& GCon1;
    Grade& MSFGAgrupamento;
    const std::string& NomeAgrupamento;
    std::function<void()> sbSair;
    // Told, at most every 100 ms, how many marked rows a long run has reached.
    std::function<void(int feitos, int marcados)> andamento = {};
};

// The text of a generation's progress: "Gerando item 120 de 2.000".
std::string TextoAndamento(int feitos, int marcados);
// A thread's extra watcher of progress (the command line's terminal line);
// empty for none.
void DefineObservadorAndamento(std::function<void(int feitos, int marcados)> observador);

// The generate command: checks a row is marked, asks the multiplier
// (TolvanF05) and runs the generator of the session's origin.
void sbGerarDocumento(TelaGeracao& tela);
void sbGerarDocumento(TolvanF01& f);
// Hands the command to the consultation screen (once per process).
void InstalaGeracao();

// Commits through the grouping module and reports a failure.
void FazCommit();

// Store document (origin "D").
void ConfDocumento();
void GeraDocumento(TelaGeracao& tela);
void BloqMaterial();

// Sales order (origin "V").
void GeraVenda(TelaGeracao& tela);
void IncluiPevDc();
// Rewrites the order header's operation code; Resultado = status "/" message.
void fcAtualizarPedidoVenda(int16_t& Empresa, int32_t& NumPed, const std::string& NatOper,
                            std::string& Resultado);

// Purchase order (origin "C").
void GeraCompra(TelaGeracao& tela);
// Fills the cost columns of the item from the supplier's cost record and
// sets the net cost; false when the product has no cost record (the net cost
// is then left as it was).
bool LerCusto(double& Custo);
void LerFornecedor();

// The item numbers the last generation of this thread wrote, in order.
const std::vector<int32_t>& ItensGerados();

} // namespace ztolvan
