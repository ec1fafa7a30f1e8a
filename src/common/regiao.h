#pragma once
#include <string>

namespace ztolvan {

// Regional conventions that number conversions and formats follow.
struct Regiao {
    std::string decimal = ",";
    std::string milhar = ".";
    std::string moeda = "R$";

    // Read once from the process locale (LC_ALL, LC_NUMERIC, LANG); pt_BR
    // conventions when the locale is C, POSIX or cannot be loaded.
    static Regiao DoAmbiente();
    static Regiao PtBr() { return {}; }
};

const Regiao& RegiaoAtual();
// For tests and hosts that impose their own conventions; call before any
// thread starts converting.
void DefineRegiao(const Regiao& r);

} // namespace ztolvan
