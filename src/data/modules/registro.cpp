#include "data/modules/registro.h"

#include "common/erro.h"

namespace ztolvan {

const Coluna* TabelaColunas::Acha(std::string_view n) const {
    for (const Coluna& c : colunas)
        if (IguaisSemCaixa(c.nome, n)) return &c;
    return nullptr;
}

std::string TabelaColunas::Lista(std::string_view prefixo) const {
    std::string r;
    for (const Coluna& c : colunas) {
        if (!r.empty()) r += ", ";
        r += prefixo;
        r += c.nome;
    }
    return r;
}

Valor::Lista TabelaColunas::Valores(const void* registro) const {
    Valor::Lista v;
    v.reserve(colunas.size());
    for (const Coluna& c : colunas)
        v.push_back(c.le(registro));
    return v;
}

Numero ConverteNumero(const Coluna& c, const Valor& v) {
    Numero n{};
    switch (c.tipo) {
    case TipoCampo::Int16:
        n.i = CInt(v);
        break;
    case TipoCampo::Int32:
        n.i = CLng(v);
        break;
    case TipoCampo::Duplo:
        n.d = CDbl(v);
        break;
    case TipoCampo::Texto:
        if (v.eLista()) throw ErroExecucao::TiposIncompativeis();
        break;
    }
    return n;
}

} // namespace ztolvan
