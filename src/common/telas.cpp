#include "common/telas.h"

#include "common/portas.h"

namespace ztolvan {

bool TelasGravadas::DefineNoTopo(TelaId tela, bool Ligar) {
    chamadas.push_back({"NoTopo", tela, Ligar});
    return aceitaNoTopo;
}

bool MantemNoTopo(TelaId tela, bool Ligar) {
    try {
        auto& telas = PortasAtuais().telas;
        return telas && tela && telas->DefineNoTopo(tela, Ligar);
    } catch (...) {
        return false;
    }
}

void DoEvents() {
    try {
        if (auto& telas = PortasAtuais().telas) telas->ProcessaEventos();
    } catch (...) {
    }
}

void Beep() {
    try {
        if (auto& telas = PortasAtuais().telas) telas->Bipe();
    } catch (...) {
    }
}

} // namespace ztolvan
