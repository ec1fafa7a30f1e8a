#pragma once
#include <QColor>
#include <QFont>
#include <QString>
#include <string>
#include <string_view>

#include "screens/controles.h"

class QWidget;

namespace ztolvan {

// Texts cross between the models and Qt as UTF-8.
inline QString Q(std::string_view s) { return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size())); }
inline std::string S(const QString& s) { return s.toUtf8().toStdString(); }

inline QColor CorQt(Cor c) { return QColor((c >> 16) & 0xFF, (c >> 8) & 0xFF, c & 0xFF); }

// The Linux face with the same widths as one of the old system's faces
// ("Courier New" -> "Liberation Mono"); empty for any other name.
QString GemeaMetrica(std::string_view nome);
// The model's font; the old system's faces that Linux lacks go to their
// metric twins, so captions laid out in twips still fit.
QFont FonteQt(const Fonte& f);

// Logical DPI of the widget's screen (of the primary screen without one):
// the one figure twips are converted with.
double DpiLogico(const QWidget* w = nullptr);

// The window a nested modal box or dialog stacks on: the active modal one,
// else the active window.
QWidget* JanelaDeCima();
// Once a nested box closed: the window it stood on takes the keyboard back
// (without a window manager nobody else would give it).
void DevolveTeclado(QWidget* janela);
// Every open screen mirrors its model, so what a box says meets what the
// screen shows behind it.
void SincronizaTelas();

// Whether the calling thread is the one the QApplication lives on: only it
// may touch widgets.
bool NaThreadDaTela();

} // namespace ztolvan
