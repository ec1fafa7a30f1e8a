#include "common/valor.h"

#include "common/erro.h"

namespace ztolvan {

const Valor& Valor::operator[](size_t i) const {
    if (!eLista() || i >= lista().size()) throw ErroExecucao::SubscritoForaDoIntervalo();
    return lista()[i];
}

} // namespace ztolvan
