#pragma once
#include <memory>

#include "common/contexto.h"
#include "common/mensagens.h"
#include "common/portas.h"
#include "screens/janelas.h"

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

} // namespace ztolvan::teste
