#include "common/explicacao.h"

#include "common/contexto.h"

namespace ztolvan::explicacao {
namespace {

struct Estado {
    bool ligada = false;
    Notas notas;
};

Estado& Atual() { return Contexto::Atual().Parte<Estado>(); }

} // namespace

void Liga(bool ligada) {
    Atual().ligada = ligada;
    Atual().notas.clear();
}

bool Ligada() { return Atual().ligada; }

void Comeca() {
    Estado& e = Atual();
    if (e.ligada) e.notas.clear();
}

void Anota(const char* chave, Valor valor) {
    Estado& e = Atual();
    if (!e.ligada) return;
    // A decision taken twice for one item (a second rate lookup) keeps the last.
    for (auto& [k, v] : e.notas)
        if (k == chave) {
            v = std::move(valor);
            return;
        }
    e.notas.emplace_back(chave, std::move(valor));
}

Notas Toma() { return std::move(Atual().notas); }

} // namespace ztolvan::explicacao
