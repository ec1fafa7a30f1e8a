#pragma once
#include <QKeySequence>
#include <Qt>

#include "screens/teclas.h"

class QKeyEvent;

namespace ztolvan {

// The one place Qt keys meet the system's key codes (the old window
// system's numbering: letters and digits as their characters, F1 112 ...).
// 0 when the system has no code for the key.
int CodigoTecla(const QKeyEvent& e);
int CodigoTecla(int teclaQt, Qt::KeyboardModifiers mods);
// Shift 1, Ctrl 2, Alt 4.
int ModificadoresSistema(Qt::KeyboardModifiers mods);
// A menu shortcut as Qt writes it; empty when the key has no Qt twin.
QKeySequence SequenciaDe(const Atalho& a);

} // namespace ztolvan
