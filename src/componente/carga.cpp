// Loading the library puts the component together: a host that only creates
// consultalista and calls ZProcessa gets every screen and command.
#include "componente/componente.h"

namespace {
const bool montado = (ztolvan::InstalaComponente(), true);
} // namespace
