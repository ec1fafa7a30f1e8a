#pragma once
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "screens/controles.h"

namespace ztolvan {

// Why a screen is asked to close (Form_QueryUnload's UnloadMode).
namespace fechamento {
inline constexpr int MenuDeControle = 0; // the window's close box, Alt+F4
inline constexpr int PeloCodigo = 1;     // Unload from the screen's own code
inline constexpr int PeloSistema = 2;    // the session or host ends
} // namespace fechamento

// A screen: its caption, size in twips, the controls in z-order (first is
// at the back), menus, focus and the load/unload cycle. A model derives
// from it, registers its member controls and overrides the form events.
class Tela {
  public:
    explicit Tela(std::string nome);
    Tela(const Tela&) = delete;
    Tela& operator=(const Tela&) = delete;
    virtual ~Tela();

    std::string Name;
    std::string Caption;
    int Width = 0, Height = 0;
    // The screen sees every key before the focused control.
    bool KeyPreview = true;
    // Kept above every other window.
    bool NoTopo = false;

    // Controls in z-order. Registered members are owned by the model; the
    // ones added at run time (the information strip) by the screen.
    const std::vector<Controle*>& Controls() const { return controles_; }
    Controle* Acha(std::string_view nome) const;
    void Registra(Controle& c, std::string nome, int left, int top, int width, int height, int tabIndex = -1);
    Controle& Adiciona(std::unique_ptr<Controle> c);
    // Removes the run-time controls whose name starts with the prefix.
    void RemovePorPrefixo(std::string_view prefixo);
    // z-order: to the front (0) or to the back (1).
    void ZOrder(Controle& c, int posicao);
    // Bumped whenever controls come or go or change z-order.
    uint64_t VersaoControles() const { return versaoControles_; }

    // Root items of the menu tree.
    std::vector<ItemMenu*> Menus;
    // Every item of the tree, depth first.
    std::vector<ItemMenu*> TodosOsMenus() const;

    // Focus. ActiveControl is the control that last received it.
    Controle* ActiveControl() const { return ativo_; }
    // Asks the window system to move the focus there; the control's GotFocus
    // runs when it arrives (RecebeFoco).
    void SetFocus(Controle& c);
    // The focus arrived at c (the window system tells): LostFocus of the
    // old one, GotFocus of the new one.
    void RecebeFoco(Controle& c);
    // Controls that Tab visits, in TabIndex order.
    std::vector<Controle*> OrdemTab() const;
    Controle* ProximoNaOrdem(const Controle* atual) const;

    // A key pressed on control 'alvo' (nullptr: the screen itself). With
    // KeyPreview the screen's Form_KeyDown sees it first; then the menu
    // shortcuts; then the control's KeyDown. Returns the key code left over: 0 when consumed, else what the
    // control should still do with it. Errors are the handlers' own business.
    int Tecla(Controle* alvo, int KeyCode, int Shift);

    // Load and unload. Carrega runs Form_Load once per opening.
    bool Carregada() const { return carregada_; }
    void Carrega();
    // Unload from the screen's own code: Form_QueryUnload, Form_Unload, closed.
    void Unload();
    // The window's close box or Alt+F4: the screen may refuse. True when it closed.
    bool PedeFechamento(int modo = fechamento::MenuDeControle);

    virtual void Form_Load() {}
    virtual void Form_Activate() {}
    virtual void Form_KeyDown(int& /*KeyCode*/, int /*Shift*/) {}
    virtual void Form_QueryUnload(int& /*Cancel*/, int /*UnloadMode*/) {}
    virtual void Form_Unload(int& /*Cancel*/) {}

  private:
    bool Fecha(int modo);

    std::vector<Controle*> controles_;
    std::vector<std::unique_ptr<Controle>> dinamicos_;
    Controle* ativo_ = nullptr;
    bool carregada_ = false;
    uint64_t versaoControles_ = 0;
};

// Shows the screen modally: loads it (Form_Load), and hands it to the
// thread's window system, which returns when the screen has unloaded.
void MostraModal(Tela& t);

} // namespace ztolvan
