#pragma once
#include <memory>

#include "entry/telas_componente.h"

namespace ztolvan {

// The real screens for ZProcessa's screen option: the grouping consultation
// (TolvanF01) and the price consultation (TolvanF07), shown through the
// thread's window system.
std::unique_ptr<TelasComponente> CriaTelasDoComponente();
// Installs them for every thread, whatever its window system (tests drive
// them with the display-free one).
void InstalaTelas();

} // namespace ztolvan
