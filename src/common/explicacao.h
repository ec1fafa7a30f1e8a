#pragma once
// Why a generated line has its price and its taxes, noted by the pricing
// and tax code as it decides: the price's source, the tax route, which rate
// row supplied each rate. Off unless a host asks (gerar --json): then each
// decision adds one note to the item being generated. Per thread.
#include <string>
#include <utility>
#include <vector>

#include "ztolvan/valor.h"

namespace ztolvan {

using Notas = std::vector<std::pair<std::string, Valor>>;

namespace explicacao {

void Liga(bool ligada);
bool Ligada();
// A new item starts: the notes of the previous one are dropped.
void Comeca();
// One decision; nothing happens while explanations are off.
void Anota(const char* chave, Valor valor);
// The current item's notes, handed over.
Notas Toma();

} // namespace explicacao
} // namespace ztolvan
