#include "common/regiao.h"

#include <clocale>
#include <cstdlib>
#include <langinfo.h>
#include <locale.h>
#include <memory>

namespace ztolvan {
namespace {

std::string NomeLocale() {
    for (const char* var : {"LC_ALL", "LC_NUMERIC", "LANG"}) {
        const char* v = std::getenv(var);
        if (v && *v) return v;
    }
    return {};
}

bool LocaleNeutro(const std::string& nome) {
    return nome.empty() || nome == "C" || nome == "POSIX" || nome.rfind("C.", 0) == 0;
}

Regiao& Atual() {
    static Regiao r = Regiao::DoAmbiente();
    return r;
}

} // namespace

Regiao Regiao::DoAmbiente() {
    const std::string nome = NomeLocale();
    if (LocaleNeutro(nome)) return PtBr();
    locale_t loc = newlocale(LC_NUMERIC_MASK | LC_MONETARY_MASK, nome.c_str(), nullptr);
    if (!loc) return PtBr();
    Regiao r;
    r.decimal = nl_langinfo_l(RADIXCHAR, loc);
    r.milhar = nl_langinfo_l(THOUSEP, loc);
    std::string moeda = nl_langinfo_l(CRNCYSTR, loc);
    // CRNCYSTR is prefixed with '-', '+' or '.' to tell where the symbol goes.
    if (!moeda.empty() && (moeda[0] == '-' || moeda[0] == '+' || moeda[0] == '.')) moeda.erase(0, 1);
    r.moeda = moeda;
    freelocale(loc);
    if (r.decimal.empty()) r.decimal = ".";
    return r;
}

const Regiao& RegiaoAtual() { return Atual(); }

void DefineRegiao(const Regiao& r) { Atual() = r; }

} // namespace ztolvan
