#pragma once
#include <memory>
#include <string>

#include "generation/cotacao/impressora.h"

namespace ztolvan {

// Puts the component together, once per process: generation, the quotation
// print and grouping maintenance behind the consultation screen's commands,
// and ZProcessa's screen option on real windows. The windows come up on the
// first call that asks for a screen, and only when a display can be reached
// and ZTOLVAN_SEM_TELAS is not set; otherwise the option keeps saying the
// screen is not available here. Never throws.
void InstalaComponente();

// A quotation job written to the PDF file 'arquivo', with no window; nullptr
// when this build has no Qt. Never throws.
std::shared_ptr<PortaImpressora> NovaImpressoraPdf(const std::string& arquivo);

} // namespace ztolvan
