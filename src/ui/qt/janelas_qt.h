#pragma once
#include <map>
#include <memory>

#include "screens/janelas.h"

namespace ztolvan {

class VisaoTela;

// The window system over Qt, for the thread the QApplication lives on.
// A modal show builds a VisaoTela, runs Form_Activate, gives the focus and
// runs the dialog until the screen unloads.
class JanelasQt : public PortaJanelas {
  public:
    void MostraModal(Tela& t) override;
    void MoveFoco(Tela& t, Controle& c) override;
    void EnviaTab(Tela& t) override;
    int LarguraTexto(const Fonte& f, std::string_view texto) override;
    int AlturaTexto(const Fonte& f) override;
    void MostraMenu(Tela& t, ItemMenu& raiz, int x, int y) override;
    bool DefineNoTopo(TelaId tela, bool Ligar) override;
    void ProcessaEventos() override;
    void Bipe() override;

    // MostraModal up to the point where it would wait: the view shown,
    // activated and focused. Tests drive it from there.
    static std::unique_ptr<VisaoTela> Abre(Tela& t);

  private:
    // Keep-on-top asked for a screen before its window exists.
    std::map<TelaId, bool> noTopoPendente_;
};

} // namespace ztolvan
