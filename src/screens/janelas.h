#pragma once
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "common/telas.h"
#include "screens/controles.h"

namespace ztolvan {

class Tela;

// The window system as the screen models need it, beyond keeping on top,
// letting events run and beeping: modal shows, focus, the "{TAB}" keystroke,
// measuring text and popping a menu up.
class PortaJanelas : public PortaTelas {
  public:
    // Shows a loaded screen and returns once it has unloaded.
    virtual void MostraModal(Tela& t) = 0;
    // Moves the focus to c; the screen's RecebeFoco runs when it arrives.
    virtual void MoveFoco(Tela& t, Controle& c) = 0;
    // Sends "{TAB}" and returns after the focus moved to the next control.
    virtual void EnviaTab(Tela& t) = 0;
    // Width of a text in a font, in twips.
    virtual int LarguraTexto(const Fonte& f, std::string_view texto) = 0;
    virtual int AlturaTexto(const Fonte& f) = 0;
    // Pops a menu tree up at (x, y) twips of the screen; returns when closed.
    virtual void MostraMenu(Tela& t, ItemMenu& raiz, int x, int y) = 0;
};

// The thread's window system: the screens port when it is one, else a
// per-thread JanelasModelo (no window: models are driven directly).
PortaJanelas& JanelasAtuais();

struct ChamadaJanela {
    std::string Operacao; // "Modal", "Foco", "Tab", "Menu", "NoTopo", "Eventos", "Bipe"
    std::string Tela;     // screen name, where there is one
    std::string Controle; // control or menu name, where there is one
    bool Ligar = false;
};

// Drives screen models with no window: a modal show runs the screen's
// Form_Activate and then what the script holds for that screen (the
// operator's actions); a screen still open afterwards is closed as Esc
// would. Focus and Tab move the model's own focus. Text is measured as
// 12 twips a character per point of the font. Every call is recorded.
// Tests and headless runs (batch generation) use it.
class JanelasModelo : public PortaJanelas {
  public:
    void MostraModal(Tela& t) override;
    void MoveFoco(Tela& t, Controle& c) override;
    void EnviaTab(Tela& t) override;
    int LarguraTexto(const Fonte& f, std::string_view texto) override;
    int AlturaTexto(const Fonte& f) override;
    void MostraMenu(Tela& t, ItemMenu& raiz, int x, int y) override;
    bool DefineNoTopo(TelaId tela, bool Ligar) override;
    void ProcessaEventos() override { chamadas.push_back({"Eventos", "", "", false}); }
    void Bipe() override { chamadas.push_back({"Bipe", "", "", false}); }

    // What the operator does on the next modal show of the screen named.
    void AoMostrar(const std::string& tela, std::function<void(Tela&)> acao);
    // Operations recorded so far, of one kind ("Bipe", "Modal" ...).
    size_t Conta(std::string_view operacao) const;

    std::vector<ChamadaJanela> chamadas;
    bool aceitaNoTopo = true;

  private:
    std::map<std::string, std::deque<std::function<void(Tela&)>>> roteiro_;
};

} // namespace ztolvan
