#include "common/moeda.h"

#include <cmath>
#include <limits>

#include "common/erro.h"

namespace ztolvan {
namespace {

int64_t Confere(__int128 v) {
    if (v > std::numeric_limits<int64_t>::max() || v < std::numeric_limits<int64_t>::min())
        throw ErroExecucao::Estouro();
    return static_cast<int64_t>(v);
}

// q = n / d rounded to nearest, halves to even.
__int128 DivideParaPar(__int128 n, __int128 d) {
    if (d < 0) n = -n, d = -d;
    __int128 q = n / d, r = n % d;
    if (r < 0) r = -r;
    __int128 dobro = 2 * r;
    if (dobro > d || (dobro == d && (q % 2 != 0))) q += (n < 0 ? -1 : 1);
    return q;
}

} // namespace

Moeda Moeda::DeDuplo(double v) {
    double escalado = std::nearbyint(v * 10000.0);
    if (!std::isfinite(escalado) || escalado >= 9.2233720368547758e18 || escalado < -9.2233720368547758e18)
        throw ErroExecucao::Estouro();
    return DeDezMilesimos(static_cast<int64_t>(escalado));
}

Moeda Moeda::operator+(Moeda o) const { return DeDezMilesimos(Confere(static_cast<__int128>(d_) + o.d_)); }
Moeda Moeda::operator-(Moeda o) const { return DeDezMilesimos(Confere(static_cast<__int128>(d_) - o.d_)); }

Moeda Moeda::operator*(Moeda o) const {
    return DeDezMilesimos(Confere(DivideParaPar(static_cast<__int128>(d_) * o.d_, 10000)));
}

Moeda Moeda::operator/(Moeda o) const {
    if (o.d_ == 0) throw ErroExecucao(11, "Divisão por zero");
    return DeDezMilesimos(Confere(DivideParaPar(static_cast<__int128>(d_) * 10000, o.d_)));
}

} // namespace ztolvan
