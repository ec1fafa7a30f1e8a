#pragma once
// A record of the modules with the named columns set, every other at its
// empty value: expected rows and inputs written as tables.
#include <gtest/gtest.h>

#include <initializer_list>
#include <utility>

#include "common/conversao.h"
#include "data/modules/registro.h"

namespace ztolvan::teste {

template <class R> R Registro(std::initializer_list<std::pair<const char*, Valor>> campos) {
    R r;
    for (const auto& [nome, v] : campos) {
        const Coluna* col = R::Colunas().Acha(nome);
        if (!col) {
            ADD_FAILURE() << "no column " << nome;
        } else if (col->tipo == TipoCampo::Texto) {
            col->guardaTexto(&r, CStr(v));
        } else {
            col->guardaNumero(&r, ConverteNumero(*col, v));
        }
    }
    return r;
}

} // namespace ztolvan::teste
