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

QString GemeaMetrica(std::string_view nome) {
    static const std::array<std::pair<const char*, const char*>, 4> gemeas = {{
        {"MS SANS SERIF", "Liberation Sans"},
        {"ARIAL", "Liberation Sans"},
        {"COURIER NEW", "Liberation Mono"},
        {"TIMES NEW ROMAN", "Liberation Serif"},
    }};
    const std::string n = Normaliza(nome);
    for (const auto& [antiga, gemea] : gemeas)
        if (n == antiga) return QString::fromLatin1(gemea);
    return {};
}

QFont FonteQt(const Fonte& f) {
    QFont q;
    QStringList familias{Q(f.Nome)};
    if (const QString gemea = GemeaMetrica(f.Nome); !gemea.isEmpty()) familias << gemea;
    q.setFamilies(familias);
    if (Normaliza(f.Nome).find("COURIER") != std::string::npos) q.setStyleHint(QFont::TypeWriter);
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
