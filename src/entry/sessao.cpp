#include "entry/sessao.h"

#include "common/contexto.h"

namespace ztolvan {

Sessao& SessaoAtual() { return Contexto::Atual().Parte<Sessao>(); }

} // namespace ztolvan
