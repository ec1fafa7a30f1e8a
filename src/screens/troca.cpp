#include "screens/troca.h"

#include "common/contexto.h"

namespace ztolvan {

VariaveisTroca& Troca() { return Contexto::Atual().Parte<VariaveisTroca>(); }

} // namespace ztolvan
