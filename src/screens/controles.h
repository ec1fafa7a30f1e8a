#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "screens/teclas.h"

namespace ztolvan {

// The controls of the screens as plain state. Positions and sizes are in
// twips from the screen's top left corner (frames only group what lies
// inside them), colours are 0xRRGGBB. A model wires its event handlers to the
// control's std::function members; views and tests raise them.

using Cor = uint32_t;
constexpr Cor RGB(int r, int g, int b) {
    return (static_cast<Cor>(r) << 16) | (static_cast<Cor>(g) << 8) | static_cast<Cor>(b);
}
namespace cores {
inline constexpr Cor Branco = RGB(255, 255, 255);
inline constexpr Cor Preto = RGB(0, 0, 0);
inline constexpr Cor CinzaClaro = 0xE0E0E0;
inline constexpr Cor Botao = RGB(212, 208, 200);
} // namespace cores

struct Fonte {
    std::string Nome = "MS Sans Serif";
    double Tamanho = 8;
    bool Negrito = false;
    bool operator==(const Fonte&) const = default;
};

enum class TipoControle {
    Rotulo,
    CaixaTexto,
    ListaSuspensa,
    Lista,
    Botao,
    Forma,
    Moldura,
    Grade,
    BarraTitulo
};

class Controle {
  public:
    Controle() = default;
    Controle(const Controle&) = delete;
    Controle& operator=(const Controle&) = delete;
    virtual ~Controle() = default;
    virtual TipoControle Tipo() const = 0;
    // Whether Tab can stop here (labels, shapes and frames never).
    virtual bool RecebeFoco() const { return true; }

    std::string Name;
    int Left = 0, Top = 0, Width = 0, Height = 0;
    bool Visible = true;
    bool Enabled = true;
    bool TabStop = true;
    int TabIndex = -1;
    std::string ToolTipText;
    Fonte Font;
    Cor ForeColor = cores::Preto;
    Cor BackColor = cores::Branco;

    std::function<void()> Click, DblClick, GotFocus, LostFocus, Change;
    std::function<void(int& KeyCode, int Shift)> KeyDown;

    // Raises an event when the model wired one.
    static void Dispara(const std::function<void()>& f) {
        if (f) f();
    }
};

class Rotulo : public Controle {
  public:
    TipoControle Tipo() const override { return TipoControle::Rotulo; }
    bool RecebeFoco() const override { return false; }
    std::string Caption;
    bool AutoSize = false;
    bool Opaco = false; // BackStyle: opaque background
    bool WordWrap = false;
};

// A text field; with Mask or Format it is the masked kind.
class CaixaTexto : public Controle {
  public:
    TipoControle Tipo() const override { return TipoControle::CaixaTexto; }
    std::string Text;
    int SelStart = 0;
    int SelLength = 0;
    // "9" a digit or blank; other characters stand as they are. Empty: any text.
    std::string Mask;
    // Display format of a number while the field has no focus ("###,###,##0.00").
    std::string Format;
    char PromptChar = '_';
    int MaxLength = 0; // 0: no limit
    bool Locked = false;
    // Several lines, broken by "\r\n" as the old text box kept them (a break
    // counts two towards MaxLength). Enter breaks a line unless the screen
    // takes it; Tab still moves on.
    bool MultiLine = false;

    // Text typed or pasted by the operator: the mask keeps what fits and the
    // length limit cuts; the caret goes to the end and Change runs.
    void Digita(std::string_view texto);
    // What the field shows: the Format applied to a numeric text while the
    // field has no focus, else the text.
    std::string TextoExibido(bool comFoco) const;
    // Selects the whole text (what a field does when entered, in most screens).
    void SelecionaTudo();
    // Selects from the start as many characters as the trimmed text has
    // (trailing blanks stay out), as the point-of-sale and print screens do.
    void SelecionaAparado();
};

// Text kept as the mask allows: "9" positions take a digit or a blank, so
// "999" keeps at most three digits. Other mask characters are literals.
std::string AplicaMascara(std::string_view mascara, std::string_view texto);

class ListaSuspensa : public Controle {
  public:
    TipoControle Tipo() const override { return TipoControle::ListaSuspensa; }
    std::vector<std::string> Itens;
    std::vector<int32_t> ItemData;
    int ListIndex = -1;

    void AddItem(std::string texto);
    void Clear();
    int ListCount() const { return static_cast<int>(Itens.size()); }
    std::string Text() const;
    // Selects an entry as the operator would: Click runs when it changes.
    void Seleciona(int indice);
};

class Lista : public Controle {
  public:
    TipoControle Tipo() const override { return TipoControle::Lista; }
    std::vector<std::string> Itens;
    std::vector<int32_t> ItemData;
    int ListIndex = -1;
    // Bumped whenever the entries change, so a view refreshes only then.
    uint64_t Versao = 0;

    void AddItem(std::string texto);
    void Clear();
    int ListCount() const { return static_cast<int>(Itens.size()); }
    int NewIndex() const { return ListCount() - 1; }
};

class Botao : public Controle {
  public:
    TipoControle Tipo() const override { return TipoControle::Botao; }
    std::string Caption;
};

class Forma : public Controle {
  public:
    TipoControle Tipo() const override { return TipoControle::Forma; }
    bool RecebeFoco() const override { return false; }
    Cor FillColor = cores::Branco;
    Cor BorderColor = cores::Preto;
    int BorderWidth = 1;
    bool Preenchida = false;  // FillStyle solid
    bool Transparente = true; // BackStyle transparent
};

class Moldura : public Controle {
  public:
    TipoControle Tipo() const override { return TipoControle::Moldura; }
    bool RecebeFoco() const override { return false; }
    std::string Caption;
};

// The suite's title bar: a caption with the company and operator, and a
// menu event on which the screen pops its menu tree up.
class BarraTitulo : public Controle {
  public:
    TipoControle Tipo() const override { return TipoControle::BarraTitulo; }
    bool RecebeFoco() const override { return false; }
    std::string Caption;
    int16_t Empresa = 0;
    std::string Operador;
    std::function<void()> Menu;
    // "Caption - Empresa N - Operador X", what the bar shows.
    std::string TextoCompleto() const;
};

// A menu item; the tree hangs from the screen's root items.
class ItemMenu {
  public:
    ItemMenu() = default;
    ItemMenu(const ItemMenu&) = delete;
    ItemMenu& operator=(const ItemMenu&) = delete;

    std::string Name;
    std::string Caption;
    bool Visible = true;
    bool Enabled = true;
    Atalho Shortcut;
    std::vector<ItemMenu*> Filhos;
    std::function<void()> Click;

    ItemMenu& Adiciona(ItemMenu& filho) {
        Filhos.push_back(&filho);
        return *this;
    }
};

} // namespace ztolvan
