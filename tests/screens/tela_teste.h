#pragma once
#include <algorithm>
#include <memory>
#include <string>

#include "common/contexto.h"
#include "common/mensagens.h"
#include "common/portas.h"
#include "screens/auxiliary/tolvanf02.h"
#include "screens/consultation/tolvanf01.h"
#include "screens/janelas.h"
#include "screens/teclas.h"

namespace ztolvan::teste {

// A thread with the display-free window system and scripted messages.
struct TelasDeTeste {
    TelasDeTeste() {
        Contexto::Renova();
        PortasAtuais().telas = janelas;
        PortasAtuais().mensagens = mensagens;
    }
    ~TelasDeTeste() { Contexto::Renova(); }
    std::shared_ptr<JanelasModelo> janelas = std::make_shared<JanelasModelo>();
    std::shared_ptr<MensagensGravadas> mensagens = std::make_shared<MensagensGravadas>();
};

// When the groupings list opens: the operator picks the first name starting
// with 'inicio' and presses Enter.
inline void EscolheNaLista(JanelasModelo& janelas, std::string inicio) {
    janelas.AoMostrar("TolvanF02", [inicio](Tela& t) {
        auto& l = static_cast<TolvanF02&>(t).lstProdutosAgrupados;
        auto it = std::find_if(l.Itens.begin(), l.Itens.end(), [&](auto& n) { return n.starts_with(inicio); });
        l.ListIndex = static_cast<int>(it - l.Itens.begin());
        t.Tecla(&l, tecla::Enter, 0);
    });
}

// The consultation screen's search: by code (1) or name (2), then Enter.
inline void Busca(TolvanF01& f, int tipo, const std::string& texto) {
    f.cboPesquisa.Seleciona(tipo);
    f.txtPesquisa.Digita(texto);
    f.Tecla(&f.txtPesquisa, tecla::Enter, 0);
}

} // namespace ztolvan::teste
