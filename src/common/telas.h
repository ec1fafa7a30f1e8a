#pragma once
#include <string>
#include <vector>

namespace ztolvan {

// A screen as the window system knows it: the address of the screen's model
// (pass `this`). The real port maps it to its window.
using TelaId = const void*;

// The window system as the screens need it.
class PortaTelas {
  public:
    virtual ~PortaTelas() = default;
    // Puts the screen's window above all others (Ligar) or back among them,
    // without moving or resizing it; true when the window system did it.
    virtual bool DefineNoTopo(TelaId tela, bool Ligar) = 0;
    // Lets pending input and paint events run (long loads stay responsive).
    virtual void ProcessaEventos() = 0;
    virtual void Bipe() = 0;
};

// Without a window system: nothing is shown, so nothing can be kept on top.
class TelasSemJanela : public PortaTelas {
  public:
    bool DefineNoTopo(TelaId, bool) override { return false; }
    void ProcessaEventos() override {}
    void Bipe() override {}
};

struct ChamadaTela {
    std::string Operacao; // "NoTopo", "Eventos" or "Bipe"
    TelaId Tela = nullptr;
    bool Ligar = false;
};

// Keeps every call; DefineNoTopo answers `aceitaNoTopo`.
class TelasGravadas : public PortaTelas {
  public:
    bool DefineNoTopo(TelaId tela, bool Ligar) override;
    void ProcessaEventos() override { chamadas.push_back({"Eventos", nullptr, false}); }
    void Bipe() override { chamadas.push_back({"Bipe", nullptr, false}); }

    bool aceitaNoTopo = true;
    std::vector<ChamadaTela> chamadas;
};

// Keeps the screen above all other windows or releases it; true when the
// window system did it. Never throws.
bool MantemNoTopo(TelaId tela, bool Ligar);
// The old run-time's DoEvents and Beep through the thread's screens port.
void DoEvents();
void Beep();

} // namespace ztolvan
