#include "ui/qt/teclas_qt.h"

#include <QKeyEvent>
#include <array>
#include <utility>

namespace ztolvan {
namespace {

// Keys whose codes are not their own character.
constexpr std::array<std::pair<int, int>, 32> tabela = {{
    {Qt::Key_Backspace, 8}, {Qt::Key_Tab, 9},           {Qt::Key_Backtab, 9},     {Qt::Key_Return, 13},
    {Qt::Key_Enter, 13},    {Qt::Key_Shift, 16},        {Qt::Key_Control, 17},    {Qt::Key_Alt, 18},
    {Qt::Key_Pause, 19},    {Qt::Key_CapsLock, 20},     {Qt::Key_Escape, 27},     {Qt::Key_Space, 32},
    {Qt::Key_PageUp, 33},   {Qt::Key_PageDown, 34},     {Qt::Key_End, 35},        {Qt::Key_Home, 36},
    {Qt::Key_Left, 37},     {Qt::Key_Up, 38},           {Qt::Key_Right, 39},      {Qt::Key_Down, 40},
    {Qt::Key_Print, 44},    {Qt::Key_Insert, 45},       {Qt::Key_Delete, 46},     {Qt::Key_Semicolon, 186},
    {Qt::Key_Equal, 187},   {Qt::Key_Comma, 188},       {Qt::Key_Minus, 189},     {Qt::Key_Period, 190},
    {Qt::Key_Slash, 191},   {Qt::Key_BracketLeft, 219}, {Qt::Key_Backslash, 220}, {Qt::Key_BracketRight, 221},
}};

// The number pad has codes of its own.
int CodigoTecladoNumerico(int k) {
    if (k >= Qt::Key_0 && k <= Qt::Key_9) return 96 + (k - Qt::Key_0);
    switch (k) {
    case Qt::Key_Asterisk:
        return 106;
    case Qt::Key_Plus:
        return 107;
    case Qt::Key_Minus:
        return 109;
    case Qt::Key_Period:
    case Qt::Key_Comma:
        return 110;
    case Qt::Key_Slash:
        return 111;
    default:
        return 0;
    }
}

} // namespace

int CodigoTecla(int k, Qt::KeyboardModifiers mods) {
    if (mods.testFlag(Qt::KeypadModifier))
        if (int c = CodigoTecladoNumerico(k)) return c;
    if ((k >= Qt::Key_A && k <= Qt::Key_Z) || (k >= Qt::Key_0 && k <= Qt::Key_9)) return k;
    if (k >= Qt::Key_F1 && k <= Qt::Key_F24) return tecla::F1 + (k - Qt::Key_F1);
    for (const auto& [qt, codigo] : tabela)
        if (qt == k) return codigo;
    return 0;
}

int CodigoTecla(const QKeyEvent& e) { return CodigoTecla(e.key(), e.modifiers()); }

int ModificadoresSistema(Qt::KeyboardModifiers mods) {
    return (mods.testFlag(Qt::ShiftModifier) ? modificador::Shift : 0) |
           (mods.testFlag(Qt::ControlModifier) ? modificador::Ctrl : 0) |
           (mods.testFlag(Qt::AltModifier) ? modificador::Alt : 0);
}

QKeySequence SequenciaDe(const Atalho& a) {
    if (a.Vazio()) return {};
    int k = 0;
    if ((a.Tecla >= 'A' && a.Tecla <= 'Z') || (a.Tecla >= '0' && a.Tecla <= '9'))
        k = a.Tecla;
    else if (a.Tecla >= tecla::F1 && a.Tecla <= tecla::F1 + 23)
        k = Qt::Key_F1 + (a.Tecla - tecla::F1);
    else
        for (const auto& [qt, codigo] : tabela)
            if (codigo == a.Tecla && qt != Qt::Key_Backtab && qt != Qt::Key_Enter) {
                k = qt;
                break;
            }
    if (k == 0) return {};
    int mods = 0;
    if (a.Modificadores & modificador::Shift) mods |= Qt::SHIFT;
    if (a.Modificadores & modificador::Ctrl) mods |= Qt::CTRL;
    if (a.Modificadores & modificador::Alt) mods |= Qt::ALT;
    return QKeySequence(k | mods);
}

} // namespace ztolvan
