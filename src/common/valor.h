#pragma once
// Valor is part of the public API; the core reaches it under this name too.
#include "ztolvan/valor.h"
