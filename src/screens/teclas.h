#pragma once

namespace ztolvan {

// Key codes and shift states as the screens' key events receive them (the
// old window system's numbering). A handler that sets KeyCode to 0 has
// consumed the key.
namespace tecla {
inline constexpr int Tab = 9;
inline constexpr int Enter = 13;
inline constexpr int Esc = 27;
inline constexpr int Espaco = 32;
inline constexpr int Esquerda = 37;
inline constexpr int Acima = 38;
inline constexpr int Direita = 39;
inline constexpr int Abaixo = 40;
inline constexpr int F1 = 112;
inline constexpr int F2 = 113;
inline constexpr int F3 = 114;
inline constexpr int F4 = 115;
inline constexpr int F5 = 116;
inline constexpr int F6 = 117;
inline constexpr int F7 = 118;
inline constexpr int F8 = 119;
inline constexpr int F11 = 122;
inline constexpr int F12 = 123;
// Letters are their upper-case character code: 'G' is 71.
constexpr int Letra(char c) { return c >= 'a' && c <= 'z' ? c - 32 : c; }
} // namespace tecla

namespace modificador {
inline constexpr int Nenhum = 0;
inline constexpr int Shift = 1;
inline constexpr int Ctrl = 2;
inline constexpr int Alt = 4;
} // namespace modificador

// A menu shortcut: a key with exactly these modifiers.
struct Atalho {
    int Tecla = 0;
    int Modificadores = modificador::Nenhum;
    bool Vazio() const { return Tecla == 0; }
    bool operator==(const Atalho&) const = default;
};

} // namespace ztolvan
