#pragma once
// What the C entry points share: the handle a host holds, and the
// conversions of its values and texts.
#include <algorithm>
#include <cstring>
#include <string>

#include "ztolvan/consultalista.h"
#include "ztolvan/ztolvan.h"

struct zt_consultalista {
    ztolvan::consultalista instancia;
};

namespace ztolvan::c {

inline Valor ParaValor(const zt_valor& v) {
    switch (v.tipo) {
    case ZT_INTEIRO:
        return Valor(v.inteiro);
    case ZT_DUPLO:
        return Valor(v.duplo);
    case ZT_TEXTO:
        return Valor(std::string(v.texto ? v.texto : ""));
    default:
        return Valor();
    }
}

// ZDadosVendas from the host's array; empty when none was passed.
inline Valor Vetor(const zt_valor* dados, size_t n) {
    if (!dados) return Valor();
    Valor::Lista l;
    l.reserve(n);
    for (size_t i = 0; i < n; ++i)
        l.push_back(ParaValor(dados[i]));
    return Valor(std::move(l));
}

// Into the host's buffer, cut to its size on a whole character.
inline void Copia(const std::string& s, char* destino, size_t tamanho) {
    if (!destino || tamanho == 0) return;
    size_t n = std::min(s.size(), tamanho - 1);
    // A cut text still ends on a whole character: no half of a "»" or "ã".
    if (n < s.size())
        while (n > 0 && (static_cast<unsigned char>(s[n]) & 0xC0) == 0x80)
            --n;
    std::memcpy(destino, s.data(), n);
    destino[n] = '\0';
}

} // namespace ztolvan::c
