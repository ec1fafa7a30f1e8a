#include "ui/qt/comum_qt.h"

#include <QApplication>
#include <QScreen>
#include <QThread>
#include <QWidget>
#include <array>
#include <utility>

#include "common/texto.h"
#include "ui/qt/visao_tela.h"

namespace ztolvan {

QFont FonteQt(const Fonte& f) {
    static const std::array<std::pair<const char*, const char*>, 4> gemeas = {{
        {"MS SANS SERIF", "Liberation Sans"},
        {"ARIAL", "Liberation Sans"},
        {"COURIER NEW", "Liberation Mono"},
        {"TIMES NEW ROMAN", "Liberation Serif"},
    }};
    QFont q;
    QStringList familias{Q(f.Nome)};
    const std::string nome = Normaliza(f.Nome);
    for (const auto& [antiga, gemea] : gemeas)
        if (nome == antiga) familias << QString::fromLatin1(gemea);
    q.setFamilies(familias);
    if (nome.find("COURIER") != std::string::npos) q.setStyleHint(QFont::TypeWriter);
    q.setPointSizeF(f.Tamanho > 0 ? f.Tamanho : 8);
    q.setBold(f.Negrito);
    return q;
}

double DpiLogico(const QWidget* w) {
    const QScreen* tela = w && w->screen() ? w->screen() : QGuiApplication::primaryScreen();
    return tela ? tela->logicalDotsPerInch() : 96.0;
}

QWidget* JanelaDeCima() {
    QWidget* w = QApplication::activeModalWidget();
    return w ? w : QApplication::activeWindow();
}

void DevolveTeclado(QWidget* janela) {
    if (janela && janela->isVisible()) janela->activateWindow();
}

void SincronizaTelas() {
    for (VisaoTela* v : VisaoTela::Todas())
        if (v->ModeloTela().Carregada()) v->Sincroniza();
}

bool NaThreadDaTela() {
    return qobject_cast<QApplication*>(QCoreApplication::instance()) &&
           QThread::currentThread() == QCoreApplication::instance()->thread();
}

} // namespace ztolvan
